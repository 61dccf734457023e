// Backup: the suggested name, a proven copy with the same records, and
// failures that leave what the user had in place.
#include "BrindleData.h"
#include "MaintenanceFiles.h"
#include "maintenance/DatabaseBackup.h"
#include "maintenance/DatabaseVolume.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestDatabaseBackup : public QObject
{
    Q_OBJECT

private slots:
    void suggestedName_data();
    void suggestedName();
    void copyHoldsTheSameRecords();
    void failureLeavesTheTargetAsItWas_data();
    void failureLeavesTheTargetAsItWas();
};

void TestDatabaseBackup::suggestedName_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("name");
    QTest::newRow("new year") << QDate(2006, 1, 1) << u"Brindle 1-1-2006.db"_s;
    QTest::newRow("month before day") << QDate(2005, 7, 4) << u"Brindle 7-4-2005.db"_s;
    QTest::newRow("two digits each") << QDate(2024, 12, 31) << u"Brindle 12-31-2024.db"_s;
    QTest::newRow("short year") << QDate(987, 3, 9) << u"Brindle 3-9-987.db"_s;
}

void TestDatabaseBackup::suggestedName()
{
    QFETCH(QDate, date);
    QFETCH(QString, name);
    QCOMPARE(DatabaseBackup::SuggestedName(date), name);
}

void TestDatabaseBackup::copyHoldsTheSameRecords()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
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
}

void TestDatabaseBackup::failureLeavesTheTargetAsItWas_data()
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

void TestDatabaseBackup::failureLeavesTheTargetAsItWas()
{
    QFETCH(QByteArray, database);
    QFETCH(QString, obstacle);
    QFETCH(QString, reasonPart);
    TestDatabase db;
    QVERIFY(db.IsReady());
    DatabaseVolume::Release();
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

QTEST_GUILESS_MAIN(TestDatabaseBackup)
#include "tst_databasebackup.moc"
