// The record store and its file: creation, upgrade and refusal of files,
// dates, seeks and filters, transactions that fail, record ids, read errors.
// Faults tried, each caught: CTransaction::Commit ignoring the result of
// COMMIT (aTransactionThatCannotLandKeepsNothing, "a reader blocks COMMIT");
// the header values written again on every mount (defaultRecordsAreMadeOnce);
// a mount that reads only the first page (damagedFileIsRefusedAndLeftAlone);
// the version 1 indexes left under the old collation
// (versionOneFileIsUpgradedInPlace); ToDate without its range check
// (dateEncoding, the rows outside the window); ids of a file without an id
// sequence starting from 0 (versionOneFileIsUpgradedInPlace); course positions
// read unsigned (semesterCoursesFollowSignedPositions).
#include "BrindleData.h"
#include "Schema.h"
#include "support/DatabaseFiles.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QRegularExpression>
#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// Runs SQL with the collation Brindle 1 indexed names under.
bool WriteVersionOneFile(const QString& path, const char* sql)
{
    auto compare = [](void*, int lengthA, const void* a, int lengthB, const void* b) {
        return QString::compare(QString::fromUtf8(static_cast<const char*>(a), lengthA),
                                QString::fromUtf8(static_cast<const char*>(b), lengthB),
                                Qt::CaseInsensitive);
    };
    sqlite3* db = nullptr;
    const bool ok = sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK &&
                    sqlite3_create_collation_v2(db, "BRINDLE_NOCASE", SQLITE_UTF8, nullptr, compare,
                                                nullptr) == SQLITE_OK &&
                    sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return ok;
}

CCeMount* Mount()
{
    return CDataTable::GetMount();
}

// The record ids a seek of the key finds, in the order of the sort.
template <typename Table, typename Key>
QList<quint32> Seek(Table& table, const Key& value, bool deleteEach = false)
{
    const CCeDBProp key(value);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QList<quint32> ids;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
        ids << table.GetRecordID();
        if (deleteEach)
            table.DeleteRecord(0);
    }
    return ids;
}

quint32 NewBuilding(const QString& name)
{
    CBuildingTable building;
    if (!building.Open() || !building.NewRecord(0))
        return 0;
    building.SetBuildingName(name);
    return building.UpdateRecord() ? building.GetRecordID() : 0;
}

QRegularExpression SqliteError(const QString& pattern)
{
    return QRegularExpression(u"SQLite error \\d+ "_s + pattern);
}

} // namespace

