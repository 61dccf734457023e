// What the user does on the rows of the main list: delete with its links,
// the context menu, opening a row, and the note on predicted scores.
#include "BrindleData.h"
#include "app/Clock.h"
#include "app/CourseworkListModel.h"
#include "app/CourseworkListView.h"
#include "app/MainView.h"
#include "grading/PredictionStore.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

void Link(quint32 itemId, quint32 outlookId)
{
    COutlookTable links;
    links.Open();
    links.NewRecord(0);
    links.SetBrindleItemID(itemId);
    links.SetOutlookItemID(outlookId);
    links.SetItemType(COutlookTable::olTaskItem);
    links.UpdateRecord();
}

int LinksOf(quint32 itemId)
{
    COutlookTable links;
    links.Open(1);
    const CCeDBProp key(itemId);
    links.SetSeekValue(&key, CDataTable::SeekValueEqual);
    int count = 0;
    for (int ok = links.MoveFirst(1); ok; ok = links.MoveNext(1))
        ++count;
    return count;
}

bool Exists(quint32 courseworkId)
{
    CCourseworkTable table;
    table.Open();
    return table.MoveToRecord(courseworkId) != 0;
}

double StoredGrade(quint32 courseId)
{
    CCourseTable table;
    table.Open();
    table.MoveToRecord(courseId);
    return table.GetCurrentGrade();
}

double Day(int year, int month, int day)
{
    return BrindleDate::FromDate(QDate(year, month, day));
}

} // namespace

class TestMainViewList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void deleteAsksFirst();
    void deleteRemovesLinksAndRecomputes();
    void deleteOfAVanishedRowDoesNothing();
    void contextMenuOnCourseworkRowsOnly();
    void contextMenuDeletes();
    void openingARow();
    void predictedScoreNote_data();
    void predictedScoreNote();

private:
    QRect RowRect(int row) const;

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<CMainView> m_view;
    quint32 m_course = 0;
    quint32 m_good = 0;
    quint32 m_bad = 0;
};

void TestMainViewList::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
    m_course = Records::Course(u"Biology"_s, 0, 0.5);
    Records::Policy(m_course, CGradingPolicyTable::WeightNone);
    for (quint16 grade = 0; grade < 4; ++grade)
        Records::MinimumPercent(m_course, grade, 90.0 - 10.0 * grade);
    const quint32 labs = Records::CwType(m_course, u"Labs"_s);
    m_good = Records::Coursework(m_course, labs, u"Good lab"_s, 8, 10, Day(2024, 9, 2));
    m_bad = Records::Coursework(m_course, labs, u"Bad lab"_s, 2, 10, Day(2024, 9, 3));
    Link(m_bad, 501);
    Link(m_bad, 502);
    Link(m_good, 503);

    m_view = std::make_unique<CMainView>();
    m_view->resize(m_view->fontMetrics().height() * 40, m_view->fontMetrics().height() * 30);
    m_view->RebuildTabs();
    m_view->RebuildCourseSelector();
    m_view->RefreshList();
    m_view->RefreshGradeBar();
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestMainViewList::cleanup()
{
    m_view.reset();
    CPredictionStore::Instance().SetActive(false);
    BrindleClock::SetNow({});
    m_db.reset();
}

QRect TestMainViewList::RowRect(int row) const
{
    return m_view->List()->visualRect(m_view->ListModel()->index(row));
}

void TestMainViewList::deleteAsksFirst()
{
    MessageAnswers answers({QMessageBox::No});
    m_view->DeleteCoursework(m_bad);
    QCOMPARE(answers.Texts(), QStringList{u"Are you sure you want to delete this coursework?"_s});
    QVERIFY(Exists(m_bad));
    QCOMPARE(LinksOf(m_bad), 2);
}

void TestMainViewList::deleteRemovesLinksAndRecomputes()
{
    CAppStateTable::Instance().SetCurrentCourseID(m_course);
    m_view->RefreshList();
    m_view->RefreshGradeBar();
    QCOMPARE(m_view->ListModel()->rowCount(), 2);

    MessageAnswers answers({QMessageBox::Yes});
    m_view->DeleteCoursework(m_bad);
    QVERIFY(!Exists(m_bad));
    QCOMPARE(LinksOf(m_bad), 0);
    QCOMPARE(LinksOf(m_good), 1);
    // Only 8/10 is left.
    QCOMPARE(StoredGrade(m_course), 0.8);
    QCOMPARE(m_view->GradeBar()->text(), u"Grade: 80% B"_s);
    QCOMPARE(m_view->ListModel()->rowCount(), 1);
    QCOMPARE(m_view->ListModel()->Rows()[0].courseworkId, m_good);
}

