// Transactions when something goes wrong: a commit another process blocks, a
// step that fails, an inner scope that gives up; record ids across rollbacks
// and restarts; what a long-lived table object writes back; read errors.
// Fault tried, and caught: CTransaction::Commit ignoring the result of COMMIT
// (commitBlockedByAReaderRollsBackAndIsReported).
#include "BrindleData.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QRegularExpression>
#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// Another program's connection to the same file.
class OtherConnection
{
public:
    explicit OtherConnection(const QString& path)
    {
        sqlite3_open_v2(path.toUtf8().constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
    }
    ~OtherConnection() { sqlite3_close(m_db); }
    bool Run(const char* sql)
    {
        return sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    }

private:
    sqlite3* m_db = nullptr;
};

QStringList CourseNames()
{
    QStringList names;
    CCourseTable courses;
    courses.Open(0);
    for (int ok = courses.MoveFirst(1); ok; ok = courses.MoveNext(1))
        names << courses.GetCourseName();
    return names;
}

quint32 NewBuilding(const QString& name)
{
    CBuildingTable building;
    if (!building.Open() || !building.NewRecord(0))
        return 0;
    building.SetBuildingName(name);
    return building.UpdateRecord() ? building.GetRecordID() : 0;
}

} // namespace

class TestTransactions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void commitBlockedByAReaderRollsBackAndIsReported();
    void aFailedPartFailsTheWhole_data();
    void aFailedPartFailsTheWhole();
    void longLivedObjectWritesOnlyWhatItSetSince();
    void idsAreNeverHandedOutTwice_data();
    void idsAreNeverHandedOutTwice();
    void readErrorIsNotAnEmptyRange();

private:
    int m_savedBusyTimeout = 0;
};

void TestTransactions::initTestCase()
{
    // Another process's lock is waited for; a short wait keeps the test fast.
    m_savedBusyTimeout = CCeMount::BusyTimeout();
    CCeMount::SetBusyTimeout(100);
}

void TestTransactions::cleanupTestCase()
{
    CCeMount::SetBusyTimeout(m_savedBusyTimeout);
}

void TestTransactions::commitBlockedByAReaderRollsBackAndIsReported()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Records::Course(u"Kept"_s);

    OtherConnection reader(db.Path());
    // A reader in the middle of its transaction: COMMIT cannot get the file.
    QVERIFY(reader.Run("BEGIN; SELECT count(*) FROM Course;"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"SQLite error \\d+ .*locked.* in: COMMIT"_s));
    {
        CTransaction transaction;
        Records::Course(u"Lost"_s);
        QCOMPARE(transaction.Commit(), 0);
        QVERIFY2(CTransaction::LastFailure().contains(u"locked"_s),
                 qPrintable(CTransaction::LastFailure()));
    }
    QVERIFY(sqlite3_get_autocommit(CDataTable::GetMount()->Handle()));
    QVERIFY(reader.Run("COMMIT"));

    // The next change is a transaction of its own, not part of a dead one.
    {
        CTransaction transaction;
        Records::Course(u"Later"_s);
        QVERIFY(transaction.Commit());
    }
    QVERIFY(db.Reopen());
    QCOMPARE(CourseNames(), (QStringList{u"Kept"_s, u"Later"_s}));
    QCOMPARE(Records::Count("CourseOrder"), 2);
}

void TestTransactions::aFailedPartFailsTheWhole_data()
{
    QTest::addColumn<bool>("sqliteError"); // else an inner scope gives up
    QTest::newRow("a step fails in SQLite") << true;
    QTest::newRow("an inner scope ends without commit") << false;
}

