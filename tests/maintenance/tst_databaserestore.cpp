// Backup and restore. A backup is a copy proven by quick_check, readable by
// its owner alone; a failed one leaves the target as it was. A file that is
// not a Brindle database this Brindle reads is refused before anything moves;
// a restore that fails half-way puts the old database back; restoring the
// database onto itself loses nothing.
#include "BrindleData.h"
#include "MaintenanceFiles.h"
#include "maintenance/DatabaseBackup.h"
#include "maintenance/DatabaseRestore.h"
#include "maintenance/DatabaseVolume.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// A Brindle database beside the test's own, with a course of the name and
// as many more as asked for.
QString BrindleFile(const TestDatabase& db, const QString& name, const QString& course,
                    int moreCourses = 0)
{
    const QString path = db.Folder() + u"/"_s + name;
    SetDatabasePath(path);
    if (!DatabaseVolume::Reopen().ok)
        return QString();
    {
        CTransaction transaction;
        Records::Course(course);
        for (int i = 0; i < moreCourses; ++i)
            Records::Course(u"Course %1"_s.arg(i));
        transaction.Commit();
    }
    DatabaseVolume::Release();
    SetDatabasePath(db.Path());
    return path;
}

QStringList CourseNames(const QString& path)
{
    return MaintenanceFiles::Dump(path).filter(QRegularExpression(u"^Course: "_s));
}

} // namespace

class TestDatabaseRestore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void suggestedName();
    void backupHoldsTheSameRecords();
    void backupFailureLeavesTheTargetAsItWas_data();
    void backupFailureLeavesTheTargetAsItWas();
    void replacesTheDatabase();
    void addsMissingTables();
    void refusesFilesItCannotUse_data();
    void refusesFilesItCannotUse();
    void failedStepPutsTheDatabaseBack_data();
    void failedStepPutsTheDatabaseBack();
    void restoringTheDatabaseItself_data();
    void restoringTheDatabaseItself();

private:
    // The database's bytes before the step, and a check that they are still
    // there, unchanged, and that Brindle opens them.
    void KeepOldDatabase();
    void VerifyOldDatabase();

    std::unique_ptr<TestDatabase> m_db;
    QByteArray m_oldHash;
};

void TestDatabaseRestore::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    Records::Course(u"Old Course"_s);
    DatabaseVolume::Release();
}

void TestDatabaseRestore::cleanup()
{
    m_db.reset();
}

void TestDatabaseRestore::KeepOldDatabase()
{
    m_oldHash = MaintenanceFiles::Hash(m_db->Path());
    QVERIFY(!m_oldHash.isEmpty());
}

void TestDatabaseRestore::VerifyOldDatabase()
{
    QCOMPARE(MaintenanceFiles::Hash(m_db->Path()), m_oldHash);
    QVERIFY(!QFileInfo::exists(DatabaseRestore::AsidePath(m_db->Path())));
    QVERIFY(!QFileInfo::exists(m_db->Path() + u".tmp"_s));
    QVERIFY(DatabaseVolume::Reopen().ok);
    QCOMPARE(Records::Count("Course"), 1);
    DatabaseVolume::Release();
}

void TestDatabaseRestore::suggestedName()
{
    QCOMPARE(DatabaseBackup::SuggestedName(QDate(2005, 7, 4)), u"Brindle 7-4-2005.db"_s);
    QCOMPARE(DatabaseBackup::SuggestedName(QDate(987, 12, 31)), u"Brindle 12-31-987.db"_s);
}

void TestDatabaseRestore::backupHoldsTheSameRecords()
{
    const TestDatabase& db = *m_db;
    QVERIFY(DatabaseVolume::Reopen().ok);
    const quint32 course = Records::Course(u"Geology"_s);
    Records::Coursework(course, Records::CwType(course, u"Lab"_s), u"Core samples"_s, 8, 10);
    Records::Semester(u"Spring 2025"_s);
    DatabaseVolume::Release();

    // An older backup of the same name is replaced; the user asked for it.
    const QString target = db.Folder() + u"/Brindle 1-1-2006.db"_s;
    QVERIFY(MaintenanceFiles::Write(target, "an older backup"));
    QVERIFY(QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                              QFileDevice::ReadOther));

    const MaintenanceResult result = DatabaseBackup::Backup(db.Path(), target);
    QVERIFY2(result.ok, qPrintable(result.reason));
    QCOMPARE(MaintenanceFiles::Dump(target), MaintenanceFiles::Dump(db.Path()));
    QVERIFY(MaintenanceFiles::Dump(target).join(u'\n').contains(u"Core samples"_s));
    QCOMPARE(QFileInfo(target).permissions(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ReadUser | QFileDevice::WriteUser);
    QVERIFY(!QFileInfo::exists(target + u".tmp"_s));

    // Brindle itself opens the copy.
    SetDatabasePath(target);
    QVERIFY(DatabaseVolume::Reopen().ok);
    QCOMPARE(Records::Count("Coursework"), 1);
    DatabaseVolume::Release();
    SetDatabasePath(db.Path());
}

