// The filters of the main view: tabs, course selector, type filter, due-by
// picker and Show Done, each written to the state at once; and the state
// the program starts on after a restart.
#include "BrindleData.h"
#include "app/Clock.h"
#include "app/CourseworkListModel.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QListView>
#include <QTabBar>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

CAppStateTable& State()
{
    return CAppStateTable::Instance();
}

void Refresh(CMainView& view)
{
    view.LayoutView();
    view.RebuildTabs();
    view.RebuildCourseSelector();
    view.RebuildTypeFilter();
    view.RefreshList();
    view.RefreshGradeBar();
}

int TabIndex(const QTabBar* tabs, uint id)
{
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabData(i).toUInt() == id)
            return i;
    return -1;
}

QStringList TabTexts(const QTabBar* tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts;
}

void AddTab(CViewTabTable::ViewTabIDs id, const QString& text)
{
    CViewTabTable tabs;
    tabs.Open();
    tabs.NewRecord(0);
    tabs.SetViewTabID(id);
    tabs.SetTabText(text);
    tabs.SetIsVisible(1);
    tabs.SetTabOrder(10);
    tabs.UpdateRecord();
}

void HideTab(CViewTabTable::ViewTabIDs id)
{
    CViewTabTable tabs;
    tabs.Open(1);
    CCeDBProp key(static_cast<quint32>(id));
    tabs.SetSeekValue(&key, CDataTable::SeekValueEqual);
    if (tabs.MoveFirst(1)) {
        tabs.SetIsVisible(0);
        tabs.UpdateRecord();
    }
}

double Day(int year, int month, int day)
{
    return BrindleDate::FromDate(QDate(year, month, day));
}

} // namespace

class TestMainView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tabsComeFromTheTable();
    void hiddenCurrentTabSelectsNoFilter();
    void emptySemesterDisablesSelector();
    void tabChosen_data();
    void tabChosen();
    void tabPastTheFourthLeavesControls();
    void sameDueByDayDoesNothing();
    void typeChosen();
    void courseChosen();
    void allCoursesOnTypeTabHidesFilter();
    void courseChosenAgainStartsOnItsFirstType();
    void showDoneToggles();
    void restartKeepsTheFilters_data();
    void restartKeepsTheFilters();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_biology = 0;
    quint32 m_history = 0;
    quint32 m_labs = 0;
    quint32 m_quizzes = 0;
    quint32 m_essays = 0;
};

void TestMainView::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
}

void TestMainView::cleanup()
{
    BrindleClock::SetNow({});
    m_db.reset();
}

// Two courses; Biology with two types and three items, History with one.
static void AddCourses(quint32& biology, quint32& history, quint32& labs, quint32& quizzes,
                       quint32& essays)
{
    biology = Records::Course(u"Biology"_s);
    history = Records::Course(u"History"_s);
    labs = Records::CwType(biology, u"Labs"_s);
    quizzes = Records::CwType(biology, u"Quizzes"_s);
    essays = Records::CwType(history, u"Essays"_s);
    Records::Coursework(biology, labs, u"Lab 1"_s, -1, -1, Day(2024, 9, 2));
    Records::Coursework(biology, quizzes, u"Quiz 1"_s, -1, -1, Day(2024, 9, 9));
    Records::Coursework(biology, labs, u"Lab 2"_s, -1, -1, Day(2024, 9, 20), 100);
    Records::Coursework(history, essays, u"Essay 1"_s, -1, -1, Day(2024, 9, 12));
    // Done work hidden, as after the user unticks "Show Done" (a new
    // database starts with it ticked).
    CAppStateTable::Instance().SetShowDone(0);
    CAppStateTable::Instance().UpdateRecord();
}

