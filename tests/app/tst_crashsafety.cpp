// Start-up and crash safety: the installation folder's upgrade marker and
// one-shot helper, opening a database file that cannot be used, and the demo
// database. brindle_kill_harness saves dialog-sized changes in a loop and is
// killed with SIGKILL at random moments; after every kill Brindle's own open
// must succeed without a word, the file must pass integrity_check, and every
// save must be whole: each course with its order row, its policy, its types,
// the times and books its save wrote and the grade of its coursework.
// Checked against: new files without their 0600 mode (fails under every umask);
// a lock file left empty by a killed start taken as a live one;
// the newer-version check dropped (the file is opened and changed);
// RemoveCourse committing as it starts (17 partial saves); RecomputeCourseGrade
// not writing the grade.
#include "BrindleData.h"
#include "app/CourseworkListFill.h"
#include "app/DatabaseOpener.h"
#include "app/DemoDatabase.h"
#include "app/Startup.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"
#include "support/DatabaseFiles.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

#include <sqlite3.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {
using DatabaseFiles::Read;
using DatabaseFiles::Write;

// Every file of a folder with its bytes (a folder as "dir").
QMap<QString, QByteArray> Contents(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    for (const QFileInfo& info :
         QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
        contents.insert(info.fileName(), info.isDir() ? QByteArray("dir") : Read(info.filePath()));
    return contents;
}

int Mode(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777)
                                                                     : -1;
}

void CloseDatabase()
{
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
}

// A Brindle database holding one course, closed again.
bool MakeBrindleFile(const QString& path)
{
    CCeMount* mount = CDataTable::GetMount();
    const bool ok = mount->MountPath(path) && CreateDatabase() && Records::Course(u"Before"_s) != 0;
    mount->Unmount();
    return ok;
}

// The files a crash in the middle of a large change leaves: the database
// already holding some of the new pages, and the journal that undoes them.
bool MakeCrashedFile(const QString& path)
{
    const QString source = path + u".source"_s;
    if (!MakeBrindleFile(source))
        return false;
    const QByteArray before = Read(source);
    sqlite3* db = nullptr;
    bool ok = sqlite3_open(source.toUtf8().constData(), &db) == SQLITE_OK &&
              sqlite3_exec(db,
                           "PRAGMA cache_size = 4; BEGIN;"
                           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                           "WHERE i < 3000) INSERT INTO Course (CourseName) "
                           "SELECT hex(randomblob(60)) FROM n;",
                           nullptr, nullptr, nullptr) == SQLITE_OK;
    // Copied while the change is half written, as a crash would leave them.
    ok = ok && Read(source) != before && QFile::copy(source, path) &&
         QFile::copy(source + u"-journal"_s, path + u"-journal"_s);
    sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    QFile::remove(source);
    return ok;
}

// Saves that stopped half way: rows of a course that is gone, and courses
// without exactly what one whole save of each kind leaves. The harness writes
// "times=N books=M" into a new course's details; a policy save moves every
// minimum percent and every type weight by one offset.
const char PartialSaves[] = R"(
WITH owned(kind, course, value) AS (
  SELECT 'order', CourseID, 0 FROM CourseOrder UNION ALL
  SELECT 'policy', CourseID, 0 FROM GradingPolicy UNION ALL
  SELECT 'minimum', CourseID, CAST(100.0 - (Grade + 1) * (40.0 / (SELECT count(*) FROM GradeScale))
         AS INTEGER) - MinimumPercent FROM GradingPolicyGrade UNION ALL
  SELECT 'type', CourseID, Weight FROM CwType UNION ALL
  SELECT 'typeorder', CourseID, 0 FROM CwTypeOrder UNION ALL
  SELECT 'work', CourseID, 0 FROM Coursework UNION ALL
  SELECT 'time', ForeignRecordID, 0 FROM Time UNION ALL
  SELECT 'book', CourseID, 0 FROM Textbook UNION ALL
  SELECT 'bookorder', CourseID, 0 FROM TextbookOrder),
