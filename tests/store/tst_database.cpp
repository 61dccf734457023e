// The database file: creation and upgrade (a version 1 file in place), refusal
// of foreign or damaged files, the shared GPA flag and the date encoding.
// Faults tried, each caught here: the version 1 indexes left under the old
// collation (versionOneFileIsUpgradedInPlace); ToDate without its range check
// (dateEncoding, the rows outside the window).
#include "BrindleData.h"
#include "Schema.h"
#include "support/DatabaseFiles.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

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

} // namespace

class TestDatabaseFile : public QObject
{
    Q_OBJECT

private slots:
    void defaultRecordsAreMadeOnce()
    {
        TestDatabase db;
        QVERIFY(db.IsReady());
        QCOMPARE(Records::Rows("SELECT ViewTabID, TabText FROM ViewTab ORDER BY TabOrder"),
                 QStringList({u"1|Cw Type"_s, u"2|Past Due"_s, u"3|Course Week"_s, u"4|Due By"_s}));
        QCOMPARE(
            Records::Rows("SELECT Grade, GradeName, GradePoints FROM GradeScale ORDER BY Grade"),
            QStringList({u"0|A|4.0"_s, u"1|B|3.0"_s, u"2|C|2.0"_s, u"3|D|1.0"_s}));
        const CAppStateTable& state = CAppStateTable::Instance();
        QCOMPARE(state.GetCurrentSemesterID(), WorkingSemesterID);
        QCOMPARE(state.GetCurrentCourseID(), AllCoursesID);
        QCOMPARE(state.GetCurrentTabID(), CViewTabTable::NoFilter);
        QCOMPARE(state.GetShowDone(), 1);

        // Made again on every start: nothing doubled, nothing the user removed comes back.
        const quint32 course = Records::Course(u"Latin"_s);
        QVERIFY(Mount()->Execute("DELETE FROM GradeScale"));
        QVERIFY(CreateDatabase() && CreateDatabase());
        QCOMPARE(CCourseTable::GetCourseNameFromID(course), u"Latin"_s);
        QCOMPARE(Records::Count("ViewTab"), 4);
        QCOMPARE(Records::Count("AppState"), 1);
        QCOMPARE(Records::Count("GPAInfo"), 1);
        QCOMPARE(Records::Count("GradeScale"), 0);
    }

    void versionOneFileIsUpgradedInPlace()
    {
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

    void unusableFilesAreRefusedAndLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("sql"); // empty: a text file
        QTest::newRow("text file") << QByteArray();
        QTest::newRow("another program's database")
            << QByteArray("CREATE TABLE notes (body TEXT); INSERT INTO notes VALUES ('mine');");
        QTest::newRow("newer Brindle")
            << QByteArray("PRAGMA application_id = 1112690244; PRAGMA user_version = 99;"
                          "CREATE TABLE Course (id INTEGER PRIMARY KEY);");
        // A page in the middle of the index and its table overwritten below.
        QTest::newRow("damaged database") << QByteArray(
            "PRAGMA application_id = 1112690244; PRAGMA page_size = 1024;"
            "CREATE TABLE t (x TEXT); CREATE INDEX t_x ON t (x);"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
            "INSERT INTO t SELECT hex(randomblob(40)) FROM n;");
    }

    void unusableFilesAreRefusedAndLeftAlone()
    {
        QFETCH(QByteArray, sql);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"Brindle.db"_s);
        if (sql.isEmpty())
            QVERIFY(DatabaseFiles::Write(path, "course,grade\nMath,A\n"));
        else
            QVERIFY(DatabaseFiles::Execute(path, sql.constData()));
        if (sql.contains("page_size")) {
            QByteArray bytes = DatabaseFiles::Read(path);
            QVERIFY(bytes.size() > 8 * 1024);
            bytes.replace(3 * 1024, 2 * 1024, QByteArray(2 * 1024, char(0x5A)));
            QVERIFY(DatabaseFiles::Write(path, bytes));
        }
        const QByteArray before = DatabaseFiles::Read(path);

        QCOMPARE(Mount()->MountPath(path), 0);
        QVERIFY(Mount()->GetLastError().contains(path));
        QVERIFY(!Mount()->IsMounted());
        QCOMPARE(DatabaseFiles::Read(path), before);
    }

    void gpaFlagFollowsWhicheverIsWritten()
    {
        TestDatabase db;
        CAppStateTable& state = CAppStateTable::Instance();
        QCOMPARE(state.GetShowGPAWithHours(), 0);
        CGPAInfoTable gpa;
        QVERIFY(gpa.Open() && gpa.MoveFirst(1));
        gpa.SetWeightedByCourseHours(1);
        QVERIFY(gpa.UpdateRecord());
        QCOMPARE(state.GetShowGPAWithHours(), 1);
        // The long-lived state object writing other fields does not undo it.
        state.SetShowDone(1);
        QVERIFY(state.UpdateRecord());
        QVERIFY(gpa.MoveFirst(1));
        QCOMPARE(gpa.GetWeightedByCourseHours(), 1);
        state.SetShowGPAWithHours(0);
        QVERIFY(state.UpdateRecord());
        QVERIFY(gpa.MoveFirst(1));
        QCOMPARE(gpa.GetWeightedByCourseHours(), 0);
    }

    void dateEncoding_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QDateTime>("moment"); // invalid: outside the window
        auto at = [](int y, int m, int d, int h) { return QDateTime(QDate(y, m, d), QTime(h, 0)); };
        QTest::newRow("day zero") << 0.0 << at(1899, 12, 30, 0);
        QTest::newRow("before day zero") << -0.25 << at(1899, 12, 29, 18);
        QTest::newRow("2000") << 36526.25 << at(2000, 1, 1, 6);
        QTest::newRow("leap day") << 45351.0 << at(2024, 2, 29, 0);
        QTest::newRow("first moment of year 1") << -693593.0 << at(1, 1, 1, 0);
        QTest::newRow("last evening of 9999") << 2958465.75 << at(9999, 12, 31, 18);
        QTest::newRow("NaN") << qQNaN() << QDateTime();
        QTest::newRow("infinity") << qInf() << QDateTime();
        QTest::newRow("minus infinity") << -qInf() << QDateTime();
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
};

QTEST_GUILESS_MAIN(TestDatabaseFile)
#include "tst_database.moc"
