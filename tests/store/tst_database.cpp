// The database file: creation and upgrade (a version 1 file in place), refusal
// of foreign or damaged files, the shared GPA flag and the date encoding.
// Faults tried, each caught here: the version 1 indexes left under the old
// collation (versionOneFileIsUpgradedInPlace); ToDate without its range check
// (valuesOutsideTheDateWindow).
#include "BrindleData.h"
#include "Schema.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QFile>
#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The collation of version 1 files, for writing one as that Brindle did.
int LegacyCompare(void*, int lengthA, const void* a, int lengthB, const void* b)
{
    return QString::compare(QString::fromUtf8(static_cast<const char*>(a), lengthA),
                            QString::fromUtf8(static_cast<const char*>(b), lengthB),
                            Qt::CaseInsensitive);
}

bool RunSql(const QString& path, const char* sql, bool withLegacyCollation = false)
{
    sqlite3* db = nullptr;
    bool ok = sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK;
    if (ok && withLegacyCollation)
        sqlite3_create_collation_v2(db, "BRINDLE_NOCASE", SQLITE_UTF8, nullptr, LegacyCompare,
                                    nullptr);
    ok = ok && sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return ok;
}

// PRAGMA integrity_check as any SQLite program runs it: no collation of Brindle's known.
QString PlainIntegrityCheck(const QString& path)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* stmt = nullptr;
    QString result;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
            SQLITE_OK &&
        sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &stmt, nullptr) == SQLITE_OK &&
        sqlite3_step(stmt) == SQLITE_ROW)
        result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    else
        result = QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return result;
}

QStringList CoursesInNameOrder()
{
    QStringList names;
    CCourseTable courses;
    courses.Open(0);
    for (int ok = courses.MoveFirst(1); ok; ok = courses.MoveNext(1))
        names << courses.GetCourseName();
    return names;
}

} // namespace

class TestDatabaseFile : public QObject
{
    Q_OBJECT

private slots:
    void defaultRecordsAreMadeOnce();
    void upgradeAddsMissingTablesAndProperties();
    void versionOneFileIsUpgradedInPlace();
    void unusableFilesAreRefusedAndLeftAlone_data();
    void unusableFilesAreRefusedAndLeftAlone();
    void gpaFlagFollowsWhicheverIsWritten();
    void dateEncoding_data();
    void dateEncoding();
    void valuesOutsideTheDateWindow_data();
    void valuesOutsideTheDateWindow();
};

void TestDatabaseFile::defaultRecordsAreMadeOnce()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    QStringList tabs;
    CViewTabTable tab;
    QVERIFY(tab.Open(2));
    for (int ok = tab.MoveFirst(1); ok; ok = tab.MoveNext(1))
        tabs << u"%1:%2"_s.arg(tab.GetViewTabID()).arg(tab.GetTabText());
    QCOMPARE(tabs, QStringList({u"1:Cw Type"_s, u"2:Past Due"_s, u"3:Course Week"_s,
                                u"4:Due By"_s}));
    QStringList scale;
    CGradeScaleTable grades;
    QVERIFY(grades.Open(0));
    for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1))
        scale << u"%1 %2 %3"_s.arg(grades.GetGrade()).arg(grades.GetGradeName()).arg(
            grades.GetGradePoints());
    QCOMPARE(scale, QStringList({u"0 A 4"_s, u"1 B 3"_s, u"2 C 2"_s, u"3 D 1"_s}));
    const CAppStateTable& state = CAppStateTable::Instance();
    QCOMPARE(state.GetCurrentSemesterID(), WorkingSemesterID);
    QCOMPARE(state.GetCurrentCourseID(), AllCoursesID);
    QCOMPARE(state.GetCurrentTabID(), CViewTabTable::NoFilter);
    QCOMPARE(state.GetShowDone(), 1);
    QCOMPARE(Records::Count("GPAInfo"), 1);

    // Made again on every start: nothing doubled, nothing the user removed comes back.
    const quint32 course = Records::Course(u"Latin"_s);
    QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM GradeScale"));
    QVERIFY(CreateDatabase());
    QVERIFY(CreateDatabase());
    QCOMPARE(CCourseTable::GetCourseNameFromID(course), u"Latin"_s);
    QCOMPARE(Records::Count("ViewTab"), 4);
    QCOMPARE(Records::Count("AppState"), 1);
    QCOMPARE(Records::Count("GPAInfo"), 1);
    QCOMPARE(Records::Count("GradeScale"), 0);
}

