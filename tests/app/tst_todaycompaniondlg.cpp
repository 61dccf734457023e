// "Start the Today companion at log-in": the entry copied into the user's
// autostart folder and removed again, and a missing entry refused.
#include "app/TodayAutostart.h"
#include "app/TodayCompanionDlg.h"
#include "support/MessageAnswers.h"

#include <QCheckBox>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestTodayCompanionDlg : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_config = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", m_config->path().toUtf8());
    }

    void tickAndClear()
    {
        QFile installed(TodayAutostart::InstalledEntry());
        QVERIFY2(installed.open(QIODevice::ReadOnly), qPrintable(installed.fileName()));
        const QByteArray entry = installed.readAll();

        TodayCompanionDlg on;
        QVERIFY(!on.StartAtLogin());
        on.findChild<QCheckBox*>(QStringLiteral("startAtLoginBox"))->click();
        QVERIFY(on.OnOK());
        QFile copy(TodayAutostart::UserEntry());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), entry);
        QVERIFY(copy.fileName().startsWith(m_config->path()));

        TodayCompanionDlg off;
        QVERIFY(off.StartAtLogin());
        off.SetStartAtLogin(false);
        QVERIFY(off.OnOK());
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));
    }

    void missingEntryIsRefused()
    {
        QTemporaryDir emptyInstall;
        const QByteArray saved = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", emptyInstall.path().toUtf8());
        MessageAnswers answers;
        TodayCompanionDlg dialog;
        dialog.SetStartAtLogin(true);
        const bool ok = dialog.OnOK();
        qputenv("BRINDLE_INSTALL_DIR", saved);
        QVERIFY(!ok);
        QCOMPARE(answers.Texts().size(), 1);
        QVERIFY(answers.Texts().front().contains(QStringLiteral("brindle-today.desktop")));
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));
    }

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

QTEST_MAIN(TestTodayCompanionDlg)
#include "tst_todaycompaniondlg.moc"
