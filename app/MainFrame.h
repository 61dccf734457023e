#pragma once

#include <QHash>
#include <QMainWindow>

#include <functional>

class CMainView;
class QAction;
class QMenu;

// The one top-level window: the menus, the command table that opens every
// dialog, and the main view, refreshed piece by piece after each command.
class CMainFrame : public QMainWindow
{
    Q_OBJECT

public:
    explicit CMainFrame(QWidget* parent = nullptr);

    CMainView* View() const { return m_view; }

    // Refreshes, one per piece of the view; commands call them in the order
    // their entry of the command table names.
    void RefreshTabs();
    void RefreshCourseSelector();
    void RefreshTypeFilter();
    void RefreshMenuBar();
    void RefreshList();
    void RefreshGradeBar();
    void RefreshLayout();
    void RefreshAll();

    // Enables each command whose dialog exists, under the command-state rules,
    // and names the prediction toggle after what it will do.
    void UpdateCommandStates();

    // Commands of the frame itself.
    void OnTogglePrediction();
    void OnBannerCommand();
    void OnAbout();
    void OnHelp();
    // "Database...": the database options, then the whole view from what the
    // database now holds.
    void OnDatabaseOptions();

    // Opens one coursework of the list for editing (double-click, Enter).
    void OpenCoursework(quint32 courseworkId);

private:
    QAction* MakeAction(const QString& text, const char* name);
    void BuildActions();
    void BuildMenus();
    // Wires an action to its command and marks it available.
    void Connect(QAction* action, std::function<void()> command);

    // Each area of the program wires its own commands.
    void WireCourseCommands();
    void WireCourseworkCommands();
    void WireGradeCommands();
    void WireMaintenanceCommands();
    void OpenGradePlanner(quint32 courseId);
    void WireExportCommands();

    CMainView* m_view;

    QAction* m_newCourse = nullptr;
    QAction* m_sortCourses = nullptr;
    QAction* m_deleteCourse = nullptr;
    QAction* m_progressReport = nullptr;
    QAction* m_addCoursework = nullptr;
    QAction* m_editCourse = nullptr;
    QAction* m_editInstructors = nullptr;
    QAction* m_editGradingPolicy = nullptr;
    QAction* m_about = nullptr;
    QAction* m_database = nullptr;
    QAction* m_semester = nullptr;
    QAction* m_tabOrder = nullptr;
    QAction* m_buildings = nullptr;
    QAction* m_allInstructors = nullptr;
    QAction* m_institution = nullptr;
    QAction* m_reportCard = nullptr;
    QAction* m_gradePlanner = nullptr;
    QAction* m_exportFolders = nullptr;
    QAction* m_predictionOptions = nullptr;
    QAction* m_togglePrediction = nullptr;
    QAction* m_help = nullptr;
    QAction* m_todayCompanion = nullptr;
    QAction* m_quit = nullptr;

    QMenu* m_courseMenuNoCourse = nullptr;
    QMenu* m_courseMenuWithCourse = nullptr;
    QMenu* m_toolsMenu = nullptr;
    QMenu* m_predictionMenu = nullptr;

    QHash<QAction*, bool> m_available;
    std::function<void(quint32)> m_openCoursework;
};