void TestDatabaseFile::upgradeAddsMissingTablesAndProperties()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"old.db"_s);
    // An older file: a course table without its later properties, ids in use.
    QVERIFY(RunSql(
        path, "PRAGMA application_id = 1112690244;"
              "CREATE TABLE Course (id INTEGER PRIMARY KEY, CourseName TEXT NOT NULL DEFAULT '');"
              "INSERT INTO Course (id, CourseName) VALUES (41, 'Rhetoric');"));
    CCeMount* mount = CDataTable::GetMount();
    QVERIFY2(mount->MountPath(path), qPrintable(mount->GetLastError()));
    QVERIFY(CreateDatabase());
    {
        CCourseTable course;
        QVERIFY(course.Open() && course.MoveToRecord(41));
        QCOMPARE(course.GetCourseName(), u"Rhetoric"_s);
        course.SetDetails(u"added later"_s);
        QVERIFY(course.UpdateRecord());
    }
    QVERIFY(Records::Semester(u"next"_s) > 41);
    QCOMPARE(Records::Count("ViewTab"), 4);
    mount->Unmount();
}

void TestDatabaseFile::versionOneFileIsUpgradedInPlace()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"v1.db"_s);
    // As Brindle 1 wrote it: names indexed under a collation of its own.
    QVERIFY(RunSql(path,
                   "PRAGMA application_id = 1112690244; PRAGMA user_version = 1;"
                   "CREATE TABLE Course (id INTEGER PRIMARY KEY, CourseName TEXT NOT NULL "
                   "DEFAULT '');"
                   "CREATE INDEX Course_by_CourseName ON Course (CourseName COLLATE "
                   "BRINDLE_NOCASE, id);"
                   "CREATE TABLE Building (id INTEGER PRIMARY KEY, BuildingName TEXT NOT NULL "
                   "DEFAULT '');"
                   "CREATE INDEX Building_by_BuildingName ON Building (BuildingName COLLATE "
                   "BRINDLE_NOCASE, id);"
                   "CREATE TABLE RecordIdSequence (LastId INTEGER NOT NULL);"
                   "INSERT INTO RecordIdSequence VALUES (12);"
                   "INSERT INTO Course VALUES (10, 'Latin'), (11, 'greek');"
                   "INSERT INTO Building VALUES (12, 'Main Hall');",
                   true));
    QVERIFY(PlainIntegrityCheck(path).contains(u"collation"_s));

    CCeMount* mount = CDataTable::GetMount();
    QVERIFY2(mount->MountPath(path), qPrintable(mount->GetLastError()));
    QVERIFY(CreateDatabase());
    QCOMPARE(mount->Scalar("PRAGMA user_version"), qint64(BrindleSchema::Version));
    // Without case, unlike byte order ('L' < 'g').
    QCOMPARE(CoursesInNameOrder(), (QStringList{u"greek"_s, u"Latin"_s}));
    QCOMPARE(CBuildingTable::GetBuildingIDFromName(u"main hall"_s), 12u);
    QVERIFY(Records::Semester(u"next"_s) > 12);
    mount->Unmount();
    QCOMPARE(PlainIntegrityCheck(path), u"ok"_s);
}

void TestDatabaseFile::unusableFilesAreRefusedAndLeftAlone_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::newRow("text file") << QByteArray("text");
    QTest::newRow("another program's database") << QByteArray("foreign");
    QTest::newRow("damaged database") << QByteArray("damaged");
    QTest::newRow("newer Brindle") << QByteArray("newer");
}

