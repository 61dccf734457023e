#include "MainFrame.h"

#include "BrindleData.h"
#include "MainView.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/Mnemonic.h"
#include "grading/PredictedGrades.h"
#include "grading/PredictionStore.h"
#include "res/strings/AppStrings.h"
#include "res/strings/ExportStrings.h"
#include "res/strings/PlannerStrings.h"
#include "res/strings/TodayStrings.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace {
CAppStateTable& State()
{
    return CAppStateTable::Instance();
}
} // namespace

CMainFrame::CMainFrame(QWidget* parent) : QMainWindow(parent), m_view(new CMainView(this))
{
    setObjectName(QStringLiteral("CMainFrame"));
    setWindowTitle(AppStrings::AppTitle());
    setCentralWidget(m_view);

    BuildActions();
    BuildMenus();
    Connect(m_about, [this] { OnAbout(); });
    Connect(m_help, [this] { OnHelp(); });
    Connect(m_quit, [this] { close(); });
    Connect(m_togglePrediction, [this] { OnTogglePrediction(); });
    WireCourseCommands();
    WireCourseworkCommands();
    WireGradeCommands();
    WireMaintenanceCommands();
    WireExportCommands();

    connect(m_view, &CMainView::CurrentCourseChanged, this, [this] { RefreshMenuBar(); });
    connect(m_view, &CMainView::BannerCommand, this, [this] { OnBannerCommand(); });
    connect(m_view, &CMainView::CourseworkOpened, this, [this](quint32 id) { OpenCoursework(id); });

    const int line = fontMetrics().height();
    resize(line * 46, line * 38);
    RefreshAll();
}

QAction* CMainFrame::MakeAction(const QString& text, const char* name)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(name));
    action->setEnabled(false);
    m_available.insert(action, false);
    return action;
}

void CMainFrame::BuildActions()
{
    m_newCourse = MakeAction(AppStrings::NewCourse(), "actionNewCourse");
    m_sortCourses = MakeAction(AppStrings::SortCourses(), "actionSortCourses");
    m_deleteCourse = MakeAction(AppStrings::DeleteCourse(), "actionDeleteCourse");
    m_progressReport = MakeAction(AppStrings::ProgressReport(), "actionProgressReport");
    m_addCoursework = MakeAction(AppStrings::AddCoursework(), "actionAddCoursework");
    m_editCourse = MakeAction(AppStrings::EditCourse(), "actionEditCourse");
    m_editInstructors = MakeAction(AppStrings::EditInstructors(), "actionEditInstructors");
    m_editGradingPolicy = MakeAction(AppStrings::EditGradingPolicy(), "actionEditGradingPolicy");
    m_about = MakeAction(AppStrings::AboutBrindle(), "actionAbout");
    m_database = MakeAction(AppStrings::Database(), "actionDatabase");
    m_semester = MakeAction(AppStrings::Semester(), "actionSemester");
    m_tabOrder = MakeAction(AppStrings::TabOrder(), "actionTabOrder");
    m_buildings = MakeAction(AppStrings::Buildings(), "actionBuildings");
    m_allInstructors = MakeAction(AppStrings::AllInstructors(), "actionAllInstructors");
    m_institution = MakeAction(AppStrings::Institution(), "actionInstitution");
    m_reportCard = MakeAction(AppStrings::ReportCard(), "actionReportCard");
    m_gradePlanner = MakeAction(PlannerStrings::MenuItem(), "actionGradePlanner");
    m_exportFolders = MakeAction(ExportStrings::ExportFolders(), "actionExportFolders");
    m_predictionOptions = MakeAction(AppStrings::PredictionOptions(), "actionPredictionOptions");
    m_togglePrediction = MakeAction(AppStrings::TurnOn(), "actionTogglePrediction");
    m_help = MakeAction(AppStrings::HelpContents(), "actionHelp");
    m_todayCompanion = MakeAction(TodayStrings::CompanionMenuItem(), "actionTodayCompanion");
    m_help->setShortcut(QKeySequence::HelpContents);
    m_quit = MakeAction(AppStrings::Quit(), "actionQuit");
    m_quit->setShortcut(QKeySequence::Quit);
    // Reachable by their keys alone: the menus carry only the listed commands.
    addAction(m_help);
    addAction(m_quit);
}

