// The export through the editors: the "Export" menu, links on opening and on
// OK, failures, coursework deletion, and the "Export Folders" dialog; and what
// the real clients make of it: todoman lists the task, khal the all-day event,
// khard the contact, and their own changes (a task marked done, an event
// edited) survive Brindle's next update; vdirsyncer carries all three to a
// Radicale started for the test, unchanged.
// Faults tried, and caught: an update of a linked item reported as done
// without saving it (linksFollowTheEditor); folding that cuts a character in
// two (khard and vdirsyncer refuse the card); a save below 100 % clearing the
// done mark todoman set.
#include "ExportFixture.h"
#include "app/MainView.h"
#include "editors/CourseworkDlgExport.h"
#include "outlook/IcalDocument.h"
#include "outlook/VCard.h"
#include "outlook/dialogs/ExportFoldersDlg.h"
#include "support/MessageAnswers.h"
#include "support/PimClients.h"
#include "support/Records.h"

#include <QProcess>
#include <QSettings>
#include <QTcpServer>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace EditorRecords;

namespace {

constexpr quint32 Task = COutlookTable::olTaskItem;
constexpr quint32 Appointment = COutlookTable::olAppointmentItem;

// A file where a folder should be, so that the folder cannot be made.
bool Block(const QString& path)
{
    return DatabaseFiles::Write(path, {});
}

const QDateTime DueAt(QDate(2026, 11, 25), QTime(14, 30));
// Long enough to be folded, with characters to escape and to keep whole.
const QString Details =
    u"Two pages, with graphs; the raw data in an appendix, and the method in full"_s;
// Its address line is folded inside the "ß".
const QString Hall = u"Hörsaalgebäude Süd; Flügel Ä, Ebene 2 \\ Naturwiß"_s;

// The properties Brindle sets, as libical or the vCard reader reads them back.
QStringList Properties(const QString& path)
{
    QStringList properties;
    CVCard card;
    if (path.endsWith(u".vcf"_s) && CVCard::Parse(ExportTest::Read(path), &card))
        for (const QString& name :
             {u"UID"_s, u"FN"_s, u"N"_s, u"ADR"_s, u"EMAIL"_s, u"TEL"_s, u"NOTE"_s})
            properties << name + u':' + card.Value(name);
    for (icalcomponent_kind kind : {ICAL_VTODO_COMPONENT, ICAL_VEVENT_COMPONENT})
        if (const auto document = CIcalDocument::Load(path, kind))
            for (icalproperty_kind property :
                 {ICAL_UID_PROPERTY, ICAL_SUMMARY_PROPERTY, ICAL_DESCRIPTION_PROPERTY,
                  ICAL_CATEGORIES_PROPERTY, ICAL_DUE_PROPERTY, ICAL_STATUS_PROPERTY,
                  ICAL_PERCENTCOMPLETE_PROPERTY, ICAL_DTSTART_PROPERTY, ICAL_DTEND_PROPERTY})
                properties << QString::fromLatin1(icalproperty_kind_to_string(property)) + u':' +
                                  document->Text(property);
    return properties;
}

} // namespace

class TestOutlookExport : public ExportTest
{
    Q_OBJECT

private slots:
    void cleanup() { ExportTest::cleanup(); }
    void init()
    {
        ExportTest::init();
        m_course = Records::Course(u"Botany"_s);
        m_work = Records::Coursework(m_course, Records::CwType(m_course, u"Homework"_s),
                                     u"Lab report; draft"_s, -1.0, -1.0,
                                     BrindleDate::FromDateTime(DueAt), 40);
    }

