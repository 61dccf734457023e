// Desktop notices received by a fake notification service on a private
// session bus: their texts, their times, and no repeats, also after a
// restart of the companion.
#include "today/DueListFormat.h"
#include "today/DueNotifier.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QDateTime Now(QDate(2026, 3, 10), QTime(12, 0));

DueItem Item(quint32 id, const QString& name, qint64 minutesFromNow)
{
    DueItem item;
    item.courseworkId = id;
    item.name = name;
    item.course = QStringLiteral("Chemistry");
    item.due = Now.addSecs(minutesFromNow * 60);
    item.dueValue = double(item.due.toSecsSinceEpoch()) / 86400.0;
    item.pastDue = minutesFromNow < 0;
    return item;
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

class TestDueNotifier : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        const QString config = m_dir.filePath(QStringLiteral("bus.conf"));
        QFile file(config);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
                   " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                   "<busconfig><type>session</type><listen>unix:dir=" +
                   m_dir.path().toUtf8() +
                   "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
                   "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                   "<allow own=\"*\"/></policy></busconfig>\n");
        file.close();
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--config-file=") + config, QStringLiteral("--nofork"),
                        QStringLiteral("--print-address=1")});
        QVERIFY2(m_daemon.waitForStarted(), "dbus-daemon is not installed");
        QTRY_VERIFY(m_daemon.canReadLine());
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();

        m_service = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(m_address, QStringLiteral("fake-service")));
        QVERIFY(m_service->isConnected());
        QVERIFY(m_service->registerObject(QStringLiteral("/org/freedesktop/Notifications"), &m_fake,
                                          QDBusConnection::ExportAllSlots));
        QVERIFY(m_service->registerService(QStringLiteral("org.freedesktop.Notifications")));
    }

    void cleanupTestCase()
    {
        m_service.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("fake-service"));
        QDBusConnection::disconnectFromBus(QStringLiteral("notifier"));
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    void noticesOnceAcrossRestart()
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("notifier"));
        QVERIFY(bus.isConnected());
        const QString state = m_dir.filePath(QStringLiteral("state/notified.txt"));
        const std::vector<DueItem> items{
            Item(1, QStringLiteral("Essay"), 30 * 60),   // not yet within a day
            Item(2, QStringLiteral("Quiz"), 20 * 60),    // within a day
            Item(3, QStringLiteral("Lab"), 30),          // within the hour: one notice, not two
            Item(4, QStringLiteral("Reading"), -5),      // past due: too late for a notice
        };

        {
            CDueNotifier notifier(bus, state);
            QVERIFY(notifier.Load());
            QSignalSpy sent(&notifier, &CDueNotifier::Sent);
            notifier.Check(items, Now);
            QTRY_COMPARE(sent.size(), 2);
            QCOMPARE(m_fake.summaries.size(), 2);
            QStringList sorted = m_fake.summaries;
            sorted.sort();
            QCOMPARE(sorted, (QStringList{QStringLiteral("Lab (Chemistry)"), QStringLiteral("Quiz (Chemistry)")}));
            const int lab = m_fake.summaries.indexOf(QStringLiteral("Lab (Chemistry)"));
            QVERIFY(m_fake.bodies[lab].contains(DueListFormat::DueText(items[2].due)));

            // Asked again at the same moment, only a newcomer is notified.
            std::vector<DueItem> more = items;
            more.push_back(Item(5, QStringLiteral("Project"), 10 * 60));
            notifier.Check(more, Now);
            QTRY_COMPARE(sent.size(), 3);
            QCOMPARE(m_fake.summaries.last(), QStringLiteral("Project (Chemistry)"));
        }

        // A restart remembers; time moving on brings the next notices.
        CDueNotifier restarted(bus, state);
        QVERIFY(restarted.Load());
        QSignalSpy sent(&restarted, &CDueNotifier::Sent);
        std::vector<DueItem> later = items;
        later.push_back(Item(5, QStringLiteral("Project"), 10 * 60));
        later.push_back(Item(6, QStringLiteral("Talk"), 10 * 60 + 30));
        restarted.Check(later, Now.addSecs(10 * 60 * 60));
        // Ten hours on: Essay comes within its day and Talk within its hour;
        // Quiz (ten hours left) had its day notice, Project is due now.
        QTRY_COMPARE(sent.size(), 2);
        QStringList lastTwo = m_fake.summaries.mid(m_fake.summaries.size() - 2);
        lastTwo.sort();
        QCOMPARE(lastTwo, (QStringList{QStringLiteral("Essay (Chemistry)"), QStringLiteral("Talk (Chemistry)")}));
        QCOMPARE(m_fake.summaries.size(), 5);
    }

    void failedNoticeIsNotRemembered()
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(m_address, QStringLiteral("notifier"));
        const QString state = m_dir.filePath(QStringLiteral("failed.txt"));
        CDueNotifier notifier(bus, state);
        QVERIFY(notifier.Load());
        QSignalSpy sent(&notifier, &CDueNotifier::Sent);
        QSignalSpy failed(&notifier, &CDueNotifier::Failed);
        const std::vector<DueItem> items{Item(7, QStringLiteral("Exam"), 90)};

        QVERIFY(m_service->unregisterService(QStringLiteral("org.freedesktop.Notifications")));
        notifier.Check(items, Now);
        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(!QFile::exists(state));

        QVERIFY(m_service->registerService(QStringLiteral("org.freedesktop.Notifications")));
        notifier.Check(items, Now);
        QTRY_COMPARE(sent.size(), 1);
        QCOMPARE(m_fake.summaries.last(), QStringLiteral("Exam (Chemistry)"));
        QVERIFY(QFile::exists(state));
    }

private:
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<QDBusConnection> m_service;
    FakeNotifications m_fake;
};

QTEST_GUILESS_MAIN(TestDueNotifier)
#include "tst_duenotifier.moc"