void TestTransactions::aFailedPartFailsTheWhole()
{
    QFETCH(bool, sqliteError);
    TestDatabase db;
    QVERIFY(db.IsReady());
    CCeMount* mount = CDataTable::GetMount();
    QVERIFY(mount->Execute("CREATE TRIGGER RefuseTimes BEFORE INSERT ON Time "
                           "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    CAppStateTable& state = CAppStateTable::Instance();
    const int showDone = state.GetShowDone();
    if (sqliteError)
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"SQLite error \\d+ \\(refused\\)"_s));
    {
        CTransaction outer;
        state.SetShowDone(showDone ? 0 : 1);
        QVERIFY(state.UpdateRecord());
        const quint32 course = Records::Course(u"Chemistry"_s);
        {
            CTransaction inner;
            if (sqliteError) {
                CTimeTable time;
                QVERIFY(time.Open() && time.NewRecord(0));
                time.SetForeignRecordID(course);
                QCOMPARE(time.UpdateRecord(), 0);
                QCOMPARE(inner.Commit(), 0);
            }
        }
        // Nothing more is written into a transaction that cannot land.
        QCOMPARE(NewBuilding(u"Annex"_s), 0u);
        QCOMPARE(outer.Commit(), 0);
    }
    QCOMPARE(CTransaction::LastFailure().contains(u"refused"_s), sqliteError);
    QVERIFY(!CTransaction::LastFailure().isEmpty());
    QCOMPARE(Records::Count("Course"), 0);
    QCOMPARE(Records::Count("CourseOrder"), 0);
    QCOMPARE(Records::Count("Building"), 0);
    // The state object forgets what the file did not keep.
    QCOMPARE(state.GetShowDone(), showDone);
    QVERIFY(db.Reopen());
    QCOMPARE(CAppStateTable::Instance().GetShowDone(), showDone);
}

void TestTransactions::longLivedObjectWritesOnlyWhatItSetSince()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetShowDone(1);
    QVERIFY(state.UpdateRecord());

    // Another writer changes what the state object wrote before.
    CAppStateTable other;
    QVERIFY(other.OpenState());
    other.SetShowDone(0);
    other.SetCurrentCourseID(77);
    QVERIFY(other.UpdateRecord());

    state.SetCurrentTabID(CViewTabTable::DueByTab);
    QVERIFY(state.UpdateRecord());
    QVERIFY(other.OpenState());
    QCOMPARE(other.GetShowDone(), 0);
    QCOMPARE(other.GetCurrentCourseID(), 77u);
    QCOMPARE(other.GetCurrentTabID(), CViewTabTable::DueByTab);
}

void TestTransactions::idsAreNeverHandedOutTwice_data()
{
    QTest::addColumn<int>("records"); // written in the transaction rolled back
    QTest::addColumn<bool>("restart");
    QTest::newRow("one, rolled back") << 1 << false;
    QTest::newRow("one, rolled back, restarted") << 1 << true;
    QTest::newRow("more than one reservation, restarted") << 700 << true;
}

void TestTransactions::idsAreNeverHandedOutTwice()
{
    QFETCH(int, records);
    QFETCH(bool, restart);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 before = NewBuilding(u"Library"_s);
    quint32 highest = before;
    {
        CTransaction transaction;
        for (int i = 0; i < records; ++i) {
            const quint32 id = NewBuilding(u"Hall %1"_s.arg(i));
            QVERIFY(id > highest);
            highest = id;
        }
        transaction.Rollback();
    }
    QCOMPARE(Records::Count("Building"), 1);
    if (restart)
        QVERIFY(db.Reopen());
    QVERIFY(NewBuilding(u"Gym"_s) > highest);
}

void TestTransactions::readErrorIsNotAnEmptyRange()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(u"Botany"_s);
    CTimeTable times;
    QVERIFY(times.Open(0));
    const CCeDBProp key(course);
    times.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QCOMPARE(times.MoveFirst(1), 0);
    QVERIFY(!times.ReadFailed()); // simply none

    QVERIFY(CDataTable::GetMount()->Execute("DROP TABLE Time"));
    // Logged with the result code, SQLite's words and the statement.
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(u"SQLite error \\d+ \\(no such table: Time\\) in: SELECT"_s));
    CTransaction transaction;
    QCOMPARE(times.MoveFirst(1), 0);
    QVERIFY(times.ReadFailed());
    // A change built on a failed read does not land.
    QCOMPARE(transaction.Commit(), 0);
}

QTEST_GUILESS_MAIN(TestTransactions)
#include "tst_transactions.moc"