    // Saved again, the same items are updated; unchecked, only the link goes;
    // the coursework deleted, its links go and the items stay the user's.
    void linksFollowTheEditor()
    {
        const PimFolders folders = PimFolders::Load();
        QVERIFY(Export(m_work, true, true));
        const QString task = Links(m_work, Task), appointment = Links(m_work, Appointment);
        QVERIFY(!task.contains(u',') && !appointment.contains(u',') && !appointment.isEmpty());
        QCOMPARE(Items(folders.tasks), QStringList{task + u".ics"_s});
        {
            // The editor opens with the kinds checked that are linked.
            CourseworkDlg dialog;
            dialog.SetCourseworkID(m_work);
            QVERIFY(dialog.OnInitDialog());
            QVERIFY(Action(dialog, "actionExportTasks")->isChecked() &&
                    Action(dialog, "actionExportCalendar")->isChecked());
        }
        QVERIFY(Export(m_work, true, true, u"Lab report 2"_s, 100));
        QCOMPARE(Links(m_work, Task), task);
        QCOMPARE(Links(m_work, Appointment), appointment);
        QCOMPARE(Items(folders.calendar).size(), 1);
        const QByteArray bytes = Read(folders.tasks + u"/%1.ics"_s.arg(task));
        QVERIFY(bytes.contains("SUMMARY:Lab report 2") && bytes.contains("STATUS:COMPLETED"));

        QVERIFY(Export(m_work, false, true));
        QCOMPARE(Links(m_work, Task), QString());
        QCOMPARE(Items(folders.tasks).size(), 1);
        // Checked again later: a second task, as the first is no longer Brindle's.
        QVERIFY(Export(m_work, true, true));
        QCOMPARE(Items(folders.tasks).size(), 2);

        CMainView view;
        MessageAnswers answers({QMessageBox::Yes});
        view.DeleteCoursework(m_work);
        QCOMPARE(CountWhere("Coursework", "id", m_work), 0);
        QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", m_work), 0);
        QCOMPARE(Items(folders.tasks).size(), 2);
        QCOMPARE(Items(folders.calendar).size(), 1);
    }

    void createFailureIsReportedAfterTheSave_data()
    {
        QTest::addColumn<bool>("tasks");
        QTest::addColumn<QString>("message");
        QTest::newRow("task") << true << u"Failed to create Task!"_s;
        QTest::newRow("appointment") << false << u"Failed to create appointment!"_s;
    }
    void createFailureIsReportedAfterTheSave()
    {
        QFETCH(bool, tasks);
        QFETCH(QString, message);
        CourseworkDlg dialog;
        dialog.SetCourseworkID(m_work);
        QVERIFY(dialog.OnInitDialog());
        // The folder goes away while the editor is open.
        const QString folder = tasks ? PimFolders::Load().tasks : PimFolders::Load().calendar;
        QVERIFY(QDir(folder).removeRecursively() && Block(folder));
        Action(dialog, tasks ? "actionExportTasks" : "actionExportCalendar")->trigger();
        dialog.InfoPage()->NameEdit()->setText(u"Renamed"_s);
        MessageAnswers answers;
        QVERIFY(dialog.OnOK());
        QCOMPARE(answers.Texts(), QStringList{message});
        QCOMPARE(Links(m_work, tasks ? Task : Appointment), QString());
        QCOMPARE(Sql("SELECT CourseworkName FROM Coursework"), u"Renamed"_s);
    }

    void withoutAStoreLinksAreKept()
    {
        QVERIFY(Export(m_work, true, false));
        const QString task = Links(m_work, Task);
        // The folder cannot be reached (a drive that is not mounted): log-on
        // fails, nothing is exported and the link is neither judged nor lost.
        QVERIFY(Block(m_pim->filePath(u"file"_s)));
        QSettings(GetSettingsPath(), QSettings::IniFormat)
            .setValue(u"Export/TasksFolder"_s, m_pim->filePath(u"file/tasks"_s));
        CourseworkDlg dialog;
        dialog.SetCourseworkID(m_work);
        QVERIFY(dialog.OnInitDialog());
        QVERIFY(!dialog.Export()->Connection());
        QVERIFY(Action(dialog, "actionExportTasks")->isChecked());
        MessageAnswers answers;
        QVERIFY(dialog.OnOK());
        QVERIFY(answers.Texts().isEmpty());
        QCOMPARE(Links(m_work, Task), task);
    }

