// The Today list for a fixed clock: what falls into it, in what order, and
// its text and JSON forms; the tray menu, paused and switched on again; desktop
// notices received by a fake notification service on a private session bus:
// their texts, their times, and no repeats, also after a restart of the
// companion; a notice that failed is not remembered.
// Faults tried, and caught: the window ending at the start of its last day
// (window, "last minute of the seventh day"); work at 100 % listed ("done").
#include "BrindleData.h"
#include "app/TodaySwitch.h"
#include "support/Records.h"
#include "support/TestDatabase.h"
#include "today/DueList.h"
#include "today/DueListFormat.h"
#include "today/DueNotifier.h"
#include "today/ReadOnlyDatabase.h"
#include "today/TodayTray.h"

#include <QAction>
#include <QDBusConnection>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QDateTime Now(QDate(2026, 3, 10), QTime(12, 0));

double At(int days, QTime time)
{
    return BrindleDate::FromDateTime(QDateTime(Now.date().addDays(days), time));
}

DueItem Item(quint32 id, const QString& name, qint64 minutesFromNow)
{
    const QDateTime due = Now.addSecs(minutesFromNow * 60);
    return {.courseworkId = id,
            .name = name,
            .course = u"Chemistry"_s,
            .dueValue = double(due.toSecsSinceEpoch()) / 86400.0,
            .due = due,
            .pastDue = minutesFromNow < 0};
}

QStringList Sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

} // namespace

// Stands in for the desktop's notification daemon.
class FakeNotifications : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList summaries;
    QStringList bodies;

public slots:
    uint Notify(const QString&, uint, const QString&, const QString& summary, const QString& body,
                const QStringList&, const QVariantMap&, int)
    {
        summaries << summary;
        bodies << body;
        return uint(summaries.size());
    }
};