void TestMainViewList::deleteOfAVanishedRowDoesNothing()
{
    {
        CCourseworkTable table;
        table.Open();
        table.MoveToRecord(m_bad);
        table.DeleteRecord(0);
    }
    MessageAnswers answers({QMessageBox::Yes});
    m_view->DeleteCoursework(m_bad);
    QCOMPARE(answers.Texts().size(), 1);
    // Nothing else went: its links stay, the grade was not recomputed.
    QCOMPARE(LinksOf(m_bad), 2);
    QCOMPARE(StoredGrade(m_course), 0.5);
}

void TestMainViewList::contextMenuOnCourseworkRowsOnly()
{
    auto* list = qobject_cast<CCourseworkListView*>(m_view->List());
    QVERIFY(list);
    // Row 0 is the course's header.
    QVERIFY(m_view->ListModel()->Rows()[0].isHeader);
    QCOMPARE(list->OpenContextMenu(RowRect(0).center()), nullptr);
    const QRect below = RowRect(m_view->ListModel()->rowCount() - 1);
    QCOMPARE(list->OpenContextMenu(QPoint(below.center().x(), below.bottom() + 40)), nullptr);

    QMenu* menu = list->OpenContextMenu(RowRect(1).center());
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().constFirst()->text(), u"Delete Coursework"_s);
    menu->close();
}

void TestMainViewList::contextMenuDeletes()
{
    auto* list = qobject_cast<CCourseworkListView*>(m_view->List());
    // A right click on the second item (the later one, "Bad lab").
    QContextMenuEvent event(QContextMenuEvent::Mouse, RowRect(2).center(),
                            list->viewport()->mapToGlobal(RowRect(2).center()));
    QApplication::sendEvent(list->viewport(), &event);
    auto* menu = list->findChild<QMenu*>(u"courseworkMenu"_s);
    QVERIFY(menu);
    MessageAnswers answers({QMessageBox::Yes});
    menu->actions().constFirst()->trigger();
    QVERIFY(!Exists(m_bad));
    QVERIFY(Exists(m_good));
    menu->close();
}

void TestMainViewList::openingARow()
{
    QSignalSpy opened(m_view.get(), &CMainView::CourseworkOpened);
    QWidget* viewport = m_view->List()->viewport();
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, RowRect(0).center());
    QCOMPARE(opened.count(), 0);
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, RowRect(2).center());
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.at(0).at(0).toUInt(), m_bad);

    m_view->List()->setCurrentIndex(m_view->ListModel()->index(1));
    QTest::keyClick(m_view->List(), Qt::Key_Return);
    QCOMPARE(opened.count(), 2);
    QCOMPARE(opened.at(1).at(0).toUInt(), m_good);
}

void TestMainViewList::predictedScoreNote_data()
{
    QTest::addColumn<bool>("predicting");
    QTest::addColumn<bool>("overridden");
    QTest::addColumn<bool>("rightEdge");
    QTest::addColumn<bool>("noted");
    QTest::newRow("predicted score, right edge") << true << true << true << true;
    QTest::newRow("predicted score, left part") << true << true << false << false;
    QTest::newRow("recorded score, right edge") << true << false << true << false;
    QTest::newRow("prediction off") << false << false << true << false;
}

void TestMainViewList::predictedScoreNote()
{
    QFETCH(bool, predicting);
    QFETCH(bool, overridden);
    QFETCH(bool, rightEdge);
    QFETCH(bool, noted);
    CPredictionStore::Instance().SetActive(predicting);
    if (overridden)
        CPredictionStore::Instance().SetOverride(
            m_good, EffectiveScore{10, 10, EffectiveScore::Overridden});
    m_view->RefreshList();

    auto* list = qobject_cast<CCourseworkListView*>(m_view->List());
    const QRect row = RowRect(1);
    const int zone = list->PredictionZoneWidth();
    QVERIFY(zone > 73 / 2);
    const QPoint point(rightEdge ? row.right() - zone / 2 : row.right() - zone - 10,
                       row.center().y());
    MessageAnswers answers;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, point);
    QCOMPARE(answers.Texts(),
             noted ? QStringList{u"Unofficial score from Grade Prediction Mode"_s} : QStringList{});
    // The click goes on to the list as usual.
    QCOMPARE(list->currentIndex().row(), 1);
}

QTEST_MAIN(TestMainViewList)
#include "tst_mainview_list.moc"
