// The database file: creation and upgrade, refusal of foreign or damaged
// files, transactions, the shared GPA flag and the date encoding.
#include "BrindleData.h"
#include "Schema.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

using namespace Qt::StringLiterals;

#include <sqlite3.h>

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
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

// PRAGMA integrity_check as any SQLite program runs it: no function or
// collation of Brindle's known.
QString PlainIntegrityCheck(const QString& path)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* stmt = nullptr;
    QString result;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
            SQLITE_OK &&
        sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &stmt, nullptr) == SQLITE_OK) {
        result =
            sqlite3_step(stmt) == SQLITE_ROW
                ? QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)))
                : QString::fromUtf8(sqlite3_errmsg(db));
    } else {
        result = QString::fromUtf8(sqlite3_errmsg(db));
    }
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return result;
}

quint32 CourseIdByName(const QString& name)
{
    CCourseTable courses;
    courses.Open(0);
    const CCeDBProp key(name);
    courses.SetSeekValue(&key, CDataTable::SeekValueEqual);
    return courses.MoveFirst(1) ? courses.GetRecordID() : 0;
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

QStringList TabTexts()
{
    QStringList texts;
    CViewTabTable tabs;
    tabs.Open(2);
    for (int ok = tabs.MoveFirst(1); ok; ok = tabs.MoveNext(1))
        texts << QStringLiteral("%1:%2:%3")
                     .arg(tabs.GetViewTabID())
                     .arg(tabs.GetTabText())
                     .arg(tabs.GetIsVisible());
    return texts;
}

} // namespace

class TestDatabaseFile : public QObject
{
    Q_OBJECT

private slots:
    void newDatabaseHoldsTheDefaultRecords();
    void createDatabaseAgainKeepsEveryRecord();
    void upgradeAddsMissingTablesAndProperties();
    void unusableFilesAreRefusedAndLeftAlone_data();
    void unusableFilesAreRefusedAndLeftAlone();
    void rolledBackTransactionLeavesNothing();
    void innerScopeCommitsIntoOuterOne();
    void gpaFlagFollowsWhicheverIsWritten();
    void namesCompareWithoutCaseInEveryScript_data();
    void namesCompareWithoutCaseInEveryScript();
    void plainSqliteChecksTheFile();
    void versionOneFileIsUpgradedInPlace();
    void dateEncoding_data();
    void dateEncoding();
    void valuesOutsideTheDateWindow_data();
    void valuesOutsideTheDateWindow();
    void unmountedFileHoldsEverything();
};

void TestDatabaseFile::newDatabaseHoldsTheDefaultRecords()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    QCOMPARE(TabTexts(), QStringList({u"1:Cw Type:1"_s, u"2:Past Due:1"_s, u"3:Course Week:1"_s,
                                      u"4:Due By:1"_s}));

    QStringList scale;
    CGradeScaleTable grades;
    QVERIFY(grades.Open(0));
    for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1))
        scale << QStringLiteral("%1 %2 %3")
                     .arg(grades.GetGrade())
                     .arg(grades.GetGradeName())
                     .arg(grades.GetGradePoints());
    QCOMPARE(scale, QStringList({u"0 A 4"_s, u"1 B 3"_s, u"2 C 2"_s, u"3 D 1"_s}));

    const CAppStateTable& state = CAppStateTable::Instance();
    QCOMPARE(state.GetCurrentSemesterID(), WorkingSemesterID);
    QCOMPARE(state.GetCurrentCourseID(), AllCoursesID);
    QCOMPARE(state.GetCurrentTabID(), CViewTabTable::NoFilter);
    QCOMPARE(state.GetShowDone(), 1);
    QCOMPARE(Records::Count("GPAInfo"), 1);
}

void TestDatabaseFile::createDatabaseAgainKeepsEveryRecord()
{
    TestDatabase db;
    const quint32 course = Records::Course(QStringLiteral("Latin"));
    // A user who removed the whole grade scale does not get it back on upgrade.
    QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM GradeScale"));
    QVERIFY(CreateDatabase());
    QVERIFY(CreateDatabase());
    QCOMPARE(CCourseTable::GetCourseNameFromID(course), QStringLiteral("Latin"));
    QCOMPARE(Records::Count("ViewTab"), 4);
    QCOMPARE(Records::Count("AppState"), 1);
    QCOMPARE(Records::Count("GPAInfo"), 1);
    QCOMPARE(Records::Count("GradeScale"), 0);
}