void TestDatabaseFile::unusableFilesAreRefusedAndLeftAlone()
{
    QFETCH(QByteArray, kind);
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Brindle.db"_s);
    if (kind == "text") {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("course,grade\nMath,A\n") > 0);
    } else if (kind == "foreign") {
        QVERIFY(RunSql(path, "CREATE TABLE notes (body TEXT); INSERT INTO notes VALUES ('mine');"));
    } else if (kind == "newer") {
        QVERIFY(RunSql(path, "PRAGMA application_id = 1112690244; PRAGMA user_version = 99;"
                             "CREATE TABLE Course (id INTEGER PRIMARY KEY);"));
    } else {
        QVERIFY(RunSql(path, "PRAGMA application_id = 1112690244; PRAGMA page_size = 1024;"
                             "CREATE TABLE t (x TEXT); CREATE INDEX t_x ON t (x);"
                             "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                             "WHERE i < 400) INSERT INTO t SELECT hex(randomblob(40)) FROM n;"));
        QFile file(path);
        QVERIFY(file.size() > 8 * 1024 && file.open(QIODevice::ReadWrite) && file.seek(3 * 1024));
        QCOMPARE(file.write(QByteArray(2 * 1024, char(0x5A))), 2 * 1024);
    }
    const QByteArray before = ReadAll(path);

    CCeMount* mount = CDataTable::GetMount();
    QCOMPARE(mount->MountPath(path), 0);
    QVERIFY(mount->GetLastError().contains(path));
    QVERIFY(!mount->IsMounted());
    QCOMPARE(ReadAll(path), before);
}

void TestDatabaseFile::gpaFlagFollowsWhicheverIsWritten()
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

void TestDatabaseFile::dateEncoding_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<double>("value");
    QTest::newRow("day zero") << QDateTime(QDate(1899, 12, 30), QTime(0, 0)) << 0.0;
    QTest::newRow("before day zero") << QDateTime(QDate(1899, 12, 29), QTime(18, 0)) << -0.25;
    QTest::newRow("2000") << QDateTime(QDate(2000, 1, 1), QTime(6, 0)) << 36526.25;
    QTest::newRow("leap day") << QDateTime(QDate(2024, 2, 29), QTime(0, 0)) << 45351.0;
    QTest::newRow("last day of 9999") << QDateTime(QDate(9999, 12, 31), QTime(0, 0)) << 2958465.0;
}

void TestDatabaseFile::dateEncoding()
{
    QFETCH(QDateTime, moment);
    QFETCH(double, value);
    QCOMPARE(BrindleDate::FromDateTime(moment), value);
    QCOMPARE(BrindleDate::ToDateTime(value), moment);
    QCOMPARE(BrindleDate::WholeDays(value), BrindleDate::FromDate(moment.date()));
    // Times of day come back to the minute after a trip through the double.
    const QTime classEnd(10, 50);
    QCOMPARE(BrindleDate::ToTime(value + BrindleDate::FromTime(classEnd) -
                                 BrindleDate::FromTime(moment.time())),
             classEnd);
}

void TestDatabaseFile::valuesOutsideTheDateWindow_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("valid");
    QTest::newRow("NaN") << qQNaN() << false;
    QTest::newRow("infinity") << qInf() << false;
    QTest::newRow("minus infinity") << -qInf() << false;
    QTest::newRow("beyond any integer") << 1e300 << false;
    QTest::newRow("the day before year 1") << BrindleDate::MinDate() - 0.5 << false;
    QTest::newRow("the day after 9999") << BrindleDate::MaxDate() + 1.0 << false;
    QTest::newRow("first moment of year 1") << BrindleDate::MinDate() << true;
    QTest::newRow("last evening of 9999") << BrindleDate::MaxDate() + 0.9 << true;
}

void TestDatabaseFile::valuesOutsideTheDateWindow()
{
    QFETCH(double, value);
    QFETCH(bool, valid);
    QCOMPARE(BrindleDate::ToDate(value).isValid(), valid);
    QCOMPARE(BrindleDate::ToTime(value).isValid(), valid);
    QCOMPARE(BrindleDate::ToDateTime(value).isValid(), valid);
}

QTEST_GUILESS_MAIN(TestDatabaseFile)
#include "tst_database.moc"