class TestRecordStore : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Another process's lock is waited for; a short wait keeps the test fast.
        m_savedBusyTimeout = CCeMount::BusyTimeout();
        CCeMount::SetBusyTimeout(100);
    }
    void cleanupTestCase() { CCeMount::SetBusyTimeout(m_savedBusyTimeout); }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

    void defaultRecordsAreMadeOnce()
    {
        QCOMPARE(Records::Rows("SELECT ViewTabID, TabText FROM ViewTab ORDER BY TabOrder"),
                 QStringList({u"1|Cw Type"_s, u"2|Past Due"_s, u"3|Course Week"_s, u"4|Due By"_s}));
        QCOMPARE(CAppStateTable::Instance().GetCurrentTabID(), CViewTabTable::NoFilter);
        // Made again on every start: nothing doubled, nothing the user removed comes back.
        const quint32 course = Records::Course(u"Latin"_s);
        QVERIFY(Mount()->Execute("DELETE FROM GradeScale"));
        // A file that needs nothing is not written to (a commit costs four syncs).
        const QByteArray bytes = DatabaseFiles::Read(m_db->Path());
        QVERIFY(CreateDatabase() && CreateDatabase());
        QCOMPARE(DatabaseFiles::Read(m_db->Path()), bytes);
        QCOMPARE(CCourseTable::GetCourseNameFromID(course), u"Latin"_s);
        QCOMPARE(Records::Count("ViewTab"), 4);
        QCOMPARE(Records::Count("AppState"), 1);
        QCOMPARE(Records::Count("GPAInfo"), 1);
        QCOMPARE(Records::Count("GradeScale"), 0);
    }

    void versionOneFileIsUpgradedInPlace()
    {
        m_db.reset();
        QTemporaryDir dir;
        const QString path = dir.filePath(u"v1.db"_s);
        // Names indexed under a collation of Brindle 1's own; later properties and
        // tables missing; ids in use but no id sequence yet.
        QVERIFY(WriteVersionOneFile(
            path, "PRAGMA application_id = 1112690244; PRAGMA user_version = 1;"
                  "CREATE TABLE Course (id INTEGER PRIMARY KEY, CourseName TEXT NOT NULL "
                  "DEFAULT '');"
                  "CREATE INDEX Course_by_CourseName ON Course (CourseName COLLATE "
                  "BRINDLE_NOCASE, id);"
                  "CREATE TABLE Building (id INTEGER PRIMARY KEY, BuildingName TEXT NOT NULL "
                  "DEFAULT '');"
                  "CREATE INDEX Building_by_BuildingName ON Building (BuildingName COLLATE "
                  "BRINDLE_NOCASE, id);"
                  "INSERT INTO Course VALUES (10, 'Latin'), (11, 'greek');"
                  "INSERT INTO Building VALUES (12, 'Main Hall');"));
        const QByteArray check = "PRAGMA integrity_check";
        QVERIFY(DatabaseFiles::Rows(path, check).constFirst().contains(u"collation"_s));

        QVERIFY2(Mount()->MountPath(path), qPrintable(Mount()->GetLastError()));
        QVERIFY(CreateDatabase());
        QCOMPARE(Mount()->Scalar("PRAGMA user_version"), qint64(BrindleSchema::Version));
        // In name order without case, unlike byte order ('L' < 'g').
        QStringList names;
        CCourseTable courses;
        QVERIFY(courses.Open(0));
        for (int ok = courses.MoveFirst(1); ok; ok = courses.MoveNext(1))
            names << courses.GetCourseName();
        QCOMPARE(names, (QStringList{u"greek"_s, u"Latin"_s}));
        QVERIFY(courses.MoveToRecord(10));
        courses.SetDetails(u"added later"_s);
        QVERIFY(courses.UpdateRecord());
        QCOMPARE(Records::Count("ViewTab"), 4);
        QCOMPARE(CBuildingTable::GetBuildingIDFromName(u"main hall"_s), 12u);
        QVERIFY(Records::Semester(u"next"_s) > 12);
        Mount()->Unmount();
        QCOMPARE(DatabaseFiles::Rows(path, check), QStringList{u"ok"_s});
    }

    void damagedFileIsRefusedAndLeftAlone()
    {
        // Text, another program's and newer files: tst_startup's fileMatrix.
        m_db.reset();
        QTemporaryDir dir;
        const QString path = dir.filePath(u"Brindle.db"_s);
        // Pages of the index and its table overwritten behind a sound header:
        // only a check of every page finds them.
        QVERIFY(DatabaseFiles::Execute(
            path, "PRAGMA application_id = 1112690244; PRAGMA page_size = 1024;"
                  "CREATE TABLE t (x TEXT); CREATE INDEX t_x ON t (x);"
                  "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
                  "INSERT INTO t SELECT hex(randomblob(40)) FROM n;"));
        QByteArray bytes = DatabaseFiles::Read(path);
        QVERIFY(bytes.size() > 8 * 1024);
        bytes.replace(3 * 1024, 2 * 1024, QByteArray(2 * 1024, char(0x5A)));
        QVERIFY(DatabaseFiles::Write(path, bytes));

        QTest::ignoreMessage(QtWarningMsg,
                             SqliteError(u"\\(database disk image is malformed\\)"_s));
        QCOMPARE(Mount()->MountPath(path), 0);
        QVERIFY(Mount()->GetLastError().contains(path));
        QCOMPARE(Mount()->GetProblem(), CCeMount::Problem::Unusable); // may be set aside
        QVERIFY(!Mount()->IsMounted());
        QCOMPARE(DatabaseFiles::Read(path), bytes);
    }

    void dateEncoding_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QDateTime>("moment"); // invalid: outside the window
        auto at = [](int y, int m, int d, int h) { return QDateTime(QDate(y, m, d), QTime(h, 0)); };
        QTest::newRow("day zero") << 0.0 << at(1899, 12, 30, 0);
        QTest::newRow("before day zero") << -0.25 << at(1899, 12, 29, 18);
        QTest::newRow("2000") << 36526.25 << at(2000, 1, 1, 6);
        QTest::newRow("first moment of year 1") << -693593.0 << at(1, 1, 1, 0);
        QTest::newRow("last evening of 9999") << 2958465.75 << at(9999, 12, 31, 18);
        QTest::newRow("NaN") << qQNaN() << QDateTime();
        QTest::newRow("beyond any integer") << 1e300 << QDateTime();
        QTest::newRow("the day before year 1") << -693593.5 << QDateTime();
        QTest::newRow("the day after 9999") << 2958466.0 << QDateTime();
    }

    void dateEncoding()
    {
        QFETCH(double, value);
        QFETCH(QDateTime, moment);
        QCOMPARE(BrindleDate::ToDateTime(value), moment);
        QCOMPARE(BrindleDate::ToDate(value), moment.date());
        QCOMPARE(BrindleDate::ToTime(value).isValid(), moment.isValid());
        if (!moment.isValid())
            return;
        QCOMPARE(BrindleDate::FromDateTime(moment), value);
        QCOMPARE(BrindleDate::WholeDays(value), BrindleDate::FromDate(moment.date()));
        // Times of day come back to the minute after a trip through the double.
        const QTime classEnd(10, 50);
        QCOMPARE(BrindleDate::ToTime(value + BrindleDate::FromTime(classEnd) -
                                     BrindleDate::FromTime(moment.time())),
                 classEnd);
    }
    void seeksAndDeletesInsideAWalk()
    {
        const quint32 keep = Records::Course(u"Keep"_s);
        const quint32 drop = Records::Course(u"Drop"_s);
        QList<quint32> made;
        for (int i = 0; i < 4; ++i) {
            made << Records::Coursework(drop, 0, u"d%1"_s.arg(i));
            Records::Coursework(keep, 0, u"k%1"_s.arg(i));
        }
        CCourseworkTable table;
        QVERIFY(table.Open(0));
        QCOMPARE(Seek(table, drop), made); // equal keys in record id order
        QVERIFY(Seek(table, quint32(4711)).isEmpty());
        QCOMPARE(table.MoveNext(1), 0); // a seek without a match never positions

        // Deleting the current record: MoveNext goes on with its follower.
        QVERIFY(table.Open(1));
        QCOMPARE(Seek(table, drop, true), made);
        QVERIFY(Seek(table, drop).isEmpty());
        QCOMPARE(Records::Count("Coursework"), 4);
    }

    void stringKeysSeekIgnoringCase_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("sought");
        QTest::addColumn<bool>("found");
        QTest::newRow("ascii case") << u"Calculus II"_s << u"CALCULUS ii"_s << true;
        QTest::newRow("accented") << u"Études Françaises"_s << u"ÉTUDES FRANÇAISES"_s << true;
        QTest::newRow("different") << u"Calculus II"_s << u"Calculus III"_s << false;
        QTest::newRow("trailing blank differs") << u"Art"_s << u"Art "_s << false;
    }

    void stringKeysSeekIgnoringCase()
    {
        QFETCH(QString, stored);
        QFETCH(QString, sought);
        QFETCH(bool, found);
        const quint32 id = Records::Course(stored);
        CCourseTable table;
        QVERIFY(table.Open(0));
        QCOMPARE(Seek(table, sought), found ? QList<quint32>{id} : QList<quint32>{});
    }

    void filterReadsOnlyListedPropertiesAndKeepsTheOthers_data()
    {
        // A grade computed from a zero total is not a number; it is kept as computed.
        QTest::addColumn<double>("grade");
        QTest::newRow("a grade") << 0.5;
        QTest::newRow("not a number") << qQNaN();
        QTest::newRow("infinity") << qInf();
    }

    void filterReadsOnlyListedPropertiesAndKeepsTheOthers()
    {
        QFETCH(double, grade);
        const quint32 course = Records::Course(u"Geology"_s, 0, grade);
        CCourseTable table;
        QVERIFY(table.Open() && table.MoveToRecord(course));
        table.SetRoomNumber(u"B12"_s);
        QVERIFY(table.UpdateRecord());
        table.SetFilter(1, CCourseTable::PropCurrentGrade);
        QVERIFY(table.MoveToRecord(course));
        QCOMPARE(table.GetCurrentGrade(), grade);   // NaN compares equal to NaN here
        QCOMPARE(table.GetRoomNumber(), QString()); // not read
        table.SetCurrentGrade(0.75);
        QVERIFY(table.UpdateRecord());

        table.ClearFilter();
        QVERIFY(table.MoveToRecord(course));
        QCOMPARE(table.GetCurrentGrade(), 0.75);
        QCOMPARE(table.GetRoomNumber(), u"B12"_s);
        QCOMPARE(table.GetCourseName(), u"Geology"_s);
    }

    void semesterCoursesFollowSignedPositions()
    {
        // Positions 2, 0, 0, -1 (stored as 0xFFFF): -1 first, the two 0s in stored order.
        const quint32 a = Records::Course(u"A"_s);
        const quint32 b = Records::Course(u"B"_s);
        const quint32 c = Records::Course(u"C"_s);
        const quint32 d = Records::Course(u"D"_s);
        const QHash<quint32, quint16> positions{{a, 2}, {b, 0}, {c, 0}, {d, 0xFFFF}};
        CCourseOrderTable order;
        QVERIFY(order.Open());
        for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1)) {
            order.SetCoursePosition(positions.value(order.GetCourseID()));
            QVERIFY(order.UpdateRecord());
        }
        QCOMPARE(GetSemesterCourses(0), (std::vector<quint32>{d, b, c, a}));
    }

    void aTransactionThatCannotLandKeepsNothing_data()
    {
        QTest::addColumn<QString>("failure"); // what LastFailure() names; empty: an inner scope
        QTest::newRow("a reader blocks COMMIT") << u"locked"_s;
        QTest::newRow("a step fails in SQLite") << u"refused"_s;
        QTest::newRow("an inner scope ends without commit") << QString();
    }

    void aTransactionThatCannotLandKeepsNothing()
    {
        QFETCH(QString, failure);
        const bool blocked = failure == u"locked"_s;
        QVERIFY(Mount()->Execute("CREATE TRIGGER RefuseTimes BEFORE INSERT ON Time "
                                 "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
        // Another program's connection, a reader in the middle of its
        // transaction: COMMIT cannot get the file.
        sqlite3* reader = nullptr;
        QCOMPARE(sqlite3_open(m_db->Path().toUtf8().constData(), &reader), SQLITE_OK);
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closer(reader, sqlite3_close);
        auto run = [reader](const char* sql) {
            return sqlite3_exec(reader, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
        };
        QVERIFY(!blocked || run("BEGIN; SELECT count(*) FROM Course;"));
        if (!failure.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, SqliteError(blocked ? u".*locked.* in: COMMIT"_s
                                                                   : u"\\(refused\\)"_s));
        CAppStateTable& state = CAppStateTable::Instance();
        const int showDone = state.GetShowDone();
        {
            CTransaction outer;
            state.SetShowDone(showDone ? 0 : 1);
            QVERIFY(state.UpdateRecord());
            const quint32 course = Records::Course(u"Chemistry"_s);
            if (!blocked) {
                CTransaction inner;
                if (!failure.isEmpty()) {
                    CTimeTable time;
                    QVERIFY(time.Open() && time.NewRecord(0));
                    time.SetForeignRecordID(course);
                    QCOMPARE(time.UpdateRecord(), 0);
                    QCOMPARE(inner.Commit(), 0);
                }
            }
            // Nothing more is written into a transaction known to be lost.
            QCOMPARE(NewBuilding(u"Annex"_s) != 0, blocked);
            QCOMPARE(outer.Commit(), 0);
        }
        QVERIFY2(CTransaction::LastFailure().contains(failure) &&
                     !CTransaction::LastFailure().isEmpty(),
                 qPrintable(CTransaction::LastFailure()));
        QVERIFY(sqlite3_get_autocommit(Mount()->Handle()));
        QVERIFY(!blocked || run("COMMIT"));
        for (const char* table : {"Course", "CourseOrder", "Building"})
            QVERIFY2(Records::Count(table) == 0, table);
        // The state object forgets what the file did not keep.
        QCOMPARE(state.GetShowDone(), showDone);
        // The next change is a transaction of its own, not part of a dead one.
        {
            CTransaction transaction;
            Records::Course(u"Later"_s);
            QVERIFY(transaction.Commit());
        }
        QVERIFY(m_db->Reopen());
        QCOMPARE(CAppStateTable::Instance().GetShowDone(), showDone);
        QCOMPARE(Records::Rows("SELECT CourseName FROM Course"), QStringList{u"Later"_s});
        QCOMPARE(Records::Count("CourseOrder"), 1);
    }

    void longLivedObjectWritesOnlyWhatItSetSince()
    {
        CAppStateTable& state = CAppStateTable::Instance();
        state.SetShowDone(1);
        state.SetShowGPAWithHours(1);
        QVERIFY(state.UpdateRecord());
        // The GPA flag follows into GPAInfo (the other way: tst_institutiondlg).
        CGPAInfoTable gpa;
        QVERIFY(gpa.Open() && gpa.MoveFirst(1));
        QCOMPARE(gpa.GetWeightedByCourseHours(), 1);
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

    void idsAreNeverHandedOutTwice_data()
    {
        QTest::addColumn<int>("records"); // written in the transaction rolled back
        QTest::addColumn<bool>("restart");
        QTest::newRow("one, rolled back") << 1 << false;
        QTest::newRow("more than one reservation, restarted") << 700 << true;
    }

    void idsAreNeverHandedOutTwice()
    {
        QFETCH(int, records);
        QFETCH(bool, restart);
        quint32 highest = NewBuilding(u"Library"_s);
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
            QVERIFY(m_db->Reopen());
        QVERIFY(NewBuilding(u"Gym"_s) > highest);
    }

    void missingDeletedOrUnreadableRecords()
    {
        const quint32 course = Records::Course(u"Botany"_s);
        CCourseTable first;
        CCourseTable second;
        QVERIFY(first.Open() && second.Open());
        for (quint32 unknown : {0u, 0xFFFFFFFFu, course + 1000})
            QCOMPARE(first.MoveToRecord(unknown), 0);
        QCOMPARE(CCourseTable::GetCourseNameFromID(course + 1000), QString());
        QVERIFY(first.MoveToRecord(course) && second.MoveToRecord(course));
        QVERIFY(first.DeleteRecord(0));
        second.SetCourseName(u"Botany II"_s);
        QCOMPARE(second.UpdateRecord(), 0);
        QCOMPARE(second.DeleteRecord(0), 0);

        CTimeTable times;
        QVERIFY(times.Open(0));
        const CCeDBProp key(course);
        times.SetSeekValue(&key, CDataTable::SeekValueEqual);
        QCOMPARE(times.MoveFirst(1), 0);
        QVERIFY(!times.ReadFailed()); // simply none
        QVERIFY(Mount()->Execute("DROP TABLE Time"));
        // Logged with the result code, SQLite's words and the statement.
        QTest::ignoreMessage(QtWarningMsg, SqliteError(u"\\(no such table: Time\\) in: SELECT"_s));
        CTransaction transaction;
        QCOMPARE(times.MoveFirst(1), 0);
        QVERIFY(times.ReadFailed());
        // A change built on a failed read does not land.
        QCOMPARE(transaction.Commit(), 0);
    }

private:
    std::unique_ptr<TestDatabase> m_db;
    int m_savedBusyTimeout = 0;
};

QTEST_GUILESS_MAIN(TestRecordStore)
#include "tst_recordstore.moc"
