// The filters of the main view: tabs, course selector, type filter, due-by
// picker and Show Done, each written to the state at once and read back by
// the next view.
// Checked against: the hidden-tab fallback not calling OnTabChosen (the list
// stays on Past Due), OnCourseChosen not resetting the type to the first one.
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "store/Clock.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
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

void ChooseTab(QTabBar* tabs, uint id)
{
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabData(i).toUInt() == id)
            tabs->setCurrentIndex(i);
}

QStringList TabTexts(const QTabBar* tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts;
}

double Day(int month, int day)
{
    return BrindleDate::FromDate(QDate(2024, month, day));
}

} // namespace

class TestMainView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void hiddenCurrentTabSelectsNoFilter();
    void emptySemesterDisablesSelector();
    void tabChosen_data();
    void tabChosen();
    void dueByAndTypeChosen();
    void courseChosen();
    void showDoneToggles();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_biology = 0, m_history = 0, m_labs = 0, m_quizzes = 0, m_essays = 0;
};

// Two courses; Biology with two types and three items (one done), History
// with one. Now is Saturday 7 September 2024.
void TestMainView::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
    m_biology = Records::Course(u"Biology"_s);
    m_history = Records::Course(u"History"_s);
    m_labs = Records::CwType(m_biology, u"Labs"_s);
    m_quizzes = Records::CwType(m_biology, u"Quizzes"_s);
    m_essays = Records::CwType(m_history, u"Essays"_s);
    Records::Coursework(m_biology, m_labs, u"Lab 1"_s, -1, -1, Day(9, 2));
    Records::Coursework(m_biology, m_quizzes, u"Quiz 1"_s, -1, -1, Day(9, 9));
    Records::Coursework(m_biology, m_labs, u"Lab 2"_s, -1, -1, Day(9, 20), 100);
    Records::Coursework(m_history, m_essays, u"Essay 1"_s, -1, -1, Day(9, 12));
    // Done work hidden, as after the user unticks "Show Done" (a new
    // database starts with it ticked).
    State().SetShowDone(0);
    State().UpdateRecord();
}

void TestMainView::cleanup()
{
    BrindleClock::SetNow({});
    m_db.reset();
}

void TestMainView::hiddenCurrentTabSelectsNoFilter()
{
    State().SetCurrentTabID(CViewTabTable::PastDueTab);
    {
        CMainView view;
        Refresh(view);
        QCOMPARE(TabTexts(view.TabBar()), (QStringList{u"No Filter"_s, u"Cw Type"_s, u"Past Due"_s,
                                                       u"Course Week"_s, u"Due By"_s}));
        QCOMPARE(view.ListModel()->rowCount(), 2); // Biology and its Lab 1
    }
    QVERIFY(CDataTable::GetMount()->Execute("UPDATE ViewTab SET IsVisible = 0 WHERE "
                                            "ViewTabID = 2"));
    CMainView view;
    Refresh(view);
    QCOMPARE(TabTexts(view.TabBar()),
             (QStringList{u"No Filter"_s, u"Cw Type"_s, u"Course Week"_s, u"Due By"_s}));
    QCOMPARE(view.TabBar()->currentIndex(), 0);
    // The list is "No Filter"'s too: both courses, the open items.
    QCOMPARE(view.ListModel()->rowCount(), 5);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
}

void TestMainView::emptySemesterDisablesSelector()
{
    QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM CourseOrder"));
    CMainView view;
    Refresh(view);
    QVERIFY(!view.CourseSelector()->isEnabled());
    QCOMPARE(view.CourseSelector()->currentText(), u"No Courses"_s);
    QCOMPARE(view.ListModel()->rowCount(), 0);
}

