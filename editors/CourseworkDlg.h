#pragma once

#include "CourseworkTable.h"
#include "controls/NumericEdit.h"

#include <QDateTime>
#include <QDialog>

class CourseworkDlgDetailsPage;
class CourseworkDlgExport;
class CourseworkDlgInfoPage;
class QAction;
class QTabWidget;

// One coursework as the coursework editor keeps it until OK.
struct CourseworkEntry
{
    static constexpr double None = CNumericEdit::EmptyValue; // an empty field

    QString name;
    quint32 typeId = 0;
    QDateTime due;
    double score = None; // in prediction mode the predicted one
    double possible = None;
    double weight = 0.0;    // None when left empty
    int progress = 0;       // percent, 0 to 100
    quint32 textbookId = 0; // 0: none
    QString details;
};

// Creates or edits one coursework. A new coursework's record exists from the
// moment the dialog opens; OK saves it, Cancel removes it again.
class CourseworkDlg : public QDialog
{
    Q_OBJECT

public:
    // As a course id: not chosen yet, the dialog asks for one.
    static constexpr quint32 NoCourseID = 0xFFFFFFFF;

    explicit CourseworkDlg(QWidget* parent = nullptr);
    ~CourseworkDlg() override;

    // Set before opening. Editing needs only the coursework id.
    void SetCourseID(quint32 courseId) { m_courseId = courseId; }
    void SetCourseworkID(quint32 courseworkId) { m_courseworkId = courseworkId; }
    void SetNew(bool isNew) { m_new = isNew; }

    // The opening steps. False when there is nothing to edit (no course was
    // chosen, or the coursework is gone): the dialog is then done, cancelled,
    // and must not be shown.
    bool OnInitDialog();
    // Checks the working copy and writes it; false (nothing written, the
    // dialog stays open) when a field is refused or the write failed.
    bool Save();
    // OK: collect the fields into the working copy, save it, export each
    // checked kind (or drop its link), all in one transaction, then close.
    bool OnOK();
    // Cancel: a new coursework's record is removed.
    void OnCancel();

    // The "Add" menu.
    void OnAddCwType();
    void OnAddTextbook();

    quint32 CourseID() const { return m_courseId; }
    quint32 CourseworkID() const { return m_courseworkId; }
    bool IsNew() const { return m_new; }
    // The working copy, loaded on opening and collected from the fields by OnOK.
    CourseworkEntry& Entry() { return m_entry; }

    QTabWidget* Pages() const { return m_pages; }
    CourseworkDlgInfoPage* InfoPage() const { return m_infoPage; }
    CourseworkDlgDetailsPage* DetailsPage() const { return m_detailsPage; }
    CourseworkDlgExport* Export() const { return m_export; }
    QAction* AddCwTypeAction() const { return m_addCwType; }
    QAction* AddTextbookAction() const { return m_addTextbook; }

public slots:
    void accept() override;
    void reject() override;

private:
    bool ChooseCourse();
    bool CreateRecord();
    void LoadEntry();
    void ShowEntry();
    void CollectEntry();
    void FillTypes(quint32 selectedTypeId);
    void FillTextbooks(quint32 selectedTextbookId);
    void ShowWeightForCourse();
    void OnPointsEdited();
    // A message for the working copy's first refused field, if any, and the
    // field that shows it.
    QString Refusal(QWidget** field) const;

    CCourseworkTable m_coursework; // open on the edited record for the dialog's life
    quint32 m_courseId = NoCourseID;
    quint32 m_courseworkId = 0;
    bool m_new = false;
    bool m_opened = false;
    bool m_finished = false; // saved or removed
    CourseworkEntry m_entry;
    CourseworkEntry m_saved; // what the file holds, to tell what OK changes

    QTabWidget* m_pages;
    CourseworkDlgInfoPage* m_infoPage;
    CourseworkDlgDetailsPage* m_detailsPage;
    CourseworkDlgExport* m_export;
    QAction* m_addCwType = nullptr;
    QAction* m_addTextbook = nullptr;
};
