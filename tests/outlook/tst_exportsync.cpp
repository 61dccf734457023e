// The exported folders synced to a real server: vdirsyncer copies them to a
// Radicale started for the test on 127.0.0.1, then back into fresh folders;
// what comes back carries what Brindle wrote.
#include "ExportFixture.h"
#include "editors/CourseworkDlg.h"
#include "editors/EditorRecords.h"
#include "editors/InstructorDlg.h"
#include "outlook/IcalDocument.h"
#include "outlook/VCard.h"
#include "store/BrindleData.h"
#include "support/PimClients.h"
#include "support/Records.h"

#include <QAction>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace EditorRecords;

namespace {

quint16 FreePort()
{
    QTcpServer server;
    return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0;
}

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The properties Brindle sets, as libical reads them back.
QMap<QString, QString> CalendarProperties(const QString& path, icalcomponent_kind kind)
{
    QMap<QString, QString> properties;
    const auto document = CIcalDocument::Load(path, kind);
    if (!document)
        return properties;
    for (icalproperty_kind property :
         {ICAL_UID_PROPERTY, ICAL_SUMMARY_PROPERTY, ICAL_DESCRIPTION_PROPERTY,
          ICAL_CATEGORIES_PROPERTY, ICAL_DUE_PROPERTY, ICAL_STATUS_PROPERTY,
          ICAL_PERCENTCOMPLETE_PROPERTY, ICAL_DTSTART_PROPERTY, ICAL_DTEND_PROPERTY})
        properties.insert(QString::fromLatin1(icalproperty_kind_to_string(property)),
                          document->Text(property));
    return properties;
}

QMap<QString, QString> ContactProperties(const QString& path)
{
    QMap<QString, QString> properties;
    CVCard card;
    if (!CVCard::Parse(ExportFixture::Read(path), &card))
        return properties;
    for (const QString& name :
         {u"UID"_s, u"FN"_s, u"N"_s, u"ADR"_s, u"EMAIL"_s, u"TEL"_s, u"NOTE"_s})
        properties.insert(name, card.Value(name));
    return properties;
}

} // namespace

class TestExportSync : public QObject
{
    Q_OBJECT

private slots:
    void roundTripThroughRadicale();
};

