// The export through the editors, without the clients: links on opening and
// on OK, failures, coursework deletion, and the "Export Folders" dialog.
#include "ExportFixture.h"
#include "app/MainView.h"
#include "controls/Mnemonic.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgExport.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "editors/InstructorDlg.h"
#include "outlook/dialogs/ExportFoldersDlg.h"
#include "res/strings/ExportStrings.h"
#include "store/BrindleData.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QLineEdit>
#include <QMenuBar>
#include <QSettings>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace EditorRecords;

namespace {

constexpr quint32 Task = COutlookTable::olTaskItem;
constexpr quint32 Appointment = COutlookTable::olAppointmentItem;
constexpr quint32 Contact = COutlookTable::olContactItem;

QAction* Action(QWidget& dialog, const char* name)
{
    return dialog.findChild<QAction*>(QString::fromLatin1(name));
}

// Opens the editor on the coursework, sets the two kinds and presses OK.
bool ExportCoursework(quint32 courseworkId, bool tasks, bool calendar)
{
    CourseworkDlg dialog;
    dialog.SetCourseworkID(courseworkId);
    if (!dialog.OnInitDialog())
        return false;
    if (Action(dialog, "actionExportTasks")->isChecked() != tasks)
        Action(dialog, "actionExportTasks")->trigger();
    if (Action(dialog, "actionExportCalendar")->isChecked() != calendar)
        Action(dialog, "actionExportCalendar")->trigger();
    return dialog.OnOK();
}

} // namespace

class TestOutlookExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void exportMenuComesBeforeAdd();
    void exportTwiceUpdatesOneItem();
    void uncheckingDropsOnlyTheLink();
    void createFailureIsReportedAfterTheSave_data();
    void createFailureIsReportedAfterTheSave();
    void withoutAStoreLinksAreKept();
    void deletingCourseworkKeepsTheItems();
    void contactLinkIsCheckedAgainstTheStore();
    void exportFoldersDialog();

private:
    std::unique_ptr<ExportFixture> m_fixture;
    quint32 m_course = 0;
    quint32 m_work = 0;
};

void TestOutlookExport::init()
{
    m_fixture = std::make_unique<ExportFixture>();
    QVERIFY(m_fixture->IsReady());
    m_course = Records::Course(u"Botany"_s);
    const quint32 type = Records::CwType(m_course, u"Homework"_s);
    m_work = Records::Coursework(
        m_course, type, u"Lab report"_s, -1.0, -1.0,
        BrindleDate::FromDateTime(QDateTime(QDate(2026, 11, 25), QTime(14, 30))), 40);
}

void TestOutlookExport::cleanup()
{
    m_fixture.reset();
}

void TestOutlookExport::exportMenuComesBeforeAdd()
{
    CourseworkDlg dialog;
    const QList<QAction*> menus = dialog.findChild<QMenuBar*>()->actions();
    QCOMPARE(menus.size(), 2);
    QCOMPARE(menus[0]->text(), WithMnemonic(ExportStrings::MenuExport()));
    QCOMPARE(menus[1]->menu()->objectName(), u"menuAdd"_s);
    QStringList items;
    for (QAction* item : menus[0]->menu()->actions())
        items << item->text();
    QCOMPARE(items, (QStringList{u"Tasks"_s, u"Calendar"_s}));
}

void TestOutlookExport::exportTwiceUpdatesOneItem()
{
    const PimFolders folders = m_fixture->Folders();
    QVERIFY(ExportCoursework(m_work, true, true));
    const QList<quint32> task = ExportFixture::Links(m_work, Task);
    const QList<quint32> appointment = ExportFixture::Links(m_work, Appointment);
    QCOMPARE(task.size(), 1);
    QCOMPARE(appointment.size(), 1);
    QCOMPARE(ExportFixture::Items(folders.tasks), QStringList{u"%1.ics"_s.arg(task[0])});

    {
        CourseworkDlg dialog;
        dialog.SetCourseworkID(m_work);
        QVERIFY(dialog.OnInitDialog());
        QVERIFY(Action(dialog, "actionExportTasks")->isChecked());
        QVERIFY(Action(dialog, "actionExportCalendar")->isChecked());
        dialog.InfoPage()->NameEdit()->setText(u"Lab report 2"_s);
        dialog.InfoPage()->SetProgress(100);
        QVERIFY(dialog.OnOK());
    }
    QCOMPARE(ExportFixture::Links(m_work, Task), task);
    QCOMPARE(ExportFixture::Links(m_work, Appointment), appointment);
    QCOMPARE(ExportFixture::Items(folders.tasks).size(), 1);
    QCOMPARE(ExportFixture::Items(folders.calendar).size(), 1);
    const QByteArray bytes = ExportFixture::Read(folders.tasks + u"/%1.ics"_s.arg(task[0]));
    QVERIFY(bytes.contains("SUMMARY:Lab report 2"));
    QVERIFY(bytes.contains("STATUS:COMPLETED"));
}

void TestOutlookExport::uncheckingDropsOnlyTheLink()
{
    QVERIFY(ExportCoursework(m_work, true, false));
    QVERIFY(ExportCoursework(m_work, false, false));
    QVERIFY(ExportFixture::Links(m_work, Task).isEmpty());
    QCOMPARE(ExportFixture::Items(m_fixture->Folders().tasks).size(), 1);
    // Checked again later: a second task, as the first is no longer Brindle's.
    QVERIFY(ExportCoursework(m_work, true, false));
    QCOMPARE(ExportFixture::Items(m_fixture->Folders().tasks).size(), 2);
}