void TestDatabaseFile::upgradeAddsMissingTablesAndProperties()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("old.db"));
    // An older file: a course table without its later properties and ids
    // already in use, no other tables at all.
    QVERIFY(RunSql(
        path, "PRAGMA application_id = 1112690244;"
              "CREATE TABLE Course (id INTEGER PRIMARY KEY, CourseName TEXT NOT NULL DEFAULT '');"
              "INSERT INTO Course (id, CourseName) VALUES (41, 'Rhetoric');"));
    CCeMount* mount = CDataTable::GetMount();
    QVERIFY2(mount->MountPath(path), qPrintable(mount->GetLastError()));
    QVERIFY(CreateDatabase());

    CCourseTable course;
    QVERIFY(course.Open());
    QVERIFY(course.MoveToRecord(41));
    QCOMPARE(course.GetCourseName(), QStringLiteral("Rhetoric"));
    course.SetDetails(QStringLiteral("added later"));
    QVERIFY(course.UpdateRecord());
    QVERIFY(Records::Semester(QStringLiteral("next")) > 41);
    QCOMPARE(Records::Count("ViewTab"), 4);
    course.Close();
    mount->Unmount();
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
    const QString path = dir.filePath(QStringLiteral("Brindle.db"));
    if (kind == "text") {
        QVERIFY(WriteFile(path, "course,grade\nMath,A\n"));
    } else if (kind == "foreign") {
        QVERIFY(RunSql(path, "CREATE TABLE notes (body TEXT); INSERT INTO notes VALUES ('mine');"));
    } else if (kind == "newer") {
        QVERIFY(RunSql(path, "PRAGMA application_id = 1112690244; PRAGMA user_version = 99;"
                             "CREATE TABLE Course (id INTEGER PRIMARY KEY);"));
    } else {
        QVERIFY(RunSql(path, "PRAGMA application_id = 1112690244; PRAGMA page_size = 1024;"
                             "CREATE TABLE t (x TEXT); CREATE INDEX t_x ON t (x);"));
        QVERIFY(RunSql(
            path, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) "
                  "INSERT INTO t SELECT hex(randomblob(40)) FROM n;"));
        QByteArray bytes = ReadAll(path);
        QVERIFY(bytes.size() > 8 * 1024);
        for (int i = 3 * 1024; i < 5 * 1024; ++i)
            bytes[i] = char(0x5A);
        QVERIFY(WriteFile(path, bytes));
    }
    const QByteArray before = ReadAll(path);

    CCeMount* mount = CDataTable::GetMount();
    QCOMPARE(mount->MountPath(path), 0);
    QVERIFY(mount->GetLastError().contains(path));
    QVERIFY(!mount->IsMounted());
    QCOMPARE(ReadAll(path), before);
}

void TestDatabaseFile::rolledBackTransactionLeavesNothing()
{
    TestDatabase db;
    {
        CTransaction transaction;
        const quint32 course = Records::Course(QStringLiteral("Temporary"));
        Records::CwType(course, QStringLiteral("Homework"));
        // Leaves the scope without Commit, as a failed step would.
    }
    QCOMPARE(Records::Count("Course"), 0);
    QCOMPARE(Records::Count("CourseOrder"), 0);
    QCOMPARE(Records::Count("CwType"), 0);
}

void TestDatabaseFile::innerScopeCommitsIntoOuterOne()
{
    TestDatabase db;
    {
        CTransaction outer;
        {
            CTransaction inner;
            Records::Course(QStringLiteral("Inner"));
            QVERIFY(inner.Commit());
        }
        Records::Course(QStringLiteral("Outer"));
        outer.Rollback();
    }
    QCOMPARE(Records::Count("Course"), 0);
    {
        CTransaction outer;
        Records::Course(QStringLiteral("Kept"));
        QVERIFY(outer.Commit());
    }
    QCOMPARE(Records::Count("Course"), 1);
}

void TestDatabaseFile::gpaFlagFollowsWhicheverIsWritten()
{
    TestDatabase db;
    CAppStateTable& state = CAppStateTable::Instance();
    QCOMPARE(state.GetShowGPAWithHours(), 0);

    CGPAInfoTable gpa;
    QVERIFY(gpa.Open());
    QVERIFY(gpa.MoveFirst(1));
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

void TestDatabaseFile::namesCompareWithoutCaseInEveryScript_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("sought");
    QTest::newRow("ASCII") << u"Latin"_s << u"LATIN"_s;
    QTest::newRow("accented") << u"\u00C9cole d'\u00E9t\u00E9"_s << u"\u00E9COLE D'\u00C9T\u00C9"_s;
    QTest::newRow("Greek") << u"\u03A3\u03BF\u03C6\u03AF\u03B1"_s
                           << u"\u03C3\u039F\u03A6\u038A\u0391"_s;
    QTest::newRow("Cyrillic") << u"\u0425\u0438\u043C\u0438\u044F"_s
                              << u"\u0445\u0418\u041C\u0418\u042F"_s;
}