void TestMainView::tabChosen_data()
{
    QTest::addColumn<bool>("oneCourse");
    QTest::addColumn<uint>("tab");
    QTest::addColumn<bool>("typeShown");
    QTest::addColumn<bool>("dateShown");
    QTest::addColumn<int>("rows");

    // Biology's open items are due on the 2nd and the 9th; due by is the 10th.
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
    State().SetCurrentCourseID(oneCourse ? m_biology : AllCoursesID);
    State().SetViewTabDueBy(Day(9, 10));
    State().SetCurrentTabID(tab == 0 ? CViewTabTable::PastDueTab : CViewTabTable::NoFilter);
    CMainView view;
    Refresh(view);
    view.show();

    ChooseTab(view.TabBar(), tab);
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

// The same day or type again fills nothing; the due-by day is stored without its time.
void TestMainView::dueByAndTypeChosen()
{
    State().SetCurrentCourseID(m_biology);
    State().SetCurrentTabID(CViewTabTable::DueByTab);
    State().SetViewTabDueBy(Day(9, 10));
    State().SetViewTabCwType(m_labs);
    State().SetShowDone(1);
    CMainView view;
    Refresh(view);
    const int fills = view.FillCount();
    view.OnDueByChosen(Day(9, 10) + 0.75);
    QCOMPARE(view.FillCount(), fills);
    view.OnDueByChosen(Day(9, 11) + 0.5);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetViewTabDueBy(), Day(9, 11));
    view.DueByPicker()->setDate(QDate(2024, 9, 15)); // through the picker itself
    QCOMPARE(view.FillCount(), fills + 2);
    QCOMPARE(State().GetViewTabDueBy(), Day(9, 15));

    ChooseTab(view.TabBar(), 1);
    QCOMPARE(view.TypeFilter()->currentText(), u"Labs"_s);
    QCOMPARE(view.ListModel()->rowCount(), 2);
    view.TypeFilter()->setCurrentIndex(view.TypeFilter()->findData(m_quizzes));
    QCOMPARE(view.FillCount(), fills + 4);
    QCOMPARE(view.ListModel()->rowCount(), 1);
    view.OnTypeChosen(view.TypeFilter()->currentIndex());
    QCOMPARE(view.FillCount(), fills + 4);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetViewTabCwType(), m_quizzes);
}

void TestMainView::courseChosen()
{
    State().SetCurrentCourseID(m_biology);
    State().SetCurrentTabID(CViewTabTable::CwTypeTab);
    State().SetViewTabCwType(m_quizzes);
    CMainFrame frame;
    frame.show();
    CMainView* view = frame.View();
    QComboBox* courses = view->CourseSelector();
    QCOMPARE(view->TypeFilter()->currentText(), u"Quizzes"_s);
    QSignalSpy changed(view, &CMainView::CurrentCourseChanged);

    // All courses: no type filter, every type under headers, the type kept.
    courses->setCurrentIndex(0);
    QVERIFY(!view->TypeFilter()->isVisible());
    QCOMPARE(view->ListModel()->rowCount(), 5);
    QCOMPARE(view->GradeBar()->text(), u"GPA:"_s);
    QCOMPARE(State().GetViewTabCwType(), m_quizzes);

    courses->setCurrentIndex(courses->findData(m_history));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(view->GradeBar()->text(), u"Grade: --"_s);
    QVERIFY(view->TypeFilter()->isVisible());
    QCOMPARE(view->TypeFilter()->currentText(), u"Essays"_s);
    QCOMPARE(view->ListModel()->rowCount(), 1);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentCourseID(), m_history);
    QCOMPARE(State().GetViewTabCwType(), m_essays);
    const int fills = view->FillCount();
    view->OnCourseChosen(courses->currentIndex());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(view->FillCount(), fills);

    // A course chosen again starts on its first type.
    courses->setCurrentIndex(courses->findData(m_biology));
    QCOMPARE(view->TypeFilter()->currentText(), u"Labs"_s);
    QCOMPARE(State().GetViewTabCwType(), m_labs);
    QCOMPARE(view->ListModel()->Rows().at(0).text, u"Lab 1"_s);
}

void TestMainView::showDoneToggles()
{
    State().SetCurrentCourseID(m_biology);
    CMainView view;
    Refresh(view);
    view.show();
    QCOMPARE(view.ListModel()->rowCount(), 2);
    QTest::mouseClick(view.ShowDoneBox(), Qt::LeftButton);
    QCOMPARE(view.ListModel()->rowCount(), 3);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetShowDone(), 1);
    view.ToggleShowDone();
    QVERIFY(!view.ShowDoneBox()->isChecked());
    QCOMPARE(view.ListModel()->rowCount(), 2);
}

QTEST_MAIN(TestMainView)
#include "tst_mainview.moc"