void TestMainView::tabsComeFromTheTable()
{
    CMainView view;
    Refresh(view);
    QCOMPARE(TabTexts(view.TabBar()), (QStringList{u"No Filter"_s, u"Cw Type"_s, u"Past Due"_s,
                                                   u"Course Week"_s, u"Due By"_s}));
    for (uint id = 0; id <= 4; ++id)
        QCOMPARE(view.TabBar()->tabData(static_cast<int>(id)).toUInt(), id);
}

void TestMainView::hiddenCurrentTabSelectsNoFilter()
{
    State().SetCurrentTabID(CViewTabTable::PastDueTab);
    HideTab(CViewTabTable::PastDueTab);
    CMainView view;
    Refresh(view);
    QCOMPARE(TabTexts(view.TabBar()),
             (QStringList{u"No Filter"_s, u"Cw Type"_s, u"Course Week"_s, u"Due By"_s}));
    QCOMPARE(view.TabBar()->currentIndex(), 0);
    // The state follows the tab shown, so the list is "No Filter"'s too.
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
}

void TestMainView::emptySemesterDisablesSelector()
{
    CMainView view;
    Refresh(view);
    QVERIFY(!view.CourseSelector()->isEnabled());
    QCOMPARE(view.CourseSelector()->currentText(), u"No Courses"_s);
    QCOMPARE(State().GetCurrentCourseID(), AllCoursesID);
    QCOMPARE(view.ListModel()->rowCount(), 0);

    Records::Course(u"Biology"_s);
    view.RebuildCourseSelector();
    QVERIFY(view.CourseSelector()->isEnabled());
    QCOMPARE(view.CourseSelector()->currentText(), u"All Courses"_s);
    QCOMPARE(view.CourseSelector()->count(), 2);
}

void TestMainView::tabChosen_data()
{
    QTest::addColumn<bool>("oneCourse");
    QTest::addColumn<uint>("tab");
    QTest::addColumn<bool>("typeShown");
    QTest::addColumn<bool>("dateShown");
    QTest::addColumn<int>("rows");

    // Now is Saturday 7 September 2024; Biology's open items are due on the
    // 2nd (a lab) and the 9th (a quiz); the due-by date is the 10th.
    QTest::newRow("type tab, one course") << true << 1u << true << false << 1;
    QTest::newRow("type tab, all courses, with headers") << false << 1u << false << false << 5;
    QTest::newRow("past due") << true << 2u << false << false << 1;
    QTest::newRow("course week") << true << 3u << false << false << 1;
    QTest::newRow("due by") << true << 4u << false << true << 2;
    QTest::newRow("no filter") << true << 0u << false << false << 2;
}

void TestMainView::tabChosen()
{
    QFETCH(bool, oneCourse);
    QFETCH(uint, tab);
    QFETCH(bool, typeShown);
    QFETCH(bool, dateShown);
    QFETCH(int, rows);

    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentCourseID(oneCourse ? m_biology : AllCoursesID);
    State().SetViewTabDueBy(Day(2024, 9, 10));
    State().SetCurrentTabID(tab == 0 ? CViewTabTable::PastDueTab : CViewTabTable::NoFilter);
    CMainView view;
    Refresh(view);
    view.show();

    view.TabBar()->setCurrentIndex(TabIndex(view.TabBar(), tab));
    QCOMPARE(view.TypeFilter()->isVisible(), typeShown);
    QCOMPARE(view.DueByPicker()->isVisible(), dateShown);
    if (dateShown)
        QCOMPARE(view.DueByPicker()->date(), QDate(2024, 9, 10));
    QCOMPARE(view.ListModel()->rowCount(), rows);

    // Written at once: a restart reads it back.
    QVERIFY(m_db->Reopen());
    QCOMPARE(static_cast<uint>(State().GetCurrentTabID()), tab);
    if (tab == 1)
        QCOMPARE(State().GetViewTabCwType(), oneCourse ? m_labs : 0u);
}

