// The export through the editors, without the clients: the "Export" menu, links
// on opening and on OK, failures, coursework deletion, and the "Export Folders"
// dialog.
// Fault tried, and caught: an update of a linked item reported as done
// without saving it (linksFollowTheEditor).
#include "ExportFixture.h"
#include "app/MainView.h"
#include "editors/CourseworkDlgExport.h"
#include "outlook/dialogs/ExportFoldersDlg.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QSettings>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace EditorRecords;

namespace {

constexpr quint32 Task = COutlookTable::olTaskItem;
constexpr quint32 Appointment = COutlookTable::olAppointmentItem;

// A file where a folder should be, so that the folder cannot be made.
bool Block(const QString& path)
{
    QFile blocker(path);
    return blocker.open(QIODevice::WriteOnly);
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
        m_work = Records::Coursework(
            m_course, Records::CwType(m_course, u"Homework"_s), u"Lab report"_s, -1.0, -1.0,
            BrindleDate::FromDateTime(QDateTime(QDate(2026, 11, 25), QTime(14, 30))), 40);
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

private:
    quint32 m_course = 0;
    quint32 m_work = 0;
};

QTEST_MAIN(TestOutlookExport)
#include "tst_outlookexport.moc"