void TestExportSync::roundTripThroughRadicale()
{
    if (PimClients::Find(u"vdirsyncer"_s).isEmpty() || PimClients::Find(u"radicale"_s).isEmpty())
        QSKIP("vdirsyncer or radicale is not installed (scripts/install-deps.sh installs both)");

    ExportFixture fixture;
    QVERIFY(fixture.IsReady());
    const PimFolders folders = fixture.Folders();

    // Something of each kind, with text that needs escaping and folding.
    const quint32 course = Records::Course(u"Botanik, Grundkurs"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    const quint32 work = Records::Coursework(
        course, type, u"Lab report; draft"_s, -1.0, -1.0,
        BrindleDate::FromDateTime(QDateTime(QDate(2026, 11, 25), QTime(14, 30))), 100);
    {
        CourseworkDlg dialog;
        dialog.SetCourseworkID(work);
        QVERIFY(dialog.OnInitDialog());
        dialog.findChild<QAction*>(u"actionExportTasks"_s)->trigger();
        dialog.findChild<QAction*>(u"actionExportCalendar"_s)->trigger();
        QVERIFY(dialog.OnOK());
    }
    const quint32 vale = Instructor(u"Dr. Ada Müller-Vale"_s);
    Link(course, vale);
    Time(vale, CTimeTable::Tuesday, BrindleDate::FromTime(QTime(13, 0)),
         BrindleDate::FromTime(QTime(14, 0)));
    {
        InstructorDlg dialog(course);
        dialog.findChild<QAction*>(u"actionExportContacts"_s)->trigger();
        QVERIFY(dialog.OnOK());
    }

    // The server: no authentication, storage in a temporary folder, one
    // collection per kind made beforehand.
    QTemporaryDir server;
    const QString root = server.filePath(u"collections/collection-root/brindle/"_s);
    QVERIFY(WriteFile(root + u"tasks/.Radicale.props"_s, R"({"tag": "VCALENDAR"})"));
    QVERIFY(WriteFile(root + u"calendar/.Radicale.props"_s, R"({"tag": "VCALENDAR"})"));
    QVERIFY(WriteFile(root + u"contacts/.Radicale.props"_s, R"({"tag": "VADDRESSBOOK"})"));
    const quint16 port = FreePort();
    QVERIFY(port != 0);
    PimClients clients(folders);
    QProcess radicale;
    radicale.setProcessEnvironment(clients.Environment());
    radicale.setProcessChannelMode(QProcess::MergedChannels);
    radicale.start(PimClients::Find(u"radicale"_s),
                   {u"--config"_s, QString(), u"--server-hosts"_s, u"127.0.0.1:%1"_s.arg(port),
                    u"--auth-type"_s, u"none"_s, u"--storage-filesystem-folder"_s,
                    server.filePath(u"collections"_s), u"--logging-level"_s, u"warning"_s});
    QVERIFY(radicale.waitForStarted());
    auto stopServer = qScopeGuard([&] {
        radicale.terminate();
        if (!radicale.waitForFinished(5000))
            radicale.kill();
    });
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            QTcpSocket socket;
            socket.connectToHost(QHostAddress::LocalHost, port);
            return socket.waitForConnected(200);
        }(),
        20000);

    // Up from Brindle's folders, then down into fresh copies.
    const QString copies = server.filePath(u"copies/"_s);
    QString config = u"[general]\nstatus_path = \"%1\"\n"_s.arg(server.filePath(u"status/"_s));
    const std::pair<QString, QString> kinds[] = {{u"tasks"_s, folders.tasks},
                                                 {u"calendar"_s, folders.calendar},
                                                 {u"contacts"_s, folders.contacts}};
    for (const auto& [kind, folder] : kinds) {
        const bool contacts = kind == u"contacts"_s;
        const QString extension = contacts ? u".vcf"_s : u".ics"_s;
        QVERIFY(QDir().mkpath(copies + kind));
        config += u"[pair %1_up]\na = \"%1_brindle\"\nb = \"%1_server\"\ncollections = null\n"
                  u"[pair %1_back]\na = \"%1_copy\"\nb = \"%1_server\"\ncollections = null\n"
                  u"[storage %1_brindle]\ntype = \"filesystem\"\npath = \"%2/\"\nfileext = \"%3\"\n"
                  u"[storage %1_copy]\ntype = \"filesystem\"\npath = \"%4/\"\nfileext = \"%3\"\n"
                  u"[storage %1_server]\ntype = \"%5\"\nurl = \"http://127.0.0.1:%6/brindle/%1/\"\n"
                  u"username = \"brindle\"\npassword = \"brindle\"\n"_s.arg(
                      kind, folder, extension, copies + kind, contacts ? u"carddav"_s : u"caldav"_s,
                      QString::number(port));
    }
    const QString configPath = server.filePath(u"vdirsyncer.conf"_s);
    QVERIFY(WriteFile(configPath, config.toUtf8()));
    const QStringList steps[] = {
        {u"discover"_s},
        {u"sync"_s, u"tasks_up"_s, u"calendar_up"_s, u"contacts_up"_s},
        {u"sync"_s, u"tasks_back"_s, u"calendar_back"_s, u"contacts_back"_s}};
    for (const QStringList& step : steps) {
        QString error;
        clients.Run(u"vdirsyncer"_s, QStringList{u"-c"_s, configPath} + step, {}, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    // Each item came back once, with the properties Brindle wrote.
    for (const auto& [kind, folder] : kinds) {
        const QStringList written = ExportFixture::Items(folder);
        const QStringList read = ExportFixture::Items(copies + kind);
        QCOMPARE(written.size(), 1);
        QCOMPARE(read.size(), 1);
        const QString mine = folder + u'/' + written[0];
        const QString theirs = copies + kind + u'/' + read[0];
        if (kind == u"contacts"_s) {
            const auto properties = ContactProperties(mine);
            QCOMPARE(properties[u"FN"_s], u"Dr. Ada Müller-Vale"_s);
            QVERIFY(properties[u"NOTE"_s].contains(u"13:00 - 14:00 on Tu"_s));
            QCOMPARE(ContactProperties(theirs), properties);
        } else {
            const icalcomponent_kind item =
                kind == u"tasks"_s ? ICAL_VTODO_COMPONENT : ICAL_VEVENT_COMPONENT;
            const auto properties = CalendarProperties(mine, item);
            QCOMPARE(properties[u"SUMMARY"_s], u"Lab report; draft"_s);
            QVERIFY(!properties[u"UID"_s].isEmpty());
            QCOMPARE(CalendarProperties(theirs, item), properties);
        }
    }
}

QTEST_MAIN(TestExportSync)
#include "tst_exportsync.moc"