void TestMainView::tabPastTheFourthLeavesControls()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    AddTab(static_cast<CViewTabTable::ViewTabIDs>(5), u"Exams"_s);
    CMainView view;
    Refresh(view);
    view.show();

    view.TabBar()->setCurrentIndex(TabIndex(view.TabBar(), 4));
    QVERIFY(view.DueByPicker()->isVisible());
    const int fills = view.FillCount();
    view.TabBar()->setCurrentIndex(TabIndex(view.TabBar(), 5));
    QVERIFY(view.DueByPicker()->isVisible());
    QVERIFY(!view.TypeFilter()->isVisible());
    QCOMPARE(view.FillCount(), fills + 1);
    QCOMPARE(static_cast<uint>(State().GetCurrentTabID()), 5u);
    // Its window is the widest one.
    QCOMPARE(view.ListModel()->rowCount(), 5);
}

void TestMainView::sameDueByDayDoesNothing()
{
    State().SetCurrentTabID(CViewTabTable::DueByTab);
    State().SetViewTabDueBy(Day(2024, 9, 10));
    CMainView view;
    Refresh(view);
    const int fills = view.FillCount();

    view.OnDueByChosen(Day(2024, 9, 10) + 0.75);
    QCOMPARE(view.FillCount(), fills);
    QCOMPARE(State().GetViewTabDueBy(), Day(2024, 9, 10));

    view.OnDueByChosen(Day(2024, 9, 11) + 0.5);
    QCOMPARE(view.FillCount(), fills + 1);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetViewTabDueBy(), Day(2024, 9, 11));

    // Through the picker itself.
    view.DueByPicker()->setDate(QDate(2024, 9, 15));
    QCOMPARE(State().GetViewTabDueBy(), Day(2024, 9, 15));
    QCOMPARE(view.FillCount(), fills + 2);
}

void TestMainView::typeChosen()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentCourseID(m_biology);
    State().SetCurrentTabID(CViewTabTable::CwTypeTab);
    State().SetViewTabCwType(m_labs);
    State().SetShowDone(1);
    CMainView view;
    Refresh(view);
    QCOMPARE(view.TypeFilter()->count(), 2);
    QCOMPARE(view.TypeFilter()->currentText(), u"Labs"_s);
    QCOMPARE(view.ListModel()->rowCount(), 2);

    const int fills = view.FillCount();
    view.TypeFilter()->setCurrentIndex(view.TypeFilter()->findData(m_quizzes));
    QCOMPARE(view.FillCount(), fills + 1);
    QCOMPARE(view.ListModel()->rowCount(), 1);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetViewTabCwType(), m_quizzes);

    // The same type again changes nothing.
    view.OnTypeChosen(view.TypeFilter()->currentIndex());
    QCOMPARE(view.FillCount(), fills + 1);
}

void TestMainView::courseChosen()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentTabID(CViewTabTable::CwTypeTab);
    CMainView view;
    Refresh(view);
    view.show();
    QVERIFY(!view.TypeFilter()->isVisible());
    QCOMPARE(view.GradeBar()->text(), u"GPA:"_s);
    QSignalSpy changed(&view, &CMainView::CurrentCourseChanged);

    view.CourseSelector()->setCurrentIndex(view.CourseSelector()->findData(m_history));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(view.GradeBar()->text(), u"Grade: --"_s);
    QVERIFY(view.TypeFilter()->isVisible());
    QCOMPARE(view.TypeFilter()->currentText(), u"Essays"_s);
    QCOMPARE(view.ListModel()->rowCount(), 1);
    QCOMPARE(view.ListModel()->Rows()[0].text, u"Essay 1"_s);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentCourseID(), m_history);
    QCOMPARE(State().GetViewTabCwType(), m_essays);

    // The course already current: nothing happens.
    const int fills = view.FillCount();
    view.OnCourseChosen(view.CourseSelector()->currentIndex());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(view.FillCount(), fills);
}