class TestDueList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        const QString config = m_dir.filePath(u"bus.conf"_s);
        QFile file(config);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
            " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
            "<busconfig><type>session</type><listen>unix:dir=" +
            m_dir.path().toUtf8() +
            "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
            "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
            "<allow own=\"*\"/></policy></busconfig>\n");
        file.close();
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--config-file="_s + config, u"--nofork"_s, u"--print-address=1"_s});
        QVERIFY2(m_daemon.waitForStarted(), "dbus-daemon is not installed");
        QTRY_VERIFY(m_daemon.canReadLine());
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();

        m_service = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(m_address, u"fake-service"_s));
        QVERIFY(m_service->isConnected());
        QVERIFY(m_service->registerObject(u"/org/freedesktop/Notifications"_s, &m_fake,
                                          QDBusConnection::ExportAllSlots));
        QVERIFY(m_service->registerService(u"org.freedesktop.Notifications"_s));
    }

    void cleanupTestCase()
    {
        m_service.reset();
        QDBusConnection::disconnectFromBus(u"fake-service"_s);
        QDBusConnection::disconnectFromBus(u"notifier"_s);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    void noticesOnceAcrossRestart()
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(m_address, u"notifier"_s);
        QVERIFY(bus.isConnected());
        const QString state = m_dir.filePath(u"state/notified.txt"_s);
        std::vector<DueItem> items{
            Item(1, u"Essay"_s, 30 * 60), // not yet within a day
            Item(2, u"Quiz"_s, 20 * 60),  // within a day
            Item(3, u"Lab"_s, 30),        // within the hour: one notice, not two
            Item(4, u"Reading"_s, -5),    // past due: too late for a notice
        };
        {
            CDueNotifier notifier(bus, state);
            QVERIFY(notifier.Load());
            QSignalSpy sent(&notifier, &CDueNotifier::Sent);
            // Without a notification service nothing is sent, nor remembered.
            QSignalSpy failed(&notifier, &CDueNotifier::Failed);
            QVERIFY(m_service->unregisterService(u"org.freedesktop.Notifications"_s));
            notifier.Check(items, Now);
            QTRY_COMPARE(failed.size(), 2);
            QVERIFY(!QFile::exists(state));
            QVERIFY(m_service->registerService(u"org.freedesktop.Notifications"_s));
            notifier.Check(items, Now);
            QTRY_COMPARE(sent.size(), 2);
            QCOMPARE(Sorted(m_fake.summaries),
                     (QStringList{u"Lab (Chemistry)"_s, u"Quiz (Chemistry)"_s}));
            QVERIFY(m_fake.bodies[m_fake.summaries.indexOf(u"Lab (Chemistry)"_s)].contains(
                u"2026-03-10 12:30"_s));

            // Asked again at the same moment, only a newcomer is notified.
            items.push_back(Item(5, u"Project"_s, 10 * 60));
            notifier.Check(items, Now);
            QTRY_COMPARE(sent.size(), 3);
            QCOMPARE(m_fake.summaries.last(), u"Project (Chemistry)"_s);
        }

        // A restart remembers; time moving on brings the next notices.
        CDueNotifier restarted(bus, state);
        QVERIFY(restarted.Load());
        QSignalSpy sent(&restarted, &CDueNotifier::Sent);
        items.push_back(Item(6, u"Talk"_s, 10 * 60 + 30));
        restarted.Check(items, Now.addSecs(10 * 60 * 60));
        // Ten hours on: Essay comes within its day and Talk within its hour;
        // Quiz (ten hours left) had its day notice, Project is due now.
        QTRY_COMPARE(sent.size(), 2);
        QCOMPARE(Sorted(m_fake.summaries.mid(3)),
                 (QStringList{u"Essay (Chemistry)"_s, u"Talk (Chemistry)"_s}));
    }

    void init()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(m_db.emplace().IsReady());
    }
    void cleanup() { m_db.reset(); }

    void window_data()
    {
        QTest::addColumn<double>("due");
        QTest::addColumn<int>("completed");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<int>("days");
        QTest::addColumn<bool>("listed");
        QTest::addColumn<bool>("pastDue");

        const double minute = 1.0 / (24 * 60);
        const double now = BrindleDate::FromDateTime(Now);
        auto row = [](const char* name, double due, int completed, bool archived, int days,
                      bool listed, bool pastDue) {
            QTest::newRow(name) << due << completed << archived << days << listed << pastDue;
        };
        row("past due a minute ago, half done", now - minute, 50, false, 7, true, true);
        row("later today, no days ahead", now + minute, 0, false, 0, true, false);
        row("tomorrow, no days ahead", At(1, QTime(0, 0)), 0, false, 0, false, false);
        row("last minute of the seventh day", At(7, QTime(23, 59)), 0, false, 7, true, false);
        row("first minute of the eighth day", At(8, QTime(0, 0)), 0, false, 7, false, false);
        row("99 percent is not done", now + minute, 99, false, 7, true, false);
        row("done", now - 1, 100, false, 7, false, false);
        row("archived semester", now + 1, 0, true, 7, false, false);
    }
    void window()
    {
        QFETCH(double, due);
        QFETCH(int, completed);
        QFETCH(bool, archived);
        QFETCH(int, days);
        QFETCH(bool, listed);
        QFETCH(bool, pastDue);
        const quint32 course =
            Records::Course(u"Chemistry"_s, archived ? Records::Semester(u"Fall"_s) : 0);
        const quint32 id =
            Records::Coursework(course, 0, u"Lab report"_s, -1, -1, due, quint16(completed));

        CDueList list;
        QVERIFY(list.Read(Now, days));
        QCOMPARE(list.Items().size(), listed ? 1u : 0u);
        if (listed) {
            const DueItem& item = list.Items().front();
            QCOMPARE(item.courseworkId, id);
            QCOMPARE(item.course, u"Chemistry"_s);
            QCOMPARE(item.pastDue, pastDue);
            QCOMPARE(item.due, BrindleDate::ToDateTime(due));
        }
    }

    // Past due first, then by due time across courses; the read-only mount
    // reads what Brindle wrote.
    void orderAndForms()
    {
        const quint32 chemistry = Records::Course(u"Chemistry"_s);
        const quint32 history = Records::Course(u"History of Art"_s);
        const quint32 quiz =
            Records::Coursework(chemistry, 0, u"Quiz"_s, -1, -1, At(3, QTime(9, 0)));
        const quint32 essay =
            Records::Coursework(history, 0, u"Essay \"Light\""_s, -1, -1, At(-2, QTime(17, 0)));
        const quint32 reading =
            Records::Coursework(history, 0, u"Reading"_s, -1, -1, At(0, QTime(18, 30)));

        CAppStateTable::Instance().Close();
        QString error;
        QVERIFY2(ReadOnlyDatabase::Mount(m_db->Path(), &error), qPrintable(error));
        CDueList list;
        QVERIFY(list.Read(Now, 7));
        // The companion never writes: the mount refuses it.
        Records::Coursework(chemistry, 0, u"refused"_s, -1, -1, At(1, QTime(9, 0)));
        ReadOnlyDatabase::Unmount();
        QVERIFY(m_db->Reopen());
        QCOMPARE(Records::Count("Coursework"), 3);

        QCOMPARE(DueListFormat::Text(list.Items()),
                 u"2026-03-08 17:00  History of Art  Essay \"Light\"  past due\n"
                 u"2026-03-10 18:30  History of Art  Reading\n"
                 u"2026-03-13 09:00  Chemistry       Quiz\n"_s);
        auto object = [](quint32 id, const QString& name, const QString& course, const QString& due,
                         bool pastDue) {
            return QJsonObject{{u"id"_s, qint64(id)},   {u"name"_s, name},
                               {u"course"_s, course},   {u"due"_s, due},
                               {u"pastDue"_s, pastDue}, {u"completed"_s, 0}};
        };
        const QJsonArray json{
            object(essay, u"Essay \"Light\""_s, u"History of Art"_s, u"2026-03-08T17:00:00"_s,
                   true),
            object(reading, u"Reading"_s, u"History of Art"_s, u"2026-03-10T18:30:00"_s, false),
            object(quiz, u"Quiz"_s, u"Chemistry"_s, u"2026-03-13T09:00:00"_s, false)};
        QCOMPARE(QJsonDocument::fromJson(DueListFormat::Json(list.Items()))
                     .toJson(QJsonDocument::Compact),
                 QJsonDocument(json).toJson(QJsonDocument::Compact));
    }

    void missingOrForeignFileIsRefused()
    {
        CAppStateTable::Instance().Close();
        const QString missing = m_db->Folder() + u"/none.db"_s;
        QString error;
        QVERIFY(!ReadOnlyDatabase::Mount(missing, &error));
        QVERIFY(!QFile::exists(missing));
        QVERIFY(error.contains(missing));

        CDueList list;
        QVERIFY(!list.Read(Now, 7));
        QVERIFY(!list.ErrorText().isEmpty());
        QVERIFY(m_db->Reopen());
    }

    // The tray menu: past-due items marked by their icon, each opening its
    // coursework, then Open Brindle and Quit.
    void trayMenu()
    {
        const DueItem late{.courseworkId = 41,
                           .name = u"Essay"_s,
                           .course = u"History"_s,
                           .due = Now.addDays(-1),
                           .pastDue = true};
        const DueItem soon{
            .courseworkId = 42, .name = u"Quiz"_s, .course = u"History"_s, .due = Now.addDays(1)};
        QMenu menu;
        CTodayTray::FillMenu(&menu, {late, soon}, QString());
        const QList<QAction*> actions = menu.actions();
        QCOMPARE(actions.size(), 5); // two items, separator, Open Brindle, Quit
        QVERIFY(actions[0]->text().contains(u"Essay"_s) &&
                actions[0]->text().contains(u"History"_s));
        QCOMPARE(actions[3]->text(), u"&Open Brindle"_s);
        QCOMPARE(actions[4]->text(), u"&Quit"_s);
        QVERIFY(!actions[0]->icon().isNull() && actions[1]->icon().isNull());
        QCOMPARE(actions[0]->data().toUInt(), 41u);
        QCOMPARE(actions[1]->data().toUInt(), 42u);
    }

    // Paused through Brindle's settings, the companion lets go of the
    // database; switched on again, it notices by itself.
    void pausedTrayLetsGoOfTheDatabase()
    {
        Records::Coursework(Records::Course(u"Chemistry"_s), 0, u"Lab"_s, -1, -1,
                            BrindleDate::FromDateTime(QDateTime::currentDateTime().addDays(1)));
        CAppStateTable::Instance().Close();
        CDataTable::GetMount()->Unmount();

        const QString settings = m_db->Folder() + u"/Brindle.ini"_s;
        CTodaySwitch brindle(settings);
        QVERIFY(brindle.SetEnabled(0));
        CTodayTray tray(m_db->Path(), settings, 7, nullptr);
        tray.Refresh();
        QCOMPARE(tray.Menu()->actions().first()->text(), u"paused"_s);
        QVERIFY(!CDataTable::GetMount()->IsMounted());
        // What a restore does while the companion is paused.
        QVERIFY(QFile::rename(m_db->Path(), m_db->Path() + u"2"_s));
        QVERIFY(QFile::rename(m_db->Path() + u"2"_s, m_db->Path()));

        QVERIFY(brindle.SetEnabled(1));
        QTRY_VERIFY(tray.Menu()->actions().first()->text().contains(u"Lab"_s));
        QVERIFY(!CDataTable::GetMount()->IsMounted());
        QVERIFY(m_db->Reopen());
    }

private:
    std::optional<TestDatabase> m_db;
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<QDBusConnection> m_service;
    FakeNotifications m_fake;
};

QTEST_MAIN(TestDueList)
#include "tst_duelist.moc"
