// Start-up: the installation folder's upgrade marker and one-shot helper, and
// opening a database file that cannot be used.
#include "BrindleData.h"
#include "app/DatabaseOpener.h"
#include "app/Startup.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {
bool Touch(const QString& path, const QByteArray& bytes = "x")
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void installationSteps_data();
    void installationSteps();
    void unusableDatabaseIsKeptWhenTheUserSaysNo();
    void unusableDatabaseIsSetAsideWhenTheUserAgrees();
    void freshPathGetsANewDatabase();

private:
    QTemporaryDir m_install;
    QByteArray m_savedInstallDir;
};

void TestStartup::init()
{
    m_savedInstallDir = qgetenv("BRINDLE_INSTALL_DIR");
    qputenv("BRINDLE_INSTALL_DIR", m_install.path().toUtf8());
}

void TestStartup::cleanup()
{
    qputenv("BRINDLE_INSTALL_DIR", m_savedInstallDir);
    QFile::remove(m_install.filePath(u"BrindleUpgrade.dll"_s));
    QFile::remove(m_install.filePath(u"SetSecurity.exe"_s));
}

void TestStartup::installationSteps_data()
{
    QTest::addColumn<bool>("marker");
    QTest::addColumn<bool>("helper");
    QTest::addColumn<bool>("helperStarts");
    QTest::newRow("nothing there") << false << false << false;
    QTest::newRow("marker only") << true << false << false;
    QTest::newRow("helper that starts") << false << true << true;
    QTest::newRow("helper that fails to start") << true << true << false;
}

void TestStartup::installationSteps()
{
    QFETCH(bool, marker);
    QFETCH(bool, helper);
    QFETCH(bool, helperStarts);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const QString markerPath = m_install.filePath(u"BrindleUpgrade.dll"_s);
    const QString helperPath = m_install.filePath(u"SetSecurity.exe"_s);
    if (marker)
        QVERIFY(Touch(markerPath));
    if (helper)
        QVERIFY(Touch(helperPath));
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

void TestStartup::unusableDatabaseIsKeptWhenTheUserSaysNo()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Brindle.db"_s);
    QVERIFY(Touch(path, "not a database at all"));
    SetDatabasePath(path);
    MessageAnswers answers({QMessageBox::No});

    CDatabaseOpener opener(true);
    QVERIFY(!opener.Open());
    QCOMPARE(answers.Texts().size(), 1);
    QVERIFY(answers.Texts().first().contains(path));
    QVERIFY(opener.ErrorText().contains(path));
    QVERIFY(!CDataTable::GetMount()->IsMounted());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("not a database at all"));
    SetDatabasePath(QString());
}

void TestStartup::unusableDatabaseIsSetAsideWhenTheUserAgrees()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Brindle.db"_s);
    QVERIFY(Touch(path, "not a database at all"));
    SetDatabasePath(path);
    MessageAnswers answers({QMessageBox::Yes});

    CDatabaseOpener opener(true);
    QVERIFY(opener.Open());
    QVERIFY(!opener.SetAsidePath().isEmpty());
    QFile kept(opener.SetAsidePath());
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("not a database at all"));
    QCOMPARE(Records::Count("ViewTab"), 4);

    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    SetDatabasePath(QString());
}

void TestStartup::freshPathGetsANewDatabase()
{
    QTemporaryDir dir;
    SetDatabasePath(dir.filePath(u"Brindle.db"_s));
    MessageAnswers answers;
    CDatabaseOpener opener(false);
    QVERIFY(opener.Open());
    QVERIFY(answers.Texts().isEmpty());
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), AllCoursesID);
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    SetDatabasePath(QString());
}

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