    void contactLinkIsCheckedAgainstTheStore()
    {
        const quint32 vale = Instructor(u"Dr. Vale"_s);
        Link(m_course, vale);
        auto checked = [this] {
            return Action(*std::make_unique<InstructorDlg>(m_course), "actionExportContacts")
                ->isChecked();
        };
        QVERIFY(!checked() && ExportContacts(m_course) && checked());
        const QString contact = Links(vale, COutlookTable::olContactItem);
        QVERIFY(!contact.isEmpty());
        // A link to a contact the user deleted, and one to a number the store
        // never gave: both go on opening.
        QVERIFY(QFile::remove(PimFolders::Load().contacts + u"/%1.vcf"_s.arg(contact)));
        const quint32 stray = Instructor(u"Dr. Moss"_s);
        Link(m_course, stray);
        OutlookLink(stray, 4242, COutlookTable::olContactItem);
        InstructorDlg dialog(m_course);
        QCOMPARE(dialog.Entries().size(), 2u);
        QVERIFY(!Action(dialog, "actionExportContacts")->isChecked());
        QCOMPARE(Records::Count("OutlookLink"), 0);
    }

    void exportFoldersDialog()
    {
        const QString tasks = m_pim->filePath(u"my tasks"_s);
        {
            ExportFoldersDlg dialog;
            QVERIFY(dialog.TasksEdit()->text().isEmpty());
            QCOMPARE(dialog.TasksEdit()->placeholderText(),
                     QDir::toNativeSeparators(PimFolders::Defaults().tasks));
            dialog.TasksEdit()->setText(tasks);
            // A folder that cannot be made is refused, and nothing is saved.
            QVERIFY(Block(m_pim->filePath(u"file"_s)));
            dialog.ContactsEdit()->setText(m_pim->filePath(u"file/contacts"_s));
            MessageAnswers answers;
            QVERIFY(!dialog.OnOK());
            QCOMPARE(answers.Texts().size(), 1);
            QVERIFY(answers.Texts()[0].contains(u"cannot be created or written"_s));
            QCOMPARE(PimFolders::Load().tasks, PimFolders::Defaults().tasks);
            dialog.ContactsEdit()->clear();
            QVERIFY(dialog.OnOK());
        }
        QCOMPARE(PimFolders::Load().tasks, tasks);
        QCOMPARE(PimFolders::Load().contacts, PimFolders::Defaults().contacts);
        QCOMPARE(QSettings(GetSettingsPath(), QSettings::IniFormat).allKeys(),
                 QStringList{u"Export/TasksFolder"_s});
        // The next editor writes there.
        QVERIFY(Export(m_work, true, false));
        QCOMPARE(Items(tasks).size(), 1);
        QCOMPARE(ExportFoldersDlg().TasksEdit()->text(), QDir::toNativeSeparators(tasks));
    }

