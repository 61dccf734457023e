#pragma once

#include <QDialog>

#include <vector>

class QListWidget;
class QMenu;
class QPushButton;

// "Semester Information": the archived semesters. Archive the working
// semester's courses into a new named semester, rename or delete archived
// ones (their courses come back to the working semester), or view one. The
// dialog works on its own copy; OK writes everything in one transaction.
class SemesterDlg : public QDialog
{
    Q_OBJECT

public:
    struct SemesterRow
    {
        quint32 id = 0; // 0: the archive still to be written
        QString name;
    };

    explicit SemesterDlg(QWidget* parent = nullptr);

    // Reads the archived semesters (run by the constructor).
    void OnInitDialog();
    // Writes deletions, renames and the pending archive in one transaction;
    // false (after telling the user) when that failed and nothing changed.
    bool OnOK();

    // "Archive Semester": asks first, then runs the archive dialog.
    void ArchiveSemester();
    // What a successful archive dialog hands over: sets the archive pending;
    // a row is added only when at least one course was checked.
    void PrepareArchive(const std::vector<quint32>& courseIds, const QString& name);
    // The row menu's commands. Deleting the pending archive's row drops it.
    void EditSemester(int row);
    void RenameSemester(int row, const QString& name);
    void DeleteSemester(int row);
    // "View Old Semester" on the selected row.
    void ViewOldSemester();

    // The row menu ("Edit Semester", "Delete Semester"); nullptr off a row.
    QMenu* RowMenu(int row);

    const std::vector<SemesterRow>& Rows() const { return m_rows; }
    const std::vector<quint32>& DeletedIDs() const { return m_deletedIds; }
    bool IsArchivePending() const { return m_archivePending; }
    const std::vector<quint32>& ArchiveCourseIDs() const { return m_archiveCourseIds; }
    // The current course the main frame stores after the dialog.
    quint32 ChosenCourseID() const;

    int SelectedRow() const;
    void SelectRow(int row);
    QListWidget* List() const { return m_list; }
    QPushButton* ArchiveButton() const { return m_archiveButton; }
    QPushButton* ViewButton() const { return m_viewButton; }

    void accept() override;
    void reject() override;

private:
    void Redraw(int selectedRow);
    void UpdateButtons();
    bool WriteChanges();
    static void LeavePrediction();

    std::vector<SemesterRow> m_rows;
    std::vector<quint32> m_deletedIds;
    bool m_archivePending = false;
    std::vector<quint32> m_archiveCourseIds;
    // The semester on view when the dialog opened; Cancel puts it back.
    quint32 m_semesterOnOpen = 0;

    QListWidget* m_list;
    QPushButton* m_archiveButton;
    QPushButton* m_viewButton;
};
