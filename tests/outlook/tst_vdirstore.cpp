// The vdir store on its own: logging on, ids never reused, the iCalendar and
// vCard it writes, and what an update keeps of a file a client changed (the
// clients' own reading, escaping and folding included, are in tst_exportclients;
// a folder that goes away, in tst_outlookexport).
// Faults tried, and caught: the next id taken from the files present alone,
// not the store's own counter (idsAreUniqueAndNeverReused); a save below
// 100 % clearing a client's done mark (taskLines).
#include "outlook/VdirStore.h"
#include "store/DateEncoding.h"
#include "support/DatabaseFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Task = COutlookTable::olTaskItem;
constexpr auto Appointment = COutlookTable::olAppointmentItem;
constexpr auto Contact = COutlookTable::olContactItem;

using DatabaseFiles::Read;
using DatabaseFiles::Write;

// The unfolded lines of an iCalendar or vCard file.
QStringList Lines(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes).remove(u"\r\n "_s).split(u"\r\n"_s, Qt::SkipEmptyParts);
}

// Fails naming the line and the file when a line is missing.
#define HAS_LINES(lines, ...)                                                                      \
    for (const QString& line : {__VA_ARGS__})                                                      \
    QVERIFY2((lines).contains(line), qPrintable(line + u" in "_s + (lines).join(u'|')))

} // namespace

class TestVdirStore : public QObject
{
    Q_OBJECT

private slots:
    // Each function starts on a store logged on to three fresh folders.
    void init()
    {
        QVERIFY(m_dir.emplace().isValid());
        m_store.emplace(Folders());
        QVERIFY(m_store->Logon());
    }

    void logonMakesFoldersAndKeepsDisplayNames()
    {
        const PimFolders folders = Folders();
        QCOMPARE(Read(folders.tasks + u"/displayname"_s), QByteArray("Brindle Tasks"));
        QCOMPARE(Read(folders.calendar + u"/displayname"_s), QByteArray("Brindle Calendar"));
        QVERIFY(Write(folders.contacts + u"/displayname"_s, "My Friends"));
        QVERIFY(CVdirStore(folders).Logon());
        QCOMPARE(Read(folders.contacts + u"/displayname"_s), QByteArray("My Friends"));
        // Nothing but the names: no probe or temporary file stays behind.
        QCOMPARE(QDir(folders.tasks).entryList(QDir::Files | QDir::Hidden),
                 QStringList{u"displayname"_s});
    }

    // Tasks and events share one collection here, as many CalDAV calendars do.
    void idsAreUniqueAndNeverReused()
    {
        PimFolders folders = Folders();
        folders.calendar = folders.tasks;
        CVdirStore store(folders);
        QVERIFY(store.Logon());
        auto task = store.CreateItem(Task);
        QVERIFY(task && task->Save());
        auto contact = store.CreateItem(Contact);
        QVERIFY(contact && contact->Save());
        QVERIFY(contact->get_Oid() > task->get_Oid());
        const quint32 last = contact->get_Oid();

        // The user deletes the newest item; its id is still not given again,
        // not even by a store opened afresh on the same folders.
        QVERIFY(QFile::remove(folders.contacts + u"/%1.vcf"_s.arg(last)));
        CVdirStore reopened(folders);
        QVERIFY(reopened.Logon());
        auto appointment = reopened.CreateItem(Appointment);
        QVERIFY(appointment && appointment->Save());
        QVERIFY(appointment->get_Oid() > last);

        // A file that arrived by syncing counts too.
        QVERIFY(Write(folders.tasks + u"/900.ics"_s,
                      Read(folders.tasks + u"/%1.ics"_s.arg(task->get_Oid()))));
        QCOMPARE(reopened.CreateItem(Task)->get_Oid(), 901u);

        QCOMPARE(reopened.GetItemFromOid(task->get_Oid())->GetItemType(), Task);
        QVERIFY(!reopened.GetItemFromOid(last));
        QCOMPARE(reopened.GetItemFromOid(appointment->get_Oid())->GetItemType(), Appointment);
    }