void TestOutlookExport::createFailureIsReportedAfterTheSave_data()
{
    QTest::addColumn<bool>("tasks");
    QTest::addColumn<QString>("message");
    QTest::newRow("task") << true << u"Failed to create Task!"_s;
    QTest::newRow("appointment") << false << u"Failed to create appointment!"_s;
}

void TestOutlookExport::createFailureIsReportedAfterTheSave()
{
    QFETCH(bool, tasks);
    QFETCH(QString, message);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(m_work);
    QVERIFY(dialog.OnInitDialog());
    // The folder goes away while the editor is open.
    const QString folder = tasks ? m_fixture->Folders().tasks : m_fixture->Folders().calendar;
    QVERIFY(QDir(folder).removeRecursively());
    QFile blocker(folder);
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    Action(dialog, tasks ? "actionExportTasks" : "actionExportCalendar")->trigger();
    dialog.InfoPage()->NameEdit()->setText(u"Renamed"_s);
    MessageAnswers answers;
    QVERIFY(dialog.OnOK());
    QCOMPARE(answers.Texts(), QStringList{message});
    QVERIFY(ExportFixture::Links(m_work, tasks ? Task : Appointment).isEmpty());
    CCourseworkTable coursework;
    QVERIFY(coursework.Open() && coursework.MoveToRecord(m_work));
    QCOMPARE(coursework.GetCourseworkName(), u"Renamed"_s);
}

void TestOutlookExport::withoutAStoreLinksAreKept()
{
    QVERIFY(ExportCoursework(m_work, true, false));
    const QList<quint32> task = ExportFixture::Links(m_work, Task);
    // The folder cannot be reached (a drive that is not mounted): log-on
    // fails, nothing is exported and the link is neither judged nor lost.
    QTemporaryDir elsewhere;
    QFile blocker(elsewhere.filePath(u"file"_s));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    QSettings(GetSettingsPath(), QSettings::IniFormat)
        .setValue(u"Export/TasksFolder"_s, elsewhere.filePath(u"file/tasks"_s));
    CourseworkDlg dialog;
    dialog.SetCourseworkID(m_work);
    QVERIFY(dialog.OnInitDialog());
    QVERIFY(!dialog.Export()->Connection());
    QVERIFY(Action(dialog, "actionExportTasks")->isChecked());
    MessageAnswers answers;
    QVERIFY(dialog.OnOK());
    QVERIFY(answers.Texts().isEmpty());
    QCOMPARE(ExportFixture::Links(m_work, Task), task);
}

void TestOutlookExport::deletingCourseworkKeepsTheItems()
{
    QVERIFY(ExportCoursework(m_work, true, true));
    CMainView view;
    MessageAnswers answers({QMessageBox::Yes});
    view.DeleteCoursework(m_work);
    QCOMPARE(CountWhere("Coursework", "id", m_work), 0);
    QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", m_work), 0);
    QCOMPARE(ExportFixture::Items(m_fixture->Folders().tasks).size(), 1);
    QCOMPARE(ExportFixture::Items(m_fixture->Folders().calendar).size(), 1);
}

void TestOutlookExport::contactLinkIsCheckedAgainstTheStore()
{
    const quint32 vale = Instructor(u"Dr. Vale"_s);
    Link(m_course, vale);
    {
        InstructorDlg dialog(m_course);
        QVERIFY(!Action(dialog, "actionExportContacts")->isChecked());
        Action(dialog, "actionExportContacts")->trigger();
        QVERIFY(dialog.OnOK());
    }
    const QList<quint32> contact = ExportFixture::Links(vale, Contact);
    QCOMPARE(contact.size(), 1);
    {
        InstructorDlg dialog(m_course);
        QVERIFY(Action(dialog, "actionExportContacts")->isChecked());
    }
    // A link to a contact the user deleted, and one to a number the store
    // never gave: both go on opening.
    QVERIFY(QFile::remove(m_fixture->Folders().contacts + u"/%1.vcf"_s.arg(contact[0])));
    const quint32 stray = Instructor(u"Dr. Moss"_s);
    Link(m_course, stray);
    OutlookLink(stray, 4242, COutlookTable::olContactItem);
    InstructorDlg dialog(m_course);
    QCOMPARE(dialog.Entries().size(), 2u);
    QVERIFY(!Action(dialog, "actionExportContacts")->isChecked());
    QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", vale), 0);
    QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", stray), 0);
}

void TestOutlookExport::exportFoldersDialog()
{
    QTemporaryDir own;
    const QString tasks = own.filePath(u"my tasks"_s);
    {
        ExportFoldersDlg dialog;
        QVERIFY(dialog.TasksEdit()->text().isEmpty());
        QCOMPARE(dialog.TasksEdit()->placeholderText(),
                 QDir::toNativeSeparators(PimFolders::Defaults().tasks));
        dialog.TasksEdit()->setText(tasks);
        // A folder that cannot be made is refused, and nothing is saved.
        QFile blocker(own.filePath(u"file"_s));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        dialog.ContactsEdit()->setText(own.filePath(u"file/contacts"_s));
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
    QVERIFY(ExportCoursework(m_work, true, false));
    QCOMPARE(ExportFixture::Items(tasks).size(), 1);
    ExportFoldersDlg again;
    QCOMPARE(again.TasksEdit()->text(), QDir::toNativeSeparators(tasks));
}

QTEST_MAIN(TestOutlookExport)
#include "tst_outlookexport.moc"
