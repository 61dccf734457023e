#pragma once

#include "ClassTimeEditor.h"
#include "CourseTable.h"
#include "PagedEditorDlg.h"
#include "TextbookEditor.h"
#include "controls/NumericEdit.h"

#include <vector>

class CCourseBasicPage;
class CCourseBooksPage;
class CRoomPage;
class CTimeListPage;
class QAction;

// One course's own fields as the course editor keeps them until OK.
struct CourseEntry
{
    static constexpr double NoHours = CNumericEdit::EmptyValue; // not given: an empty field

    QString name;
    QString number;
    QString section;
    QString department;
    double hours = NoHours;
    bool inMajor = false;
    QString roomNumber;
    QString webSite;
    QString buildingName; // empty: none
    QString details;
};

// Creates or edits one course: its identity, textbooks, meeting times and
// room. A new course's record exists from the moment the dialog opens (so
// that the grading and instructor editors can refer to it); OK keeps it,
// Cancel removes it with everything made for it. Nothing else is written
// before OK.
class CourseDlg : public CPagedEditorDlg
{
    Q_OBJECT

public:
    static constexpr quint32 NewCourseID = 0xFFFFFFFF;

    explicit CourseDlg(QWidget* parent = nullptr);
    ~CourseDlg() override;

    // Runs the opening for the course (NewCourseID: a new one). Call once,
    // before the dialog is shown.
    void SetCourse(quint32 courseId);
    // Opens on the "Books" page with a new textbook started.
    void SetStartOnBooks(bool startOnBooks);

    // The opening, OK and Cancel steps. OnOK finishes an open entry editor,
    // collects the fields into the working copy and saves it.
    void OnInitDialog();
    bool OnOK();
    void OnCancel();
    // Checks the working copy and writes it, with the times and textbooks, in
    // one transaction. False (nothing written, the field in question shown)
    // when a field is refused or the write failed.
    bool Save();

    // The working copy, loaded on opening and collected from the fields by OnOK.
    CourseEntry& Entry() { return m_entry; }
    std::vector<ClassTimeEntry>& Times() { return m_times; }
    std::vector<TextbookEntry>& Textbooks() { return m_textbooks; }

    quint32 CourseID() const { return m_courseId; }
    bool IsNewCourse() const { return m_newCourse; }

    CCourseBasicPage* BasicPage() const { return m_basicPage; }
    CCourseBooksPage* BooksPage() const { return m_booksPage; }
    CTimeListPage* TimesPage() const { return m_timesPage; }
    CRoomPage* RoomPage() const { return m_roomPage; }

    // The "Advanced" menu's commands.
    void OnGrading();
    void OnInstructor();
    void OnDetails();

public slots:
    void accept() override;
    void reject() override;

private:
    void BuildMenu();
    void LoadEntry();
    void ShowEntry();
    void CollectEntry();
    void LoadTimes();
    void LoadTextbooks();
    void ApplyStartOnBooks();
    // The refusal of the working copy's fields, if any, and the field to show.
    QString Refusal(QWidget** field) const;
    bool IsDuplicateName(const QString& name) const;
    bool AddToSemesterOrder();
    void SaveTimes();
    void SaveTextbooks();
    void DeleteTextbookWithCascade(quint32 textbookId);

    CCourseTable m_course; // open on the edited record for the dialog's life
    quint32 m_courseId = 0;
    bool m_newCourse = false;
    bool m_initialized = false;
    bool m_finished = false; // saved or removed
    bool m_startOnBooks = false;
    CourseEntry m_entry;
    std::vector<ClassTimeEntry> m_times;
    std::vector<TextbookEntry> m_textbooks;
    std::vector<quint32> m_removedTimeIds;
    std::vector<quint32> m_removedTextbookIds;

    QAction* m_gradingAction = nullptr;
    CCourseBasicPage* m_basicPage;
    CCourseBooksPage* m_booksPage;
    CTimeListPage* m_timesPage;
    CRoomPage* m_roomPage;
};
