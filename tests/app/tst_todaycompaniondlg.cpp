// "Start the Today companion at log-in": the entry copied into the user's
// autostart folder and removed again, and a missing entry refused.
#include "app/TodayAutostart.h"
#include "app/TodayCompanionDlg.h"
#include "support/MessageAnswers.h"

#include <QtTest>
#include <QtWidgets>

class TestTodayCompanionDlg : public QObject
{
    Q_OBJECT

private slots:
    void startAtLogin()
    {
        QTemporaryDir config;
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
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
        QVERIFY(copy.fileName().startsWith(config.path()));

        TodayCompanionDlg off;
        QVERIFY(off.StartAtLogin());
        off.SetStartAtLogin(false);
        QVERIFY(off.OnOK());
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));

        // An installation without the entry: refused, with its name.
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
};

QTEST_MAIN(TestTodayCompanionDlg)
#include "tst_todaycompaniondlg.moc"
