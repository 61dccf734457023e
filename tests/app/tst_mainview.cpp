// The main view: its filters (tabs, course selector, type filter, due-by
// picker, Show Done), each written to the state at once and read back by the
// next view; and what the user does on the rows: delete with its links, the
// context menu, opening a row, and the note on predicted scores; the banners
// with their menu.
// Checked against: the hidden-tab fallback not calling OnTabChosen (the list
// stays on Past Due), OnCourseChosen not resetting the type to the first one,
// DeleteCoursework deleting every item's links (its seek dropped).
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/CourseworkListView.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "grading/GradeCalculation.h"
#include "store/Clock.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

CAppStateTable& State()
{
    return CAppStateTable::Instance();
}

// A view as the frame builds it, shown at a usable size.
std::unique_ptr<CMainView> ShownView()
{
    auto view = std::make_unique<CMainView>();
    view->LayoutView();
    view->RebuildTabs();
    view->RebuildCourseSelector();
    view->RebuildTypeFilter();
    view->RefreshList();
    view->RefreshGradeBar();
    view->resize(view->fontMetrics().height() * 40, view->fontMetrics().height() * 30);
    view->show();
    return view;
}

void ChooseTab(QTabBar* tabs, uint id)
{
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->tabData(i).toUInt() == id)
            tabs->setCurrentIndex(i);
}

QString TabTexts(const QTabBar* tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts.join(u", "_s);
}

double Day(int month, int day)
{
    return BrindleDate::FromDate(QDate(2024, month, day));
}

QRect RowRect(const CMainView& view, int row)
{
    return view.List()->visualRect(view.ListModel()->index(row));
}

} // namespace

class TestMainView : public DatabaseTest
{
    Q_OBJECT

    quint32 m_biology = 0, m_history = 0, m_labs = 0, m_quizzes = 0, m_essays = 0;
    quint32 m_lab1 = 0, m_quiz1 = 0;

private slots:
    // Two courses; Biology graded by points (Lab 1 8/10, Quiz 1 2/10: 50 %)
    // with two types and three items (Lab 2 done), History with one. Quiz 1
    // has two links to exported items, Lab 1 one. Now is Saturday 7 September
    // 2024. The list of all courses reads: #Biology, Lab 1, Quiz 1, #History,
    // Essay 1.
    void init()
    {
        DatabaseTest::init();
        BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
        // A new database lists done work.
        QCOMPARE(State().GetShowDone(), 1);
        m_biology = Records::Course(u"Biology"_s, 0, 0.5);
        m_history = Records::Course(u"History"_s);
        Records::Policy(m_biology, CGradingPolicyTable::WeightNone);
        for (quint16 grade = 0; grade < 4; ++grade)
            Records::MinimumPercent(m_biology, grade, 90.0 - 10.0 * grade);
        m_labs = Records::CwType(m_biology, u"Labs"_s);
        m_quizzes = Records::CwType(m_biology, u"Quizzes"_s);
        m_essays = Records::CwType(m_history, u"Essays"_s);
        m_lab1 = Records::Coursework(m_biology, m_labs, u"Lab 1"_s, 8, 10, Day(9, 2));
        m_quiz1 = Records::Coursework(m_biology, m_quizzes, u"Quiz 1"_s, 2, 10, Day(9, 9));
        Records::Coursework(m_biology, m_labs, u"Lab 2"_s, -1, -1, Day(9, 20), 100);
        Records::Coursework(m_history, m_essays, u"Essay 1"_s, -1, -1, Day(9, 12));
        const QByteArray quiz = QByteArray::number(m_quiz1);
        QVERIFY(CDataTable::GetMount()->Execute(
            "INSERT INTO OutlookLink (BrindleItemID, OutlookItemID, ItemType) VALUES (" + quiz +
            ", 501, 3), (" + quiz + ", 502, 3), (" + QByteArray::number(m_lab1) + ", 503, 3)"));
        // Done work hidden, as after the user unticks "Show Done".
        State().SetShowDone(0);
        QVERIFY(State().UpdateRecord());
    }
    void cleanup()
    {
        DatabaseTest::cleanup();
        BrindleClock::SetNow({});
    }

