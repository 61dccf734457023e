#pragma once

#include <QWidget>

class CCourseworkListModel;
class CCourseworkListView;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QListView;
class QMenu;
class QPushButton;
class QTabBar;

// The body of the main frame: the tab row and filters above the coursework
// list, the grade bar, and the banner of prediction mode and archived
// semesters. Each piece has its own refresh, which the frame calls in the
// order its command table gives. Every filter the user changes is written to
// the application state at once and the list is filled again.
class CMainView : public QWidget
{
    Q_OBJECT

public:
    explicit CMainView(QWidget* parent = nullptr);

    void RebuildTabs();
    void RebuildCourseSelector();
    // Which type the rebuilt type filter shows: the stored one, or (for a
    // course just chosen) the first.
    enum class TypeStart { Stored, First };
    void RebuildTypeFilter(TypeStart start = TypeStart::Stored);
    void RefreshList();
    void RefreshGradeBar();
    void LayoutView();

    // What the user does, as the controls report it.
    void OnTabChosen(int index);
    void OnCourseChosen(int index);
    void OnTypeChosen(int index);
    // A date value as stored (days, time of day as fraction).
    void OnDueByChosen(double picked);
    void ToggleShowDone();
    // Asks, then deletes the coursework with its links and recomputes its
    // course's grade, all in one transaction.
    void DeleteCoursework(quint32 courseworkId);
    // Pops up the banner's menu at a point of the banner; returns it.
    QMenu* OpenBannerMenu(const QPoint& position);

    QTabBar* TabBar() const { return m_tabs; }
    QComboBox* CourseSelector() const { return m_courses; }
    QComboBox* TypeFilter() const { return m_types; }
    QDateEdit* DueByPicker() const { return m_dueBy; }
    QCheckBox* ShowDoneBox() const { return m_showDone; }
    QLabel* GradeBar() const { return m_gradeBar; }
    QPushButton* Banner() const { return m_banner; }
    QListView* List() const;
    CCourseworkListModel* ListModel() const { return m_model; }

    // How many times the list was filled; lets tests see a change that
    // should not fill it.
    int FillCount() const { return m_fillCount; }

signals:
    // The user chose another course in the selector; the state holds it.
    void CurrentCourseChanged();
    // The banner's exit was chosen.
    void BannerCommand();
    // A coursework row was opened (double-click, Enter).
    void CourseworkOpened(quint32 courseworkId);

private:
    // Shows the type filter or the due-by picker that the current tab uses;
    // tabs past the fourth leave both as they are.
    void ShowFilterOfTab();
    // Puts the type filter on its first type and the list's type with it.
    void StartOnFirstType();
    void WriteState();

    QTabBar* m_tabs;
    QComboBox* m_courses;
    QComboBox* m_types;
    QDateEdit* m_dueBy;
    QCheckBox* m_showDone;
    QLabel* m_gradeBar;
    QPushButton* m_banner;
    CCourseworkListView* m_list;
    CCourseworkListModel* m_model;
    int m_fillCount = 0;
};