void TestMainView::allCoursesOnTypeTabHidesFilter()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentCourseID(m_biology);
    State().SetCurrentTabID(CViewTabTable::CwTypeTab);
    State().SetViewTabCwType(m_quizzes);
    CMainView view;
    Refresh(view);
    view.show();
    QVERIFY(view.TypeFilter()->isVisible());

    view.CourseSelector()->setCurrentIndex(0);
    QCOMPARE(State().GetCurrentCourseID(), AllCoursesID);
    QVERIFY(!view.TypeFilter()->isVisible());
    // Every type of every course, under headers.
    QCOMPARE(view.ListModel()->rowCount(), 5);
}

void TestMainView::courseChosenAgainStartsOnItsFirstType()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentCourseID(m_biology);
    State().SetCurrentTabID(CViewTabTable::CwTypeTab);
    State().SetViewTabCwType(m_quizzes);
    CMainFrame frame;
    frame.show();
    CMainView* view = frame.View();
    QCOMPARE(view->TypeFilter()->currentText(), u"Quizzes"_s);

    view->CourseSelector()->setCurrentIndex(0);
    QCOMPARE(State().GetViewTabCwType(), m_quizzes);
    view->CourseSelector()->setCurrentIndex(view->CourseSelector()->findData(m_biology));
    QCOMPARE(view->TypeFilter()->currentText(), u"Labs"_s);
    QCOMPARE(State().GetViewTabCwType(), m_labs);
    QCOMPARE(view->ListModel()->rowCount(), 1);
    QCOMPARE(view->ListModel()->Rows()[0].text, u"Lab 1"_s);
}

void TestMainView::showDoneToggles()
{
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    State().SetCurrentCourseID(m_biology);
    CMainView view;
    Refresh(view);
    view.show();
    QVERIFY(!view.ShowDoneBox()->isChecked());
    QCOMPARE(view.ListModel()->rowCount(), 2);

    QTest::mouseClick(view.ShowDoneBox(), Qt::LeftButton);
    QCOMPARE(view.ListModel()->rowCount(), 3);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetShowDone(), 1);

    view.ToggleShowDone();
    QVERIFY(!view.ShowDoneBox()->isChecked());
    QCOMPARE(view.ListModel()->rowCount(), 2);
}

void TestMainView::restartKeepsTheFilters_data()
{
    QTest::addColumn<uint>("tab");
    QTest::newRow("type tab") << 1u;
    QTest::newRow("due by") << 4u;
}

void TestMainView::restartKeepsTheFilters()
{
    QFETCH(uint, tab);
    AddCourses(m_biology, m_history, m_labs, m_quizzes, m_essays);
    {
        CMainFrame frame;
        frame.show();
        CMainView* view = frame.View();
        view->CourseSelector()->setCurrentIndex(view->CourseSelector()->findData(m_biology));
        view->TabBar()->setCurrentIndex(TabIndex(view->TabBar(), tab));
        if (tab == 1)
            view->TypeFilter()->setCurrentIndex(view->TypeFilter()->findData(m_quizzes));
        else
            view->DueByPicker()->setDate(QDate(2024, 9, 21));
    }
    QVERIFY(m_db->Reopen());

    CMainFrame frame;
    frame.show();
    CMainView* view = frame.View();
    QCOMPARE(view->TabBar()->tabData(view->TabBar()->currentIndex()).toUInt(), tab);
    QCOMPARE(view->CourseSelector()->currentData().toUInt(), m_biology);
    if (tab == 1) {
        QVERIFY(view->TypeFilter()->isVisible());
        QCOMPARE(view->TypeFilter()->currentData().toUInt(), m_quizzes);
        QCOMPARE(view->ListModel()->rowCount(), 1);
    } else {
        QVERIFY(view->DueByPicker()->isVisible());
        QCOMPARE(view->DueByPicker()->date(), QDate(2024, 9, 21));
        QCOMPARE(view->ListModel()->rowCount(), 2);
    }
}

QTEST_MAIN(TestMainView)
#include "tst_mainview.moc"
