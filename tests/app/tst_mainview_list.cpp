// What the user does on the rows of the main list: delete with its links,
// the context menu, opening a row, and the note on predicted scores.
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/CourseworkListView.h"
#include "app/MainView.h"
#include "grading/PredictionStore.h"
#include "store/Clock.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

qint64 Count(const QByteArray& table, const char* column, quint32 id)
{
    return CDataTable::GetMount()->Scalar("SELECT count(*) FROM " + table + " WHERE " + column +
                                          " = " + QByteArray::number(id));
}

int LinksOf(quint32 itemId)
{
    return int(Count("OutlookLink", "BrindleItemID", itemId));
}

bool Exists(quint32 courseworkId)
{
    return Count("Coursework", "id", courseworkId) == 1;
}

double StoredGrade(quint32 courseId)
{
    CCourseTable table;
    table.Open();
    table.MoveToRecord(courseId);
    return table.GetCurrentGrade();
}

double Day(int day)
{
    return BrindleDate::FromDate(QDate(2024, 9, day));
}

} // namespace

class TestMainViewList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void deleteCoursework_data();
    void deleteCoursework();
    void contextMenuOnCourseworkRowsOnly();
    void openingARow();
    void predictedScoreNote_data();
    void predictedScoreNote();

private:
    QRect RowRect(int row) const;

    std::unique_ptr<TestDatabase> m_db;
    std::unique_ptr<CMainView> m_view;
    quint32 m_course = 0, m_good = 0, m_bad = 0;
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
    m_good = Records::Coursework(m_course, labs, u"Good lab"_s, 8, 10, Day(2));
    m_bad = Records::Coursework(m_course, labs, u"Bad lab"_s, 2, 10, Day(3));
    QVERIFY(CDataTable::GetMount()->Execute(
        "INSERT INTO OutlookLink (BrindleItemID, OutlookItemID, ItemType) VALUES (" +
        QByteArray::number(m_bad) + ", 501, 3), (" + QByteArray::number(m_bad) + ", 502, 3), (" +
        QByteArray::number(m_good) + ", 503, 3)"));

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

void TestMainViewList::deleteCoursework_data()
{
    QTest::addColumn<bool>("agree");
    QTest::addColumn<bool>("vanished"); // the record went away behind the list
    QTest::newRow("user says no") << false << false;
    QTest::newRow("user agrees") << true << false;
    QTest::newRow("row of a vanished record") << true << true;
}

// Gone with its links only; the grade recomputed from what is left.
void TestMainViewList::deleteCoursework()
{
    QFETCH(bool, agree);
    QFETCH(bool, vanished);
    CAppStateTable::Instance().SetCurrentCourseID(m_course);
    m_view->RefreshList();
    if (vanished) {
        CCourseworkTable table;
        table.Open();
        table.MoveToRecord(m_bad);
        table.DeleteRecord(0);
    }
    MessageAnswers answers({agree ? QMessageBox::Yes : QMessageBox::No});
    m_view->DeleteCoursework(m_bad);
    QCOMPARE(answers.Texts(), QStringList{u"Are you sure you want to delete this coursework?"_s});
    const bool deleted = agree && !vanished;
    QCOMPARE(Exists(m_bad), !agree);
    QCOMPARE(LinksOf(m_bad), deleted ? 0 : 2);
    QCOMPARE(LinksOf(m_good), 1);
    QCOMPARE(StoredGrade(m_course), deleted ? 0.8 : 0.5); // only 8/10 is left
    if (deleted) {
        QCOMPARE(m_view->GradeBar()->text(), u"Grade: 80% B"_s);
        QCOMPARE(m_view->ListModel()->rowCount(), 1);
        QCOMPARE(m_view->ListModel()->Rows()[0].courseworkId, m_good);
    }
}

// No menu on a course header or below the rows; a right click on an item
// offers its deletion.
void TestMainViewList::contextMenuOnCourseworkRowsOnly()
{
    auto* list = qobject_cast<CCourseworkListView*>(m_view->List());
    QVERIFY(m_view->ListModel()->Rows()[0].isHeader);
    QCOMPARE(list->OpenContextMenu(RowRect(0).center()), nullptr);
    const QRect below = RowRect(m_view->ListModel()->rowCount() - 1);
    QCOMPARE(list->OpenContextMenu(QPoint(below.center().x(), below.bottom() + 40)), nullptr);

    // Row 2 is the later item, "Bad lab".
    QContextMenuEvent event(QContextMenuEvent::Mouse, RowRect(2).center(),
                            list->viewport()->mapToGlobal(RowRect(2).center()));
    QApplication::sendEvent(list->viewport(), &event);
    auto* menu = list->findChild<QMenu*>(u"courseworkMenu"_s);
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().constFirst()->text(), u"Delete Coursework"_s);
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