    void hiddenTabAndEmptySemester()
    {
        State().SetCurrentTabID(CViewTabTable::PastDueTab);
        auto view = ShownView();
        QCOMPARE(TabTexts(view->TabBar()), u"No Filter, Cw Type, Past Due, Course Week, Due By"_s);
        QCOMPARE(view->ListModel()->rowCount(), 2); // Biology and its Lab 1
        QVERIFY(CDataTable::GetMount()->Execute(
            "UPDATE ViewTab SET IsVisible = 0 WHERE ViewTabID = 2"));
        view = ShownView();
        QCOMPARE(TabTexts(view->TabBar()), u"No Filter, Cw Type, Course Week, Due By"_s);
        QCOMPARE(view->TabBar()->currentIndex(), 0);
        // The list is "No Filter"'s too: both courses, the open items.
        QCOMPARE(view->ListModel()->rowCount(), 5);
        QVERIFY(m_db->Reopen());
        QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);

        // An empty semester: nothing to choose, nothing listed.
        QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM CourseOrder"));
        view = ShownView();
        QVERIFY(!view->CourseSelector()->isEnabled());
        QCOMPARE(view->CourseSelector()->currentText(), u"No Courses"_s);
        QCOMPARE(view->ListModel()->rowCount(), 0);
    }

    void tabChosen_data()
    {
        QTest::addColumn<bool>("oneCourse");
        QTest::addColumn<uint>("tab");
        QTest::addColumn<bool>("typeShown");
        QTest::addColumn<bool>("dateShown");
        QTest::addColumn<int>("rows");
        // Biology's open items are due on the 2nd and the 9th; due by is the 10th.
        QTest::newRow("type tab, one course") << true << 1u << true << false << 1;
        QTest::newRow("type tab, all courses, with headers") << false << 1u << false << false << 5;
        QTest::newRow("due by") << true << 4u << false << true << 2;
        QTest::newRow("no filter") << true << 0u << false << false << 2;
    }
    void tabChosen()
    {
        QFETCH(bool, oneCourse);
        QFETCH(uint, tab);
        QFETCH(bool, typeShown);
        QFETCH(bool, dateShown);
        QFETCH(int, rows);
        State().SetCurrentCourseID(oneCourse ? m_biology : AllCoursesID);
        State().SetViewTabDueBy(Day(9, 10));
        State().SetCurrentTabID(tab == 0 ? CViewTabTable::PastDueTab : CViewTabTable::NoFilter);
        const auto view = ShownView();
        ChooseTab(view->TabBar(), tab);
        QCOMPARE(view->TypeFilter()->isVisible(), typeShown);
        QCOMPARE(view->DueByPicker()->isVisible(), dateShown);
        if (dateShown)
            QCOMPARE(view->DueByPicker()->date(), QDate(2024, 9, 10));
        QCOMPARE(view->ListModel()->rowCount(), rows);
        // Written at once: a restart reads it back.
        QVERIFY(m_db->Reopen());
        QCOMPARE(static_cast<uint>(State().GetCurrentTabID()), tab);
        if (tab == 1)
            QCOMPARE(State().GetViewTabCwType(), oneCourse ? m_labs : 0u);
    }

    // One walk through the filters of a shown main window: each choice is
    // written at once (a restart reads it back), the same day, type or course
    // again fills nothing, the due-by day is stored without its time, and a
    // course chosen again starts on its first type.
    void filtersAreWrittenAtOnce()
    {
        State().SetCurrentCourseID(m_biology);
        State().SetCurrentTabID(CViewTabTable::CwTypeTab);
        State().SetViewTabDueBy(Day(9, 10));
        State().SetViewTabCwType(m_quizzes);
        CMainFrame frame;
        frame.show();
        CMainView* view = frame.View();
        QCOMPARE(view->TypeFilter()->currentText(), u"Quizzes"_s);
        const int fills = view->FillCount();
        view->TypeFilter()->setCurrentIndex(view->TypeFilter()->findData(m_labs));
        QCOMPARE(view->ListModel()->Rows().at(0).text, u"Lab 1"_s);
        view->OnTypeChosen(view->TypeFilter()->currentIndex());
        QCOMPARE(view->FillCount(), fills + 1);
        QVERIFY(m_db->Reopen());
        QCOMPARE(State().GetViewTabCwType(), m_labs);

        ChooseTab(view->TabBar(), 4);
        view->OnDueByChosen(Day(9, 10) + 0.75);
        QCOMPARE(view->FillCount(), fills + 2);
        view->OnDueByChosen(Day(9, 11) + 0.5);
        QVERIFY(m_db->Reopen());
        QCOMPARE(State().GetViewTabDueBy(), Day(9, 11));
        view->DueByPicker()->setDate(QDate(2024, 9, 15)); // through the picker itself
        QCOMPARE(view->FillCount(), fills + 4);
        QCOMPARE(State().GetViewTabDueBy(), Day(9, 15));
        ChooseTab(view->TabBar(), 1);

        // All courses: no type filter, every type under headers, the type
        // kept; Biology's 50 % is below the scale.
        QSignalSpy changed(view, &CMainView::CurrentCourseChanged);
        QComboBox* courses = view->CourseSelector();
        courses->setCurrentIndex(0);
        QVERIFY(!view->TypeFilter()->isVisible());
        QCOMPARE(view->ListModel()->rowCount(), 5);
        QCOMPARE(view->GradeBar()->text(), u"GPA: 0.00"_s);
        QCOMPARE(State().GetViewTabCwType(), m_labs);

        courses->setCurrentIndex(courses->findData(m_history));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(view->GradeBar()->text(), u"Grade: --"_s);
        QVERIFY(view->TypeFilter()->isVisible());
        QCOMPARE(view->TypeFilter()->currentText(), u"Essays"_s);
        QCOMPARE(view->ListModel()->rowCount(), 1);
        QVERIFY(m_db->Reopen());
        QCOMPARE(State().GetCurrentCourseID(), m_history);
        QCOMPARE(State().GetViewTabCwType(), m_essays);
        const int fillsNow = view->FillCount();
        view->OnCourseChosen(courses->currentIndex());
        QCOMPARE(changed.count(), 2);
        QCOMPARE(view->FillCount(), fillsNow);

        courses->setCurrentIndex(courses->findData(m_biology));
        QCOMPARE(view->TypeFilter()->currentText(), u"Labs"_s);
        QCOMPARE(State().GetViewTabCwType(), m_labs);
        QCOMPARE(view->ListModel()->rowCount(), 1); // Lab 1; Lab 2 is done

        QTest::mouseClick(view->ShowDoneBox(), Qt::LeftButton);
        QCOMPARE(view->ListModel()->rowCount(), 2);
        QVERIFY(m_db->Reopen());
        QCOMPARE(State().GetShowDone(), 1);
        view->ToggleShowDone();
        QVERIFY(!view->ShowDoneBox()->isChecked());
        QCOMPARE(view->ListModel()->rowCount(), 1);
    }

    void deleteKeyAsksFirst_data()
    {
        QTest::addColumn<bool>("agree");
        QTest::addColumn<bool>("vanished"); // the record went away behind the list
        QTest::newRow("user says no") << false << false;
        QTest::newRow("user agrees") << true << false;
        QTest::newRow("row of a vanished record") << true << true;
    }
    // Gone with its links only; the grade recomputed from what is left.
    void deleteKeyAsksFirst()
    {
        QFETCH(bool, agree);
        QFETCH(bool, vanished);
        State().SetCurrentCourseID(m_biology);
        const auto view = ShownView();
        if (vanished)
            QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM Coursework WHERE id = " +
                                                    QByteArray::number(m_quiz1)));
        view->List()->setCurrentIndex(view->ListModel()->index(1));
        MessageAnswers answers({agree ? QMessageBox::Yes : QMessageBox::No});
        QTest::keyClick(view->List(), Qt::Key_Delete);
        QCOMPARE(answers.Texts(),
                 QStringList{u"Are you sure you want to delete this coursework?"_s});
        const bool deleted = agree && !vanished;
        QCOMPARE(Records::Count("Coursework"), agree ? 3 : 4);
        QCOMPARE(Records::Count("OutlookLink"), deleted ? 1 : 3); // Lab 1's stays
        QCOMPARE(GetCourseGrade(m_biology), deleted ? 0.8 : 0.5); // only 8/10 is left
        if (deleted) {
            QCOMPARE(view->GradeBar()->text(), u"Grade: 80% B"_s);
            QCOMPARE(view->ListModel()->rowCount(), 1);
            QCOMPARE(view->ListModel()->Rows()[0].courseworkId, m_lab1);
        }
    }

    // A double click or Return opens an item, not a header; no menu on a
    // course header or below the rows; a right click on an item offers its
    // deletion.
    void openingAndContextMenu()
    {
        const auto view = ShownView();
        QSignalSpy opened(view.get(), &CMainView::CourseworkOpened);
        QWidget* viewport = view->List()->viewport();
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, RowRect(*view, 0).center());
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, RowRect(*view, 2).center());
        view->List()->setCurrentIndex(view->ListModel()->index(1));
        QTest::keyClick(view->List(), Qt::Key_Return);
        QCOMPARE(opened.count(), 2);
        QCOMPARE(opened.at(0).at(0).toUInt(), m_quiz1);
        QCOMPARE(opened.at(1).at(0).toUInt(), m_lab1);

        auto* list = qobject_cast<CCourseworkListView*>(view->List());
        QVERIFY(view->ListModel()->Rows()[0].isHeader);
        QCOMPARE(list->OpenContextMenu(RowRect(*view, 0).center()), nullptr);
        const QRect below = RowRect(*view, view->ListModel()->rowCount() - 1);
        QCOMPARE(list->OpenContextMenu(QPoint(below.center().x(), below.bottom() + 40)), nullptr);

        const QPoint quiz = RowRect(*view, 2).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, quiz,
                                list->viewport()->mapToGlobal(quiz));
        QApplication::sendEvent(list->viewport(), &event);
        auto* menu = list->findChild<QMenu*>(u"courseworkMenu"_s);
        QVERIFY(menu);
        QCOMPARE(menu->actions().size(), 1);
        QCOMPARE(menu->actions().constFirst()->text(), u"Delete Coursework"_s);
        MessageAnswers answers({QMessageBox::Yes});
        menu->actions().constFirst()->trigger();
        QCOMPARE(Records::Count("Coursework"), 3);
        QCOMPARE(view->ListModel()->Rows().at(1).courseworkId, m_lab1);
        menu->close();
    }

    void predictedScoreNote_data()
    {
        QTest::addColumn<bool>("overridden");
        QTest::addColumn<bool>("onScore"); // in the score's zone at the right edge
        QTest::addColumn<bool>("hold");    // a press and hold instead of a click
        QTest::addColumn<bool>("noted");
        QTest::newRow("click on a predicted score") << true << true << false << true;
        QTest::newRow("click left of the score") << true << false << false << false;
        QTest::newRow("click on a recorded score") << false << true << false << false;
        QTest::newRow("held on a predicted score") << true << true << true << true;
        QTest::newRow("held left of the score") << true << false << true << false;
    }
    // A held press opens the row's menu, except on a predicted score, which
    // shows only its note; a click goes on to the list as usual.
    void predictedScoreNote()
    {
        QFETCH(bool, overridden);
        QFETCH(bool, onScore);
        QFETCH(bool, hold);
        QFETCH(bool, noted);
        CPredictionStore::Instance().SetActive(true);
        if (overridden)
            CPredictionStore::Instance().SetOverride(
                m_lab1, EffectiveScore{10, 10, EffectiveScore::Overridden});
        const auto view = ShownView();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto* list = qobject_cast<CCourseworkListView*>(view->List());
        const QRect row = RowRect(*view, 1);
        const int zone = list->PredictionZoneWidth();
        const QPoint point(onScore ? row.right() - zone / 2 : row.right() - zone - 10,
                           row.center().y());
        MessageAnswers answers;
        if (hold) {
            // The box takes the release; the held press then finishes as a hold.
            QTest::mousePress(list->viewport(), Qt::LeftButton, {}, point);
            QMenu* menu = list->OnPressAndHold(point);
            QCOMPARE(menu != nullptr, !noted);
            if (menu)
                menu->close();
        } else {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, point);
            QCOMPARE(list->currentIndex().row(), 1);
        }
        QCOMPARE(answers.Texts(),
                 noted ? QStringList{u"Unofficial score from Grade Prediction Mode"_s}
                       : QStringList{});
    }

    void banner_data()
    {
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("exit");
        QTest::newRow("neither") << false << false << QString() << QString();
        QTest::newRow("prediction")
            << true << false << u"Grade Prediction Mode"_s << u"Exit Grade Prediction Mode"_s;
        QTest::newRow("archived") << false << true << u"Archived Semester"_s
                                  << u"Exit Archived Semester"_s;
        QTest::newRow("prediction wins")
            << true << true << u"Grade Prediction Mode"_s << u"Exit Grade Prediction Mode"_s;
    }
    void banner()
    {
        QFETCH(bool, predicting);
        QFETCH(bool, archived);
        QFETCH(QString, text);
        QFETCH(QString, exit);
        CPredictionStore::Instance().SetActive(predicting);
        CAppStateTable::Instance().SetCurrentSemesterID(
            archived ? Records::Semester(u"Spring 2024"_s) : WorkingSemesterID);
        const auto view = ShownView();
        QCOMPARE(view->Banner()->isVisible(), !text.isEmpty());
        if (text.isEmpty())
            return;
        QCOMPARE(view->Banner()->text(), text);

        QSignalSpy command(view.get(), &CMainView::BannerCommand);
        QMenu* menu = view->OpenBannerMenu(QPoint(4, 4));
        QCOMPARE(menu->actions().size(), 1);
        QCOMPARE(menu->actions().constFirst()->text(), exit);
        menu->actions().constFirst()->trigger();
        QCOMPARE(command.count(), 1);
        menu->close();
    }
};

QTEST_MAIN(TestMainView)
#include "tst_mainview.moc"