    // Each client reads the export; then the client changes it, Brindle saves
    // the coursework under a new name and the instructor with new office hours,
    // and the client reads both changes, still from one item each.
    void clientsReadTheExport_data()
    {
        QTest::addColumn<QStringList>("read");
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QStringList>("edit");
        QTest::addColumn<QByteArray>("answers");
        QTest::addColumn<QStringList>("after");
        // todoman's stable JSON; the due time in seconds, read in the local zone;
        // a fresh cache numbers the one task 1.
        const QString due = u"\"due\": %1"_s.arg(DueAt.toSecsSinceEpoch());
        QTest::newRow("todoman, done there")
            << QStringList{u"todoman"_s, u"--porcelain"_s, u"list"_s, u"--status"_s, u"ANY"_s}
            << QStringList{u"\"summary\": \"Lab report; draft\""_s, u"\"completed\": false"_s, due,
                           u"\"description\": \"%1\""_s.arg(Details)}
            << QStringList{u"todoman"_s, u"done"_s, u"1"_s} << QByteArray()
            << QStringList{u"\"summary\": \"Lab report (final)\""_s, u"\"completed\": true"_s, due};
        // khal's events in the week: an all-day event on the due day, and only
        // there; in its interactive editor, answered line by line: a location,
        // a reminder an hour before, done.
        QTest::newRow("khal, edited there")
            << QStringList{u"khal"_s,
                           u"list"_s,
                           u"--format"_s,
                           u"{start-date}|{end-date}|{title}|{categories}|{location}|{alarm-symbol}"_s,
                           u"--day-format"_s,
                           QString(),
                           u"2026-11-22"_s,
                           u"7d"_s}
            << QStringList{u"2026-11-25|2026-11-25|Lab report; draft|Botany||\n"_s}
            << QStringList{u"khal"_s, u"edit"_s, u"--show-past"_s, u"Lab report"_s}
            << QByteArray("l\nGreenhouse 2\na\n1h\nn\n")
            << QStringList{u"2026-11-25|2026-11-25|Lab report (final)|Botany|Greenhouse 2| ⏰\n"_s};
        QTest::newRow("khard") << QStringList{u"khard"_s, u"show"_s, u"Vale"_s}
                               << QStringList{u"Dr. Ada Müller-Vale"_s,
                                              u"HOME: 555-1234"_s,
                                              u"INTERNET: vale@example.edu"_s,
                                              u"WORK: 101 "_s + Hall,
                                              u"Office Hours:"_s,
                                              u"10:00 - 11:30 on MW"_s}
                               << QStringList() << QByteArray()
                               << QStringList{u"10:00 - 11:30 on MW"_s, u"09:00 - 09:45 on F"_s};
    }
    void clientsReadTheExport()
    {
        QFETCH(QStringList, read);
        QFETCH(QStringList, before);
        QFETCH(QStringList, edit);
        QFETCH(QByteArray, answers);
        QFETCH(QStringList, after);
        if (PimClients::Find(read[0]).isEmpty())
            QSKIP("the client is not installed (scripts/install-deps.sh installs it)");
        QVERIFY(ExportForClients());
        for (bool updated : {false, true}) {
            QString error;
            const QString output = m_clients->Run(read[0], read.mid(1), {}, &error);
            for (const QString& text : updated ? after : before)
                QVERIFY2(output.contains(text), qPrintable(text + u" in:\n"_s + output + error));
            if (updated)
                break;
            if (!edit.isEmpty())
                m_clients->Run(edit[0], edit.mid(1), answers, &error);
            QVERIFY2(error.isEmpty(), qPrintable(error));
            Time(m_vale, CTimeTable::Friday, BrindleDate::FromTime(QTime(9, 0)),
                 BrindleDate::FromTime(QTime(9, 45)));
            QVERIFY(Export(m_work, true, true, u"Lab report (final)"_s) &&
                    ExportContacts(m_course));
            for (const QString& folder : {PimFolders::Load().tasks, PimFolders::Load().calendar,
                                          PimFolders::Load().contacts})
                QCOMPARE(Items(folder).size(), 1);
        }
    }