void TestDatabaseRestore::backupFailureLeavesTheTargetAsItWas_data()
{
    QTest::addColumn<QByteArray>("database");
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("reasonPart");
    QTest::newRow("database is not one")
        << QByteArray("plain text") << QString() << u"not a database"_s;
    QTest::newRow("database from another program")
        << QByteArray("foreign") << QString() << u"another program"_s;
    QTest::newRow("file at the temporary path") << QByteArray() << u"file"_s << u"in the way"_s;
    QTest::newRow("folder at the temporary path") << QByteArray() << u"folder"_s << u"in the way"_s;
}

void TestDatabaseRestore::backupFailureLeavesTheTargetAsItWas()
{
    QFETCH(QByteArray, database);
    QFETCH(QString, obstacle);
    QFETCH(QString, reasonPart);
    const TestDatabase& db = *m_db;
    if (database == "foreign") {
        QVERIFY(QFile::remove(db.Path()));
        QVERIFY(MaintenanceFiles::Execute(db.Path(), "CREATE TABLE Photos (id INTEGER)"));
    } else if (!database.isEmpty()) {
        QVERIFY(MaintenanceFiles::Write(db.Path(), database));
    }
    const QString target = db.Folder() + u"/backup.db"_s;
    const QString temporary = target + u".tmp"_s;
    QVERIFY(MaintenanceFiles::Write(target, "the backup of last week"));
    if (obstacle == u"file"_s)
        QVERIFY(MaintenanceFiles::Write(temporary, "someone else's"));
    else if (obstacle == u"folder"_s)
        QVERIFY(QDir().mkdir(temporary));

    const MaintenanceResult result = DatabaseBackup::Backup(db.Path(), target);
    QVERIFY(!result.ok);
    QVERIFY2(result.reason.contains(reasonPart), qPrintable(result.reason));
    QCOMPARE(MaintenanceFiles::Read(target), QByteArray("the backup of last week"));
    if (obstacle == u"file"_s)
        QCOMPARE(MaintenanceFiles::Read(temporary), QByteArray("someone else's"));
    else
        QCOMPARE(QFileInfo::exists(temporary), obstacle == u"folder"_s);
}

void TestDatabaseRestore::replacesTheDatabase()
{
    const QString chosen = BrindleFile(*m_db, u"Brindle 5-2-2025.db"_s, u"New Course"_s);
    QVERIFY(!chosen.isEmpty());
    const QByteArray chosenHash = MaintenanceFiles::Hash(chosen);

    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    QVERIFY2(result.ok, qPrintable(result.reason));
    QVERIFY(result.reason.isEmpty());
    QVERIFY(!CDataTable::GetMount()->IsMounted());
    QCOMPARE(CourseNames(m_db->Path()).size(), 1);
    QVERIFY(CourseNames(m_db->Path()).constFirst().contains(u"New Course"_s));
    QCOMPARE(MaintenanceFiles::Hash(chosen), chosenHash);
    QVERIFY(!QFileInfo::exists(DatabaseRestore::AsidePath(m_db->Path())));
    QVERIFY(!QFileInfo::exists(m_db->Path() + u".tmp"_s));
}

void TestDatabaseRestore::addsMissingTables()
{
    const QString chosen = BrindleFile(*m_db, u"partial.db"_s, u"New Course"_s);
    QVERIFY(MaintenanceFiles::Execute(chosen, "DROP TABLE Building; DROP TABLE ViewTab; "
                                              "DELETE FROM AppState"));

    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    QVERIFY2(result.ok, qPrintable(result.reason));
    QVERIFY(DatabaseVolume::Reopen().ok);
    QCOMPARE(Records::Count("Building"), 0);
    QCOMPARE(Records::Count("ViewTab"), 4);
    QCOMPARE(Records::Count("AppState"), 1);
    QCOMPARE(Records::Count("Course"), 1);
    DatabaseVolume::Release();
}

void TestDatabaseRestore::refusesFilesItCannotUse_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reasonPart");
    QTest::newRow("text") << u"text"_s << u"is not a database"_s;
    QTest::newRow("zero bytes") << u"empty"_s << u"is empty"_s;
    QTest::newRow("truncated") << u"truncated"_s << u"damaged"_s;
    QTest::newRow("another program's") << u"foreign"_s << u"another program"_s;
    QTest::newRow("no tables") << u"blank"_s << u"another program"_s;
    QTest::newRow("newer schema") << u"newer"_s << u"newer version"_s;
    QTest::newRow("damaged page") << u"damaged"_s << u"damaged"_s;
    QTest::newRow("folder") << u"folder"_s << u"cannot be read"_s;
}

