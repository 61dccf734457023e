// Desktop notices received by a fake notification service on a private
// session bus: their texts, their times, and no repeats, also after a
// restart of the companion; a notice that failed is not remembered.
#include "today/DueNotifier.h"

#include <QDBusConnection>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDateTime Now(QDate(2026, 3, 10), QTime(12, 0));

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

class TestDueNotifier : public QObject
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

private:
    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
    std::unique_ptr<QDBusConnection> m_service;
    FakeNotifications m_fake;
};

QTEST_GUILESS_MAIN(TestDueNotifier)
#include "tst_duenotifier.moc"