    void syncedThroughRadicale()
    {
        if (PimClients::Find(u"vdirsyncer"_s).isEmpty() ||
            PimClients::Find(u"radicale"_s).isEmpty())
            QSKIP(
                "vdirsyncer or radicale is not installed (scripts/install-deps.sh installs both)");
        QVERIFY(ExportForClients());
        // The server: no authentication, storage in a temporary folder, one
        // collection per kind made beforehand.
        const QString root = m_pim->filePath(u"server/collection-root/brindle/"_s);
        QTcpServer probe;
        QVERIFY(probe.listen(QHostAddress::LocalHost));
        const quint16 port = probe.serverPort();
        probe.close();
        QProcess radicale;
        radicale.setProcessEnvironment(m_clients->Environment());
        radicale.setProcessChannelMode(QProcess::MergedChannels);
        radicale.start(PimClients::Find(u"radicale"_s),
                       {u"--config"_s, QString(), u"--server-hosts"_s, u"127.0.0.1:%1"_s.arg(port),
                        u"--auth-type"_s, u"none"_s, u"--storage-filesystem-folder"_s,
                        m_pim->filePath(u"server"_s), u"--logging-level"_s, u"warning"_s});
        QVERIFY(radicale.waitForStarted());
        auto stopServer = qScopeGuard([&] {
            radicale.terminate();
            if (!radicale.waitForFinished(5000))
                radicale.kill();
        });
        // Up from Brindle's folders; Radicale keeps each item as a file.
        const PimFolders folders = PimFolders::Load();
        QString config = u"[general]\nstatus_path = \"%1\"\n"_s.arg(m_pim->filePath(u"status/"_s));
        const std::tuple<QString, QString, QString> kinds[] = {
            {u"tasks"_s, folders.tasks, u"SUMMARY:Lab report; draft"_s},
            {u"calendar"_s, folders.calendar, u"SUMMARY:Lab report; draft"_s},
            {u"contacts"_s, folders.contacts, u"FN:Dr. Ada Müller-Vale"_s}};
        for (const auto& [kind, folder, text] : kinds) {
            const bool contacts = kind == u"contacts"_s;
            QVERIFY(QDir().mkpath(root + kind) &&
                    DatabaseFiles::Write(root + kind + u"/.Radicale.props"_s,
                                         contacts ? R"({"tag": "VADDRESSBOOK"})"
                                                  : R"({"tag": "VCALENDAR"})"));
            config +=
                u"[pair %1]\na = \"%1_brindle\"\nb = \"%1_server\"\ncollections = null\n"
                u"[storage %1_brindle]\ntype = \"filesystem\"\npath = \"%2/\"\nfileext = \"%3\"\n"
                u"[storage %1_server]\ntype = \"%4\"\nurl = \"http://127.0.0.1:%5/brindle/%1/\"\n"_s
                    .arg(kind, folder, contacts ? u".vcf"_s : u".ics"_s,
                         contacts ? u"carddav"_s : u"caldav"_s, QString::number(port));
        }
        const QString configPath = m_pim->filePath(u"vdirsyncer.conf"_s);
        QVERIFY(DatabaseFiles::Write(configPath, config.toUtf8()));
        // Discovery fails until the server listens.
        QString error = u"not run"_s;
        auto vdirsyncer = [&](const QString& step) {
            error.clear();
            m_clients->Run(u"vdirsyncer"_s, {u"-c"_s, configPath, step}, {}, &error);
            return error.isEmpty();
        };
        QTRY_VERIFY_WITH_TIMEOUT(vdirsyncer(u"discover"_s), 20000);
        vdirsyncer(u"sync"_s);
        QVERIFY2(error.isEmpty(), qPrintable(error));

        // Each item reached the server once, with the properties Brindle wrote.
        for (const auto& [kind, folder, text] : kinds) {
            const QStringList stored = Items(root + kind);
            QCOMPARE(stored.size(), 1);
            const QStringList properties = Properties(folder + u'/' + Items(folder).value(0));
            QVERIFY2(properties.contains(text), qPrintable(properties.join(u'\n')));
            QCOMPARE(properties.filter(QRegularExpression(u"^UID:.+"_s)).size(), 1);
            QCOMPARE(Properties(root + kind + u'/' + stored[0]), properties);
        }
    }

private:
    // For the clients: the coursework exported as task and event, with
    // details; an instructor exported as contact, with office hours.
    bool ExportForClients()
    {
        m_vale = Instructor(u"Dr. Ada Müller-Vale"_s);
        Link(m_course, m_vale);
        // Long enough to be folded, with characters to escape and to keep whole.
        const quint32 hall = Building(Hall);
        Sql(u"UPDATE Coursework SET Details = '%1'"_s.arg(Details).toUtf8());
        Sql(QByteArray("UPDATE Instructor SET PhoneNumber = '555-1234', Email = "
                       "'vale@example.edu', RoomNumber = '101', BuildingID = ") +
            QByteArray::number(hall));
        Time(m_vale, CTimeTable::Monday | CTimeTable::Wednesday,
             BrindleDate::FromTime(QTime(10, 0)), BrindleDate::FromTime(QTime(11, 30)));
        m_clients.emplace(PimFolders::Load());
        return Export(m_work, true, true) && ExportContacts(m_course) && m_clients->IsReady();
    }

    quint32 m_course = 0;
    quint32 m_work = 0;
    quint32 m_vale = 0;
    std::optional<PimClients> m_clients;
};

QTEST_MAIN(TestOutlookExport)
#include "tst_outlookexport.moc"
