#pragma once

#include "ClassTimeEditor.h"
#include "PagedEditorDlg.h"

#include <vector>

class CInstructorBasicPage;
class InstructorDlgExport;
class CRoomPage;
class CTimeListPage;
class QAction;

// One instructor as the instructors editor keeps it until OK.
struct InstructorEntry
{
    quint32 id = 0; // 0: not stored yet
    QString name;
    QString phone;
    QString email;
    QString roomNumber;
    QString buildingName;
    bool exportContact = false;
    quint32 contactId = 0; // the linked contact; 0: none
    std::vector<ClassTimeEntry> officeHours;
};

// "Edit Instructors": the instructors of one course (new ones are linked to
// it, deleting unlinks) or, with course id 0, every instructor (deleting
// deletes). Everything is written on OK, in one transaction.
class InstructorDlg : public CPagedEditorDlg
{
    Q_OBJECT

public:
    static constexpr quint32 AllInstructors = 0;

    explicit InstructorDlg(quint32 courseId, QWidget* parent = nullptr);

    // The opening (run by the constructor), OK and Cancel steps.
    void OnInitDialog();
    bool OnOK();
    void OnCancel() {}

    // The menu commands. AddPrevious is "From Previous..." once the chooser
    // has given an instructor.
    void OnFromPrevious();
    void AddPrevious(quint32 instructorId);
    void OnBrandNew();
    void OnDeleteCurrent();
    // Keeps the shown fields, then shows the entry (-1: none).
    void SelectEntry(int index);

    quint32 CourseID() const { return m_courseId; }
    const std::vector<InstructorEntry>& Entries() const { return m_entries; }
    int ShownIndex() const { return m_shown; }

    CInstructorBasicPage* BasicPage() const { return m_basicPage; }
    CTimeListPage* HoursPage() const { return m_hoursPage; }
    CRoomPage* RoomPage() const { return m_roomPage; }
    QAction* FromPreviousAction() const { return m_fromPrevious; }
    QAction* BrandNewAction() const { return m_brandNew; }
    QAction* DeleteCurrentAction() const { return m_deleteCurrent; }
    QAction* ExportContactsAction() const { return m_exportContacts; }
    InstructorDlgExport* Export() const { return m_export; }

public slots:
    void accept() override;

private:
    void BuildMenus();
    InstructorEntry LoadEntry(quint32 instructorId, bool* found);
    // "Export" > "Contacts": the shown instructor's flag.
    void OnExportContacts(bool on);
    void StoreShown();
    void ShowEntry(int index);
    void RefreshInstructorBox();
    void UpdateMenuStates();
    void DeleteRemovedInstructor(quint32 instructorId);
    // The failure of the contact export, if any, goes into `failures`.
    void SaveEntry(InstructorEntry& entry, QStringList& failures);

    quint32 m_courseId;
    std::vector<InstructorEntry> m_entries;
    int m_shown = -1;
    bool m_storeHadInstructors = false;
    std::vector<quint32> m_removedInstructorIds;
    std::vector<quint32> m_removedOfficeHourIds;

    QAction* m_fromPrevious = nullptr;
    QAction* m_brandNew = nullptr;
    QAction* m_deleteCurrent = nullptr;
    QAction* m_exportContacts = nullptr;
    InstructorDlgExport* m_export;
    CInstructorBasicPage* m_basicPage;
    CTimeListPage* m_hoursPage;
    CRoomPage* m_roomPage;
};