void CMainFrame::BuildMenus()
{
    m_courseMenuNoCourse = new QMenu(WithMnemonic(AppStrings::MenuCourse()), this);
    m_courseMenuNoCourse->setObjectName(QStringLiteral("menuCourseNoCourse"));
    m_courseMenuNoCourse->addActions({m_newCourse, m_sortCourses});

    m_courseMenuWithCourse = new QMenu(WithMnemonic(AppStrings::MenuCourse()), this);
    m_courseMenuWithCourse->setObjectName(QStringLiteral("menuCourseWithCourse"));
    m_courseMenuWithCourse->addActions(
        {m_newCourse, m_sortCourses, m_deleteCourse, m_progressReport});
    m_courseMenuWithCourse->addSeparator();
    m_courseMenuWithCourse->addActions(
        {m_addCoursework, m_editCourse, m_editInstructors, m_editGradingPolicy});

    m_toolsMenu = new QMenu(WithMnemonic(AppStrings::MenuTools()), this);
    m_toolsMenu->setObjectName(QStringLiteral("menuTools"));
    m_toolsMenu->addActions({m_about, m_database});
    m_toolsMenu->addSeparator();
    m_toolsMenu->addActions(
        {m_semester, m_tabOrder, m_buildings, m_allInstructors, m_institution, m_reportCard});
    m_toolsMenu->addSeparator();
    m_toolsMenu->addAction(m_gradePlanner);
    m_toolsMenu->addAction(m_todayCompanion);
    // Beyond the program's own commands: where exported items are written.
    m_toolsMenu->addSeparator();
    m_toolsMenu->addAction(m_exportFolders);

    m_predictionMenu = new QMenu(WithMnemonic(AppStrings::MenuPrediction()), this);
    m_predictionMenu->setObjectName(QStringLiteral("menuPrediction"));
    m_predictionMenu->addActions({m_predictionOptions, m_togglePrediction});

    for (QMenu* menu :
         {m_courseMenuNoCourse, m_courseMenuWithCourse, m_toolsMenu, m_predictionMenu})
        connect(menu, &QMenu::aboutToShow, this, [this] { UpdateCommandStates(); });
}

void CMainFrame::Connect(QAction* action, std::function<void()> command)
{
    connect(action, &QAction::triggered, this, [command = std::move(command)] { command(); });
    m_available[action] = true;
    action->setEnabled(true);
}

void CMainFrame::UpdateCommandStates()
{
    for (auto it = m_available.cbegin(); it != m_available.cend(); ++it)
        it.key()->setEnabled(it.value());

    const bool activeSemester = State().GetCurrentSemesterID() == WorkingSemesterID;
    m_togglePrediction->setEnabled(m_available.value(m_togglePrediction) && activeSemester);
    m_predictionOptions->setEnabled(m_available.value(m_predictionOptions) && activeSemester);
    m_togglePrediction->setText(CPredictionStore::Instance().IsActive() ? AppStrings::TurnOff()
                                                                        : AppStrings::TurnOn());
}

void CMainFrame::RefreshTabs()
{
    m_view->RebuildTabs();
}

void CMainFrame::RefreshCourseSelector()
{
    m_view->RebuildCourseSelector();
}

void CMainFrame::RefreshTypeFilter()
{
    m_view->RebuildTypeFilter();
}

void CMainFrame::RefreshMenuBar()
{
    const bool courseSelected = State().GetCurrentCourseID() != AllCoursesID;
    QMenuBar* bar = menuBar();
    bar->clear();
    bar->addMenu(courseSelected ? m_courseMenuWithCourse : m_courseMenuNoCourse);
    bar->addMenu(m_toolsMenu);
    bar->addMenu(m_predictionMenu);
    UpdateCommandStates();
    if (courseSelected)
        RefreshTypeFilter();
}

void CMainFrame::RefreshList()
{
    m_view->RefreshList();
}

void CMainFrame::RefreshGradeBar()
{
    m_view->RefreshGradeBar();
}

void CMainFrame::RefreshLayout()
{
    m_view->LayoutView();
    UpdateCommandStates();
}

void CMainFrame::RefreshAll()
{
    RefreshLayout();
    RefreshTabs();
    RefreshCourseSelector();
    RefreshMenuBar();
    RefreshTypeFilter();
    RefreshList();
    RefreshGradeBar();
}

void CMainFrame::OnTogglePrediction()
{
    CPredictionStore::Instance().Toggle();
    // Scores to give set before the mode went on count from the start.
    RecomputePredictedGrades();
    RefreshGradeBar();
    RefreshList();
    RefreshLayout();
}

void CMainFrame::OnBannerCommand()
{
    if (CPredictionStore::Instance().IsActive()) {
        OnTogglePrediction();
        return;
    }
    if (State().GetCurrentSemesterID() == WorkingSemesterID)
        return;
    State().SetCurrentSemesterID(WorkingSemesterID);
    State().SetCurrentCourseID(AllCoursesID);
    State().UpdateRecord();
    RefreshLayout();
    RefreshCourseSelector();
    RefreshMenuBar();
    RefreshTypeFilter();
    RefreshList();
    RefreshGradeBar();
}

void CMainFrame::OnAbout()
{
    QMessageBox about(QMessageBox::NoIcon, AppStrings::AboutTitle(),
                      AppStrings::AboutText(QApplication::applicationVersion()), QMessageBox::Ok,
                      this);
    about.setObjectName(QStringLiteral("AboutBox"));
    about.setIconPixmap(windowIcon().pixmap(64, 64));
    DialogRunner::Run(about);
}

void CMainFrame::OnHelp()
{
    CHelpViewer::ShowTopic(QStringLiteral("main_contents"), this);
}

void CMainFrame::OpenCoursework(quint32 courseworkId)
{
    if (m_openCoursework)
        m_openCoursework(courseworkId);
}
