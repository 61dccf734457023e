// The tray menu of the companion: its items, and the "Enabled" switch
// letting go of the database and taking it up again when the settings change.
#include "BrindleData.h"
#include "app/TodaySwitch.h"
#include "support/Records.h"
#include "support/TestDatabase.h"
#include "today/TodayTray.h"

#include <QAction>
#include <QMenu>
#include <QTest>

class TestTodayTray : public QObject
{
    Q_OBJECT

private slots:
    void menuItems()
    {
        const QDateTime now = QDateTime::currentDateTime();
        const DueItem late{.courseworkId = 41, .name = QStringLiteral("Essay"),
                           .course = QStringLiteral("History"), .due = now.addDays(-1), .pastDue = true};
        const DueItem soon{.courseworkId = 42, .name = QStringLiteral("Quiz"),
                           .course = QStringLiteral("History"), .due = now.addDays(1)};
        QMenu menu;
        CTodayTray::FillMenu(&menu, {late, soon}, QString());
        const QList<QAction*> actions = menu.actions();
        QCOMPARE(actions.size(), 5); // two items, separator, Open Brindle, Quit
        QVERIFY(actions[0]->text().contains(QStringLiteral("Essay")));
        QVERIFY(actions[0]->text().contains(QStringLiteral("History")));
        QCOMPARE(actions[3]->text(), QStringLiteral("&Open Brindle"));
        QCOMPARE(actions[4]->text(), QStringLiteral("&Quit"));
        // The past-due item is marked by its icon; each opens its coursework.
        QVERIFY(!actions[0]->icon().isNull() && actions[1]->icon().isNull());
        QCOMPARE(actions[0]->data().toUInt(), 41u);
        QCOMPARE(actions[1]->data().toUInt(), 42u);
    }

    void pausedLetsGoOfTheDatabase()
    {
        TestDatabase database;
        QVERIFY(database.IsReady());
        const quint32 course = Records::Course(QStringLiteral("Chemistry"));
        Records::Coursework(course, 0, QStringLiteral("Lab"), -1, -1,
                            BrindleDate::FromDateTime(QDateTime::currentDateTime().addDays(1)));
        CAppStateTable::Instance().Close();
        CDataTable::GetMount()->Unmount();

        const QString settings = database.Folder() + QStringLiteral("/Brindle.ini");
        CTodaySwitch brindle(settings);
        QVERIFY(brindle.SetEnabled(0));
        CTodayTray tray(database.Path(), settings, 7, nullptr);
        tray.Refresh();
        QCOMPARE(tray.Menu()->actions().first()->text(), QStringLiteral("paused"));
        QVERIFY(!CDataTable::GetMount()->IsMounted());

        // What a restore does while the companion is paused.
        const QString aside = database.Path() + QStringLiteral("2");
        QVERIFY(QFile::rename(database.Path(), aside));
        QVERIFY(QFile::rename(aside, database.Path()));

        // Switched on again, the companion notices by itself.
        QVERIFY(brindle.SetEnabled(1));
        QTRY_VERIFY(tray.Menu()->actions().first()->text().contains(QStringLiteral("Lab")));
        QVERIFY(!CDataTable::GetMount()->IsMounted());
        QVERIFY(database.Reopen());
    }
};

QTEST_MAIN(TestTodayTray)
#include "tst_todaytray.moc"