per AS (
  SELECT course, sum(kind = 'order') AS orders, sum(kind = 'policy') AS policies,
         sum(kind = 'minimum') AS minimums, sum(kind = 'type') AS types,
         sum(kind = 'typeorder') AS typeorders, sum(kind = 'time') AS times,
         sum(kind = 'book') AS books, sum(kind = 'bookorder') AS bookorders,
         count(DISTINCT CASE WHEN kind IN ('minimum', 'type') THEN value END) AS offsets
  FROM owned GROUP BY course)
SELECT (SELECT count(*) FROM owned WHERE course NOT IN (SELECT id FROM Course)) +
  (SELECT count(*) FROM Course c LEFT JOIN per p ON p.course = c.id WHERE (
     orders = 1 AND policies = 1 AND minimums = (SELECT count(*) FROM GradeScale) AND
     types >= 1 AND typeorders = types AND bookorders = books AND offsets = 1 AND
     times = CAST(substr(Details, instr(Details, 'times=') + 6, 1) AS INTEGER) AND
     books = CAST(substr(Details, instr(Details, 'books=') + 6, 1) AS INTEGER) AND
     abs(CurrentGrade - coalesce((SELECT sum(Score) / sum(Possible) FROM Coursework
                                  WHERE Score >= 0 AND CourseID = c.id), -1.0)) < 1e-9
   ) IS NOT 1))";

// What a counting query answers; -1 when it fails.
qint64 Count(const char* sql)
{
    bool ok = false;
    const qint64 count = CDataTable::GetMount()->Scalar(sql, &ok);
    return ok ? count : -1;
}

} // namespace

