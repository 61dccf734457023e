// What the real clients make of the export: todoman lists the task, khal the
// all-day event, khard the contact; their own changes (a task marked done, an
// event edited) survive Brindle's next update.
#include "ExportFixture.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "editors/InstructorDlg.h"
#include "store/BrindleData.h"
#include "support/PimClients.h"
#include "support/Records.h"

#include <QAction>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace EditorRecords;

namespace {

#define REQUIRE_CLIENT(program)                                                                    \
    if (PimClients::Find(u##program##_s).isEmpty())                                                \
    QSKIP(program " is not installed (scripts/install-deps.sh installs it)")

const QDateTime DueAt(QDate(2026, 11, 25), QTime(14, 30));

bool ExportCoursework(quint32 courseworkId, const QString& name, int progress)
{
    CourseworkDlg dialog;
    dialog.SetCourseworkID(courseworkId);
    if (!dialog.OnInitDialog())
        return false;
    for (const char* kind : {"actionExportTasks", "actionExportCalendar"}) {
        QAction* action = dialog.findChild<QAction*>(QString::fromLatin1(kind));
        if (!action->isChecked())
            action->trigger();
    }
    dialog.InfoPage()->NameEdit()->setText(name);
    dialog.InfoPage()->SetProgress(progress);
    return dialog.OnOK();
}

} // namespace

class TestExportClients : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clientChangesSurviveAnUpdate();
    void contactInKhard();

private:
    // todoman's tasks, every status, as its stable JSON gives them.
    QJsonArray Todos();
    // khal's events in the week of the due date: start|end|title|categories|location.
    QStringList Events();

    std::unique_ptr<ExportFixture> m_fixture;
    std::unique_ptr<PimClients> m_clients;
    quint32 m_work = 0;
};

void TestExportClients::init()
{
    m_fixture = std::make_unique<ExportFixture>();
    QVERIFY(m_fixture->IsReady());
    m_clients = std::make_unique<PimClients>(m_fixture->Folders());
    QVERIFY(m_clients->IsReady());
    const quint32 course = Records::Course(u"Botany"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    m_work = Records::Coursework(course, type, u"Lab report"_s, -1.0, -1.0,
                                 BrindleDate::FromDateTime(DueAt), 0);
    CCourseworkTable coursework;
    QVERIFY(coursework.Open() && coursework.MoveToRecord(m_work));
    coursework.SetDetails(u"Two pages, with graphs"_s);
    QVERIFY(coursework.UpdateRecord());
}

void TestExportClients::cleanup()
{
    m_clients.reset();
    m_fixture.reset();
}

QJsonArray TestExportClients::Todos()
{
    QString error;
    const QString out = m_clients->Run(
        u"todoman"_s, {u"--porcelain"_s, u"list"_s, u"--status"_s, u"ANY"_s}, {}, &error);
    if (!error.isEmpty())
        qWarning("%s", qPrintable(error));
    return QJsonDocument::fromJson(out.toUtf8()).array();
}

QStringList TestExportClients::Events()
{
    QString error;
    const QString out = m_clients->Run(
        u"khal"_s,
        {u"list"_s, u"--format"_s, u"{start-date}|{end-date}|{title}|{categories}|{location}"_s,
         u"--day-format"_s, QString(), u"2026-11-22"_s, u"7d"_s},
        {}, &error);
    if (!error.isEmpty())
        qWarning("%s", qPrintable(error));
    return out.split(u'\n', Qt::SkipEmptyParts);
}

void TestExportClients::clientChangesSurviveAnUpdate()
{
    REQUIRE_CLIENT("todoman");
    REQUIRE_CLIENT("khal");
    QVERIFY(ExportCoursework(m_work, u"Lab report"_s, 40));
    QJsonObject todo = Todos().at(0).toObject();
    QCOMPARE(todo[u"summary"_s].toString(), u"Lab report"_s);
    QCOMPARE(todo[u"description"_s].toString(), u"Two pages, with graphs"_s);
    // todoman gives the due time in seconds, read in the local zone.
    QCOMPARE(todo[u"due"_s].toInteger(), DueAt.toSecsSinceEpoch());
    QCOMPARE(todo[u"completed"_s].toBool(), false);
    // An all-day event on the due day, and only there.
    QCOMPARE(Events(), QStringList{u"2026-11-25|2026-11-25|Lab report|Botany|"_s});

    // Done in todoman; in khal's interactive editor, answered line by line:
    // a location, a reminder an hour before, done.
    QString error;
    m_clients->Run(u"todoman"_s, {u"done"_s, QString::number(todo[u"id"_s].toInt())}, {}, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    m_clients->Run(u"khal"_s, {u"edit"_s, u"--show-past"_s, u"Lab report"_s},
                   "l\nGreenhouse 2\na\n1h\nn\n", &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));

    QVERIFY(ExportCoursework(m_work, u"Lab report (final)"_s, 40));
    const QJsonArray todos = Todos();
    QCOMPARE(todos.size(), 1);
    todo = todos[0].toObject();
    QCOMPARE(todo[u"summary"_s].toString(), u"Lab report (final)"_s);
    QCOMPARE(todo[u"completed"_s].toBool(), true);
    QCOMPARE(todo[u"due"_s].toInteger(), DueAt.toSecsSinceEpoch());
    QCOMPARE(Events(),
             QStringList{u"2026-11-25|2026-11-25|Lab report (final)|Botany|Greenhouse 2"_s});
    const QString calendar = m_fixture->Folders().calendar;
    const QByteArray event =
        ExportFixture::Read(calendar + u"/"_s + ExportFixture::Items(calendar).value(0));
    QVERIFY(event.contains("TRIGGER:-PT1H"));
}

void TestExportClients::contactInKhard()
{
    REQUIRE_CLIENT("khard");
    const quint32 course = Records::Course(u"Zoology"_s);
    const quint32 vale = Instructor(u"Dr. Ada Vale"_s);
    Link(course, vale);
    {
        CInstructorTable instructor;
        QVERIFY(instructor.Open() && instructor.MoveToRecord(vale));
        instructor.SetPhoneNumber(u"555-1234"_s);
        instructor.SetEmail(u"vale@example.edu"_s);
        instructor.SetRoomNumber(u"101"_s);
        instructor.SetBuildingID(Building(u"Science Hall"_s));
        QVERIFY(instructor.UpdateRecord());
    }
    Time(vale, CTimeTable::Monday | CTimeTable::Wednesday, BrindleDate::FromTime(QTime(10, 0)),
         BrindleDate::FromTime(QTime(11, 30)));
    {
        InstructorDlg dialog(course);
        dialog.findChild<QAction*>(u"actionExportContacts"_s)->trigger();
        QVERIFY(dialog.OnOK());
    }
    QString error;
    const QString list = m_clients->Run(u"khard"_s, {u"list"_s}, {}, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY2(list.contains(u"Dr. Ada Vale"_s), qPrintable(list));
    const QString shown = m_clients->Run(u"khard"_s, {u"show"_s, u"Vale"_s}, {}, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    for (const QString& text :
         {u"HOME: 555-1234"_s, u"INTERNET: vale@example.edu"_s, u"WORK: 101 Science Hall"_s,
          u"Office Hours:"_s, u"10:00 - 11:30 on MW"_s})
        QVERIFY2(shown.contains(text), qPrintable(text + u" in:\n"_s + shown));

    // Office hours change: the notes follow, still one contact.
    Time(vale, CTimeTable::Friday, BrindleDate::FromTime(QTime(9, 0)),
         BrindleDate::FromTime(QTime(9, 45)));
    {
        InstructorDlg dialog(course);
        QVERIFY(dialog.findChild<QAction*>(u"actionExportContacts"_s)->isChecked());
        QVERIFY(dialog.OnOK());
    }
    const QString again = m_clients->Run(u"khard"_s, {u"show"_s, u"Vale"_s}, {}, &error);
    QVERIFY2(again.contains(u"09:00 - 09:45 on F"_s), qPrintable(again));
    QCOMPARE(ExportFixture::Items(m_fixture->Folders().contacts).size(), 1);
}

QTEST_MAIN(TestExportClients)
#include "tst_exportclients.moc"