void TestDatabaseFile::namesCompareWithoutCaseInEveryScript()
{
    QFETCH(QString, stored);
    QFETCH(QString, sought);
    TestDatabase db;
    const quint32 course = Records::Course(stored);
    Records::Course(u"Other"_s);
    QCOMPARE(CourseIdByName(sought), course);
    // A renamed course is found by its new name only.
    CCourseTable table;
    QVERIFY(table.Open() && table.MoveToRecord(course));
    table.SetCourseName(u"Renamed"_s);
    QVERIFY(table.UpdateRecord());
    QCOMPARE(CourseIdByName(sought), 0u);
    QCOMPARE(CourseIdByName(u"RENAMED"_s), course);
}

void TestDatabaseFile::plainSqliteChecksTheFile()
{
    TestDatabase db;
    Records::Course(u"Latin"_s);
    {
        CBuildingTable building;
        QVERIFY(building.Open() && building.NewRecord(0));
        building.SetBuildingName(u"Main Hall"_s);
        QVERIFY(building.UpdateRecord());
    }
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    QCOMPARE(PlainIntegrityCheck(db.Path()), u"ok"_s);
    // The stock command-line tool too, where it is installed.
    const QString tool = QStandardPaths::findExecutable(u"sqlite3"_s);
    if (!tool.isEmpty()) {
        QProcess process;
        process.start(tool, {db.Path(), u"PRAGMA integrity_check;"_s});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardOutput().trimmed(), QByteArray("ok"));
    }
}

void TestDatabaseFile::versionOneFileIsUpgradedInPlace()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"v1.db"_s);
    // As Brindle 1 wrote it: the names indexed under a collation of its own.
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
                   "INSERT INTO Course VALUES (10, 'latin'), (11, 'Greek');"
                   "INSERT INTO Building VALUES (12, 'Main Hall');",
                   true));
    QVERIFY(PlainIntegrityCheck(path).contains(u"collation"_s));

    CCeMount* mount = CDataTable::GetMount();
    QVERIFY2(mount->MountPath(path), qPrintable(mount->GetLastError()));
    QVERIFY(CreateDatabase());
    QCOMPARE(mount->Scalar("PRAGMA user_version"), qint64(BrindleSchema::Version));
    QCOMPARE(CourseIdByName(u"LATIN"_s), 10u);
    QCOMPARE(CoursesInNameOrder(), (QStringList{u"Greek"_s, u"latin"_s}));
    QCOMPARE(CBuildingTable::GetBuildingIDFromName(u"main hall"_s), 12u);
    mount->Unmount();
    QCOMPARE(PlainIntegrityCheck(path), u"ok"_s);
}

void TestDatabaseFile::dateEncoding_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<double>("value");
    QTest::newRow("day zero") << QDateTime(QDate(1899, 12, 30), QTime(0, 0)) << 0.0;
    QTest::newRow("noon of day one") << QDateTime(QDate(1899, 12, 31), QTime(12, 0)) << 1.5;
    QTest::newRow("before day zero") << QDateTime(QDate(1899, 12, 29), QTime(18, 0)) << -0.25;
    QTest::newRow("2000") << QDateTime(QDate(2000, 1, 1), QTime(6, 0)) << 36526.25;
    QTest::newRow("leap day") << QDateTime(QDate(2024, 2, 29), QTime(0, 0)) << 45351.0;
    QTest::newRow("first day of year 1") << QDateTime(QDate(1, 1, 1), QTime(0, 0)) << -693593.0;
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

void TestDatabaseFile::unmountedFileHoldsEverything()
{
    TestDatabase db;
    Records::Course(QStringLiteral("Astronomy"));
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    QVERIFY(!QFile::exists(db.Path() + QStringLiteral("-journal")));
    QVERIFY(!QFile::exists(db.Path() + QStringLiteral("-wal")));

    const QString copy = db.Folder() + QStringLiteral("/copy.db");
    QVERIFY(QFile::copy(db.Path(), copy));
    QVERIFY(CDataTable::GetMount()->MountPath(copy));
    QCOMPARE(Records::Count("Course"), 1);
    CDataTable::GetMount()->Unmount();
}

QTEST_GUILESS_MAIN(TestDatabaseFile)
#include "tst_database.moc"