class TestCrashSafety : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_savedBusyTimeout = CCeMount::BusyTimeout();
        CCeMount::SetBusyTimeout(100);
        m_savedInstallDir = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", m_install.path().toUtf8());
    }

    void cleanup()
    {
        CCeMount::SetBusyTimeout(m_savedBusyTimeout);
        SetDatabasePath(QString());
        qputenv("BRINDLE_INSTALL_DIR", m_savedInstallDir);
        QFile::remove(m_install.filePath(u"BrindleUpgrade.dll"_s));
        QFile::remove(m_install.filePath(u"SetSecurity.exe"_s));
    }

    void installationSteps_data()
    {
        QTest::addColumn<bool>("marker");
        QTest::addColumn<bool>("helper");
        QTest::addColumn<bool>("helperStarts");
        QTest::newRow("nothing there") << false << false << false;
        QTest::newRow("marker only") << true << false << false;
        QTest::newRow("helper that starts") << false << true << true;
        QTest::newRow("helper that fails to start") << true << true << false;
    }
    void installationSteps()
    {
        QFETCH(bool, marker);
        QFETCH(bool, helper);
        QFETCH(bool, helperStarts);
        TestDatabase db;
        QVERIFY(db.IsReady());
        const QString markerPath = m_install.filePath(u"BrindleUpgrade.dll"_s);
        const QString helperPath = m_install.filePath(u"SetSecurity.exe"_s);
        if (marker)
            QVERIFY(Write(markerPath, "x"));
        if (helper)
            QVERIFY(Write(helperPath, "x"));
        // Missing tabs stand for what an upgrade has to add: only the marker's
        // CreateDatabase brings them back.
        QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM ViewTab"));

        QStringList started;
        CStartup startup([&](const QString& program) {
            started << program;
            return helperStarts;
        });
        const CStartup::Result result = startup.RunInstallationSteps();

        QCOMPARE(result.upgradeMarkerFound, marker);
        QCOMPARE(Records::Count("ViewTab"), marker ? 4 : 0);
        QVERIFY(QFile::exists(markerPath) == marker); // the marker stays
        QCOMPARE(started, helper ? QStringList{helperPath} : QStringList{});
        QCOMPARE(result.helperStarted, helper && helperStarts);
        QCOMPARE(result.helperDeleted, helper);
        QVERIFY(!QFile::exists(helperPath));
    }

    void fileMatrix_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("opens");
        QTest::addColumn<bool>("offersSettingAside");

        QTest::newRow("zero bytes") << QByteArray("empty") << true << false;
        QTest::newRow("hot journal beside a good file") << QByteArray("crashed") << true << false;
        QTest::newRow("truncated to 100 bytes") << QByteArray("cut 100") << false << true;
        QTest::newRow("truncated to half") << QByteArray("cut half") << false << true;
        QTest::newRow("zero-filled") << QByteArray("zeros") << false << true;
        QTest::newRow("text file") << QByteArray("text") << false << true;
        QTest::newRow("another program's SQLite file") << QByteArray("foreign") << false << true;
        QTest::newRow("newer Brindle") << QByteArray("newer") << false << true;
        QTest::newRow("locked by another program") << QByteArray("locked") << false << false;
        QTest::newRow("folder at the file's path") << QByteArray("folder") << false << false;
        QTest::newRow("read-only file in a read-only folder")
            << QByteArray("read-only") << false << false;
        QTest::newRow("a view in the way of the tables") << QByteArray("view") << false << false;
    }
    void fileMatrix()
    {
        QFETCH(QByteArray, kind);
        QFETCH(bool, opens);
        QFETCH(bool, offersSettingAside);
        QTemporaryDir dir;
        const QString folder = dir.filePath(u"data"_s);
        QVERIFY(QDir().mkdir(folder));
        const QString path = folder + u"/Brindle.db"_s;
        QString expected; // a reason the message must give
        sqlite3* locker = nullptr;

        if (kind == "empty") {
            QVERIFY(Write(path, {}));
        } else if (kind == "zeros" || kind == "text") {
            QVERIFY(Write(path, kind == "text" ? "Latin: Tuesdays\nBotany: Fridays\n"
                                               : QByteArray(8192, '\0')));
            expected = StoreStrings::NotADatabase(path);
        } else if (kind == "crashed") {
            QVERIFY(MakeCrashedFile(path));
        } else if (kind.startsWith("cut")) {
            QVERIFY(MakeBrindleFile(path));
            QFile file(path);
            QVERIFY(file.resize(kind == "cut half" ? file.size() / 2 : 100));
        } else if (kind == "foreign") {
            QVERIFY(DatabaseFiles::Execute(
                path, "CREATE TABLE notes (body TEXT); INSERT INTO notes VALUES ('x');"));
            expected = StoreStrings::NotABrindleDatabase(path);
        } else if (kind == "newer") {
            QVERIFY(MakeBrindleFile(path));
            QVERIFY(DatabaseFiles::Execute(path, "PRAGMA user_version = 99;"));
            expected = StoreStrings::NewerDatabase(path);
        } else if (kind == "locked") {
            QVERIFY(MakeBrindleFile(path));
            QCOMPARE(sqlite3_open(path.toUtf8().constData(), &locker), SQLITE_OK);
            QCOMPARE(sqlite3_exec(locker, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
            expected = StoreStrings::DatabaseInUse(path);
        } else if (kind == "folder") {
            QVERIFY(QDir().mkdir(path));
            expected = StoreStrings::PathIsFolder(path);
        } else if (kind == "read-only") {
            QVERIFY(MakeBrindleFile(path));
            QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
            QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
            expected = StoreStrings::NotWritable(path);
        } else if (kind == "view") {
            QVERIFY(MakeBrindleFile(path));
            QVERIFY(DatabaseFiles::Execute(
                path, "DROP TABLE ViewTab; CREATE VIEW ViewTab AS SELECT 1 AS id;"));
            expected = StoreStrings::CannotCreateTables(path, QString()); // and SQLite's reason
        }
        const QMap<QString, QByteArray> before = Contents(folder);

        SetDatabasePath(path);
        MessageAnswers answers({QMessageBox::No});
        bool opened = false;
        {
            CDatabaseOpener opener(true);
            opened = opener.Open();
            if (opened) {
                QVERIFY(answers.Texts().isEmpty());
                QCOMPARE(Records::Count("Course"), kind == "crashed" ? 1 : 0);
                QVERIFY(!QFile::exists(path + u"-journal"_s));
                CloseDatabase();
            } else {
                QCOMPARE(answers.Texts().size(), 1);
                QVERIFY(opener.ErrorText().contains(path));
                QVERIFY2(opener.ErrorText().startsWith(expected), qPrintable(opener.ErrorText()));
                QVERIFY(kind != "view" || opener.ErrorText().size() > expected.size());
                QCOMPARE(answers.Texts().first(),
                         offersSettingAside ? AppStrings::DatabaseUnusable(opener.ErrorText())
                                            : AppStrings::DatabaseSetAside(opener.ErrorText()));
                QVERIFY(!CDataTable::GetMount()->IsMounted());
            }
        }
        if (locker) {
            sqlite3_exec(locker, "ROLLBACK", nullptr, nullptr, nullptr);
            sqlite3_close(locker);
        }
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(opened, opens);
        // Nothing that was not opened changed, and nothing was added beside it.
        // (A view in the way of the tables once caught the mount reserving
        // record ids before the upgrade failed.)
        if (!opened)
            QCOMPARE(Contents(folder), before);
    }

    void newFileIsPrivateAndOpenOnce_data()
    {
        QTest::addColumn<int>("umask");
        QTest::newRow("umask 000") << 0;
        QTest::newRow("umask 022") << 022;
        QTest::newRow("umask 277") << 0277;
    }
    // A new database and its folders are the user's alone; while it is open,
    // a second window is turned away and the first one's database stays open.
    void newFileIsPrivateAndOpenOnce()
    {
        QFETCH(int, umask);
        QTemporaryDir dir;
        const QString folder = dir.filePath(u"Brindle"_s);
        const QString path = folder + u"/semesters/Brindle.db"_s;
        SetDatabasePath(path);
        const mode_t saved = ::umask(mode_t(umask));
        MessageAnswers answers;
        {
            CDatabaseOpener first(false);
            const bool opened = first.Open();
            ::umask(saved);
            QVERIFY(opened);
            QVERIFY(answers.Texts().isEmpty());
            QCOMPARE(Records::Count("ViewTab"), 4);
            CDatabaseOpener second(true);
            QVERIFY(!second.Open());
            QCOMPARE(second.ErrorText(), StoreStrings::DatabaseOpenElsewhere(path));
            QCOMPARE(answers.Texts(),
                     QStringList{AppStrings::DatabaseSetAside(second.ErrorText())});
            QVERIFY(CDataTable::GetMount()->IsMounted());
            CloseDatabase();
        }
        QCOMPARE(Mode(path), 0600);
        QCOMPARE(Mode(folder + u"/semesters"_s), 0700);
        QCOMPARE(Mode(folder), 0700);
        for (const QByteArray& lockLeft : {QByteArray(), QByteArray("left empty")}) {
            // The first window let go; a start killed while it made its lock
            // left one that names no owner.
            if (!lockLeft.isNull())
                QVERIFY(Write(path + u".lock"_s, ""));
            CDatabaseOpener later(true);
            QVERIFY(later.Open());
            QCOMPARE(answers.Texts().size(), 1); // only the second window's
            CloseDatabase();
        }
    }

    // An unusable file the user agrees to set aside goes whole, with its journal and its mode.
    void unusableDatabaseIsSetAside()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"Brindle.db"_s);
        QVERIFY(Write(path, "not a database at all"));
        QVERIFY(Write(path + u"-journal"_s, "its journal"));
        QVERIFY(
            QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        SetDatabasePath(path);
        MessageAnswers answers({QMessageBox::Yes});
        CDatabaseOpener opener(true);
        QVERIFY(opener.Open());
        const QString kept = opener.SetAsidePath();
        QCOMPARE(Mode(kept), 0640);
        QCOMPARE(Read(kept), QByteArray("not a database at all"));
        QCOMPARE(Read(kept + u"-journal"_s), QByteArray("its journal"));
        // The new database starts clean, with no journal of another file.
        QCOMPARE(Records::Count("ViewTab"), 4);
        QVERIFY(!QFile::exists(path + u"-journal"_s));
        CloseDatabase();
    }

    void demoDatabase_data()
    {
        QTest::addColumn<DemoSize>("size");
        QTest::newRow("default") << DemoSize();
        QTest::newRow("uneven split") << DemoSize{4, 11, 301, 3, 40};
        QTest::newRow("no archive") << DemoSize{1, 2, 10, 2, 10};
    }
    // The sizes the benchmark asks for; the default demo looks like a real
    // student's: graded, open, done and overdue items, grades computed, what
    // the editors show.
    void demoDatabase()
    {
        QFETCH(DemoSize, size);
        TestDatabase db;
        QVERIFY(db.IsReady());
        const QDate today(2024, 10, 9);
        QVERIFY(BuildDemoDatabase(today, size));
        QCOMPARE(CAppStateTable::Instance().GetCurrentSemesterID(), WorkingSemesterID);
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), AllCoursesID);
        QCOMPARE(Records::Count("Semester"), size.semesters - 1);
        QCOMPARE(Records::Count("Course"), size.courses);
        QCOMPARE(Records::Count("Coursework"), size.coursework);
        const std::vector<quint32> working = GetSemesterCourses(WorkingSemesterID);
        QCOMPARE(working.size(), size_t(size.workingCourses));

        CourseworkFilter filter;
        filter.courseId = AllCoursesID;
        filter.showDone = true;
        filter.now = QDateTime(today, QTime(12, 0));
        int items = 0, graded = 0, overdue = 0, done = 0;
        for (const CourseworkRow& row : FillCourseworkRows(filter)) {
            items += !row.isHeader;
            graded += !row.isHeader && row.score >= 0.0;
            overdue += row.overdue;
            done += !row.isHeader && row.completed >= 100;
        }
        QCOMPARE(items, size.workingCoursework);
        if (QTest::currentDataTag() != QByteArrayLiteral("default"))
            return;
        QVERIFY(graded > 5 && items - graded > 5 && done > 5 && overdue >= 1);
        // Every working course graded between 50 and 100 %, in a building, with hours.
        QCOMPARE(CDataTable::GetMount()->Scalar(
                     "SELECT count(*) FROM Course JOIN CourseOrder ON CourseID = Course.id "
                     "WHERE SemesterID = 0 AND CurrentGrade > 0.5 AND CurrentGrade <= 1.0 AND "
                     "BuildingID <> 0 AND CourseHours > 0"),
                 qint64(working.size()));
        QVERIFY(Records::Count("CourseInstructor") >= 9);
        QVERIFY(Records::Count("Textbook") >= 9);
        QVERIFY(Records::Count("Time") >= 9 + 5); // meeting times and office hours
    }

    void everySaveIsWholeAfterAKill()
    {
        const QString harness = QCoreApplication::applicationDirPath() + u"/brindle_kill_harness"_s;
        QVERIFY2(QFileInfo::exists(harness), qPrintable(harness));
        QTemporaryDir dir;
        const QString path = dir.filePath(u"Brindle.db"_s);
        SetDatabasePath(path);

        constexpr int Kills = 200;
        QRandomGenerator random(20241123);
        qint64 saves = 0;
        int mayHaveNoSave = 0; // runs killed before they were seen to save
        for (int kill = 0; kill < Kills; ++kill) {
            QProcess process;
            process.start(harness, {path, QString::number(random.generate())});
            QVERIFY(process.waitForStarted());
            QByteArray output;
            // One kill in ten lands while the harness opens (and upgrades) the
            // file, four once it is ready, half after its first save landed.
            const int moment = random.bounded(10);
            const QByteArray awaited =
                moment == 0 ? QByteArray() : QByteArray(moment < 5 ? "ready" : "ready\n.");
            while (!output.contains(awaited) && process.waitForReadyRead(10000))
                output += process.readAllStandardOutput();
            QVERIFY2(output.contains(awaited), process.readAllStandardError().constData());
            mayHaveNoSave += !awaited.contains('.');
            QThread::usleep(random.bounded(0, 25000));
            process.kill();
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            saves += QByteArray(output + process.readAllStandardOutput()).count('.');

            MessageAnswers answers; // any message at all is a failure
            CDatabaseOpener opener(true);
            QVERIFY2(opener.Open() && answers.Texts().isEmpty(),
                     qPrintable(opener.ErrorText() + answers.Texts().join(u'\n')));
            QCOMPARE(
                Count("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
                qint64(0));
            QCOMPARE(Count(PartialSaves), qint64(0));
            CAppStateTable::Instance().Close();
            CDataTable::GetMount()->Unmount();
        }
        SetDatabasePath(QString());
        qInfo("kills=%d saves=%lld", Kills, saves);
        QVERIFY(saves >= Kills - mayHaveNoSave);
    }

private:
    int m_savedBusyTimeout = 0;
    QTemporaryDir m_install;
    QByteArray m_savedInstallDir;
};

QTEST_MAIN(TestCrashSafety)
#include "tst_crashsafety.moc"
