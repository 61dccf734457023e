#pragma once

#include "ClassTimeEditor.h"
#include "CourseTable.h"
#include "TextbookEditor.h"

#include <QDialog>

#include <vector>

class CCourseBasicPage;
class CCourseBooksPage;
class CRoomPage;
class CTimeListPage;
class QAction;
class QDialogButtonBox;
class QMenuBar;
class QTabWidget;

// Creates or edits one course: its identity, textbooks, meeting times and
// room. A new course's record exists from the moment the dialog opens (so
// that the grading and instructor editors can refer to it); OK keeps it,
// Cancel removes it with everything made for it. Nothing else is written
// before OK.
class CourseDlg : public QDialog
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

    // The opening, OK and Cancel steps. OnOK returns false (and writes
    // nothing) when a field is refused; the dialog then stays open.
    void OnInitDialog();
    bool OnOK();
    void OnCancel();

    quint32 CourseID() const { return m_courseId; }
    bool IsNewCourse() const { return m_newCourse; }
    const std::vector<ClassTimeEntry>& Times() const { return m_times; }
    const std::vector<TextbookEntry>& Textbooks() const { return m_textbooks; }
    QString Details() const { return m_details; }

    QTabWidget* Pages() const { return m_pages; }
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
    void LoadTimes();
    void LoadTextbooks();
    void ApplyStartOnBooks();
    void SetEditorOpen(bool open);
    bool IsDuplicateName(const QString& name) const;
    void SaveTimes();
    void SaveTextbooks();
    void DeleteTextbookWithCascade(quint32 textbookId);

    CCourseTable m_course; // open on the edited record for the dialog's life
    quint32 m_courseId = 0;
    bool m_newCourse = false;
    bool m_initialized = false;
    bool m_finished = false; // saved or removed
    bool m_startOnBooks = false;
    QString m_details;
    std::vector<ClassTimeEntry> m_times;
    std::vector<TextbookEntry> m_textbooks;
    std::vector<quint32> m_removedTimeIds;
    std::vector<quint32> m_removedTextbookIds;

    QMenuBar* m_menuBar;
    QAction* m_gradingAction = nullptr;
    QTabWidget* m_pages;
    CCourseBasicPage* m_basicPage;
    CCourseBooksPage* m_booksPage;
    CTimeListPage* m_timesPage;
    CRoomPage* m_roomPage;
    QDialogButtonBox* m_buttons;
};
