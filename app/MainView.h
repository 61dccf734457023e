#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QListView;
class QPushButton;
class QTabBar;

// The body of the main frame: the tab row and filters above the coursework
// list, the grade bar, and the banner of prediction mode and archived
// semesters. Each piece has its own refresh, which the frame calls in the
// order its command table gives.
class CMainView : public QWidget
{
    Q_OBJECT

public:
    explicit CMainView(QWidget* parent = nullptr);

    void RebuildTabs();
    void RebuildCourseSelector();
    void RebuildTypeFilter();
    void RefreshList();
    void RefreshGradeBar();
    void LayoutView();

    QTabBar* TabBar() const { return m_tabs; }
    QComboBox* CourseSelector() const { return m_courses; }
    QComboBox* TypeFilter() const { return m_types; }
    QDateEdit* DueByPicker() const { return m_dueBy; }
    QLabel* GradeBar() const { return m_gradeBar; }
    QPushButton* Banner() const { return m_banner; }
    QListView* List() const { return m_list; }

signals:
    // The user chose another course in the selector (the state is written).
    void CurrentCourseChanged();
    // The banner's exit was chosen.
    void BannerCommand();

private:
    QTabBar* m_tabs;
    QComboBox* m_courses;
    QComboBox* m_types;
    QDateEdit* m_dueBy;
    QCheckBox* m_showDone;
    QLabel* m_gradeBar;
    QPushButton* m_banner;
    QListView* m_list;
};