    // Floating due time, escaping and status; the clients read the rest.
    void taskLines()
    {
        auto created = m_store->CreateItem(Task);
        created->AsTask()->put_Subject(u"Lab report, part 2"_s);
        created->AsTask()->put_DueDate(
            BrindleDate::FromDateTime(QDateTime(QDate(2026, 11, 25), QTime(14, 30))));
        created->AsTask()->put_Complete(false);
        QVERIFY(created->Save());
        const QString path = Folders().tasks + u"/%1.ics"_s.arg(created->get_Oid());
        QStringList lines = Lines(Read(path));
        HAS_LINES(lines, u"BEGIN:VTODO"_s, u"SUMMARY:Lab report\\, part 2"_s,
                  u"DUE:20261125T143000"_s, u"STATUS:NEEDS-ACTION"_s);
        QVERIFY(lines.filter(QRegularExpression(u"^(COMPLETED|PERCENT-COMPLETE):"_s)).isEmpty());
        QCOMPARE(lines.filter(QRegularExpression(u"^UID:.+"_s)).size(), 1);

        // Ticked off in a task list: Brindle's next save at less than 100 %
        // keeps it done; its own progress moving across 100 % does reach it.
        QVERIFY(Write(path, Read(path).replace("STATUS:NEEDS-ACTION",
                                               "STATUS:COMPLETED\r\nCOMPLETED:20261120T100000Z")));
        for (auto [complete, done] : {std::pair{false, true}, {true, true}, {false, false}}) {
            auto item = m_store->GetItemFromOid(created->get_Oid());
            item->AsTask()->put_Complete(complete);
            QVERIFY(item->Save());
            lines = Lines(Read(path));
            QCOMPARE(lines.contains(u"STATUS:COMPLETED"_s), done);
            QCOMPARE(lines.contains(u"PERCENT-COMPLETE:100"_s), complete);
            QCOMPARE(lines.filter(u"COMPLETED:2"_s).size(), done ? 1 : 0);
        }
    }

    void contactUpdateKeepsOtherLines()
    {
        auto created = m_store->CreateItem(Contact);
        created->AsContact()->put_HomeTelephoneNumber(u"555-1234"_s);
        QVERIFY(created->Save());
        const QString path = Folders().contacts + u"/%1.vcf"_s.arg(created->get_Oid());
        QByteArray edited = Read(path);
        edited.replace("END:VCARD", "TEL;TYPE=CELL:555-9999\r\nitem1.X-ABLABEL:Desk\r\nEND:VCARD");
        QVERIFY(Write(path, edited));

        auto fetched = m_store->GetItemFromOid(created->get_Oid());
        IContact* contact = fetched->AsContact();
        contact->put_FileAs(u"Dr. Vale"_s);
        contact->put_LastName(u"Dr. Vale"_s);
        contact->put_HomeTelephoneNumber(u"555-0000"_s);
        contact->put_OfficeLocation(u"101 Science Hall"_s);
        contact->put_Email1Address(QString());
        QVERIFY(fetched->Save());
        const QStringList lines = Lines(Read(path));
        HAS_LINES(lines, u"TEL;TYPE=CELL:555-9999"_s, u"item1.X-ABLABEL:Desk"_s,
                  u"TEL;TYPE=HOME:555-0000"_s, u"FN:Dr. Vale"_s, u"N:Dr. Vale;;;;"_s,
                  u"ADR;TYPE=WORK:;101 Science Hall;;;;;"_s);
        QCOMPARE(lines.filter(u"TEL;TYPE=HOME"_s).size(), 1);
        QCOMPARE(lines.filter(u"EMAIL"_s).size(), 0);
        QCOMPARE(lines.filter(u"UID:"_s), Lines(edited).filter(u"UID:"_s));
    }

    void folderNames_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("folder");
        QTest::newRow("home") << u"~/.local/share/calendars/uni"_s
                              << QDir::homePath() + u"/.local/share/calendars/uni"_s;
        QTest::newRow("untidy") << u"  /srv/dav/../pim//tasks/ "_s << u"/srv/pim/tasks"_s;
        QTest::newRow("relative") << u"pim"_s << QDir::currentPath() + u"/pim"_s;
        QTest::newRow("empty") << u"  "_s << QString();
    }
    void folderNames()
    {
        QFETCH(QString, typed);
        QFETCH(QString, folder);
        QCOMPARE(PimFolders::Normalize(typed), folder);
    }

private:
    PimFolders Folders() const
    {
        return {m_dir->filePath(u"tasks"_s), m_dir->filePath(u"calendar"_s),
                m_dir->filePath(u"contacts"_s)};
    }

    std::optional<QTemporaryDir> m_dir;
    std::optional<CVdirStore> m_store;
};

QTEST_GUILESS_MAIN(TestVdirStore)
#include "tst_vdirstore.moc"