void TestDatabaseRestore::refusesFilesItCannotUse()
{
    QFETCH(QString, kind);
    QFETCH(QString, reasonPart);
    QString chosen = m_db->Folder() + u"/chosen.db"_s;
    if (kind == u"text"_s) {
        QVERIFY(MaintenanceFiles::Write(chosen, "Course,Grade\nBotany,A\n"));
    } else if (kind == u"empty"_s) {
        QVERIFY(MaintenanceFiles::Write(chosen, QByteArray()));
    } else if (kind == u"foreign"_s) {
        QVERIFY(MaintenanceFiles::Execute(chosen, "CREATE TABLE Songs (title TEXT)"));
    } else if (kind == u"blank"_s) {
        QVERIFY(MaintenanceFiles::Execute(chosen, "PRAGMA user_version = 0; VACUUM"));
    } else if (kind == u"folder"_s) {
        QVERIFY(QDir().mkdir(chosen));
    } else {
        // Enough pages that a cut or a damaged page hits the records.
        chosen = BrindleFile(*m_db, u"chosen.db"_s, u"Other Course"_s, 200);
        if (kind == u"newer"_s) {
            QVERIFY(MaintenanceFiles::Execute(chosen, "PRAGMA user_version = 1000"));
        } else {
            QByteArray bytes = MaintenanceFiles::Read(chosen);
            QVERIFY(bytes.size() > 8192);
            if (kind == u"truncated"_s)
                bytes.truncate(bytes.size() / 2 + 100);
            else
                bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, '\x5a'));
            QVERIFY(MaintenanceFiles::Write(chosen, bytes));
        }
    }
    KeepOldDatabase();

    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    QVERIFY(!result.ok);
    QVERIFY2(result.reason.contains(reasonPart), qPrintable(result.reason));
    QVERIFY2(result.reason.contains(chosen), qPrintable(result.reason));
    VerifyOldDatabase();
}

void TestDatabaseRestore::failedStepPutsTheDatabaseBack_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("file at the temporary path") << u"temporary"_s;
    QTest::newRow("folder at the temporary path") << u"temporary folder"_s;
    QTest::newRow("file at the .db2 path") << u"aside"_s;
    QTest::newRow("read-only folder") << u"read-only"_s;
    QTest::newRow("tables cannot be made") << u"trigger"_s;
}

void TestDatabaseRestore::failedStepPutsTheDatabaseBack()
{
    QFETCH(QString, obstacle);
    QString chosen = BrindleFile(*m_db, u"chosen.db"_s, u"New Course"_s);
    const QString temporary = m_db->Path() + u".tmp"_s;
    const QString aside = DatabaseRestore::AsidePath(m_db->Path());
    QString standing;
    if (obstacle == u"temporary"_s)
        standing = temporary;
    else if (obstacle == u"aside"_s)
        standing = aside;
    if (!standing.isEmpty())
        QVERIFY(MaintenanceFiles::Write(standing, "not Brindle's"));
    if (obstacle == u"temporary folder"_s)
        QVERIFY(QDir().mkdir(temporary));
    if (obstacle == u"trigger"_s) {
        // Passes every check, but CreateDatabase cannot write its default state.
        QVERIFY(MaintenanceFiles::Execute(
            chosen, "DELETE FROM AppState; CREATE TRIGGER NoState BEFORE INSERT ON AppState "
                    "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    }
    if (obstacle == u"read-only"_s) {
        if (::geteuid() == 0)
            QSKIP("root writes into a read-only folder");
        QFile::setPermissions(m_db->Folder(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    }
    KeepOldDatabase();

    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    QFile::setPermissions(m_db->Folder(),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    QVERIFY(!result.ok);
    QVERIFY(!result.reason.isEmpty());
    if (!standing.isEmpty()) {
        QCOMPARE(MaintenanceFiles::Read(standing), QByteArray("not Brindle's"));
        QVERIFY(QFile::remove(standing));
    }
    if (obstacle == u"temporary folder"_s)
        QVERIFY(QDir().rmdir(temporary));
    VerifyOldDatabase();
}

void TestDatabaseRestore::restoringTheDatabaseItself_data()
{
    QTest::addColumn<QString>("spelling");
    QTest::newRow("its own path") << u"same"_s;
    QTest::newRow("through its folder again") << u"dotted"_s;
    QTest::newRow("through a link") << u"link"_s;
}

void TestDatabaseRestore::restoringTheDatabaseItself()
{
    QFETCH(QString, spelling);
    const QStringList before = MaintenanceFiles::Dump(m_db->Path());
    QString chosen = m_db->Path();
    if (spelling == u"dotted"_s) {
        chosen =
            m_db->Folder() + u"/./../"_s + QFileInfo(m_db->Folder()).fileName() + u"/Brindle.db"_s;
    } else if (spelling == u"link"_s) {
        chosen = m_db->Folder() + u"/link.db"_s;
        QVERIFY(QFile::link(m_db->Path(), chosen));
    }

    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    QVERIFY2(result.ok, qPrintable(result.reason));
    QCOMPARE(MaintenanceFiles::Dump(m_db->Path()), before);
    QVERIFY(!QFileInfo::exists(DatabaseRestore::AsidePath(m_db->Path())));
}

QTEST_GUILESS_MAIN(TestDatabaseRestore)
#include "tst_databaserestore.moc"
