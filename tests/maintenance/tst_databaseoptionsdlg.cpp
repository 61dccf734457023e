// The Database Options dialog: the database let go of while it is open and
// taken back when it closes, the Today switch, each command through its file
// dialog and message boxes, the keyboard, and the main frame's command.
#include "BrindleData.h"
#include "MaintenanceFiles.h"
#include "app/Clock.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/FileDialog.h"
#include "controls/HelpViewer.h"
#include "grading/PredictionStore.h"
#include "maintenance/DatabaseOptionsDlg.h"
#include "maintenance/DatabaseVolume.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTextBrowser>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// While alive, answers every file dialog with the queued paths in turn (an
// empty one cancels) and records what was asked.
class FileAnswers
{
public:
    explicit FileAnswers(QStringList paths) : m_paths(std::move(paths))
    {
        BrindleFileDialog::SetAnswerer([this](const BrindleFileDialog::Request& request) {
            m_requests.append(request);
            return m_paths.isEmpty() ? QString() : m_paths.takeFirst();
        });
    }
    ~FileAnswers() { BrindleFileDialog::SetAnswerer({}); }
    const QList<BrindleFileDialog::Request>& Requests() const { return m_requests; }

private:
    QStringList m_paths;
    QList<BrindleFileDialog::Request> m_requests;
};

QVariant StoredSwitch(const QString& file)
{
    return QSettings(file, QSettings::IniFormat).value(u"Today/Enabled"_s);
}

} // namespace

class TestDatabaseOptionsDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void letsGoOfTheDatabaseWhileOpen();
    void todaySwitch_data();
    void todaySwitch();
    void backupAsksForTheDatedName();
    void restoreReportsWhyAFileIsRefused();
    void restoreBringsTheChosenDatabase();
    void clearAsksThenKeepsWhatIsNotACourse_data();
    void clearAsksThenKeepsWhatIsNotACourse();
    void keyboardAlone();
    void everyTextFitsAtDefaultSize();
    void helpOpensItsSection();
    void mainFrameShowsTheRestoredDatabase();

private:
    QString SettingsFile() const { return m_db->Folder() + u"/Brindle.ini"_s; }

    std::unique_ptr<TestDatabase> m_db;
};

void TestDatabaseOptionsDlg::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    qputenv("BRINDLE_SETTINGS", SettingsFile().toUtf8());
    BrindleClock::SetNow(QDateTime(QDate(2006, 1, 1), QTime(9, 30)));
}

void TestDatabaseOptionsDlg::cleanup()
{
    BrindleClock::SetNow(QDateTime());
    CPredictionStore::Instance().SetActive(false);
    m_db.reset();
    qunsetenv("BRINDLE_SETTINGS");
}

void TestDatabaseOptionsDlg::letsGoOfTheDatabaseWhileOpen()
{
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetShowDone(1);
    QVERIFY(state.UpdateRecord());
    {
        DatabaseOptionsDlg dialog;
        QVERIFY(!CDataTable::GetMount()->IsMounted());
        QVERIFY(!state.IsOpen());
        // The file alone holds every record: another program may change it now.
        QVERIFY(!QFileInfo::exists(m_db->Path() + u"-journal"_s));
        QVERIFY(MaintenanceFiles::Execute(m_db->Path(), "UPDATE AppState SET ShowDone = 0"));

        dialog.reject();
        QVERIFY(CDataTable::GetMount()->IsMounted());
        QVERIFY(state.IsOpen());
        QVERIFY(state.GetRecordID() != 0);
        QCOMPARE(state.GetShowDone(), 0);
        QVERIFY(!dialog.DatabaseChanged());
    }
    QVERIFY(CDataTable::GetMount()->IsMounted());
}

void TestDatabaseOptionsDlg::todaySwitch_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("whileOpen");
    QTest::addColumn<QVariant>("after");
    QTest::newRow("on") << QVariant(1u) << QVariant(0u) << QVariant(1u);
    QTest::newRow("on, any non-zero value") << QVariant(7u) << QVariant(0u) << QVariant(1u);
    QTest::newRow("off") << QVariant(0u) << QVariant(0u) << QVariant(0u);
    QTest::newRow("no switch") << QVariant() << QVariant() << QVariant();
}

void TestDatabaseOptionsDlg::todaySwitch()
{
    QFETCH(QVariant, before);
    QFETCH(QVariant, whileOpen);
    QFETCH(QVariant, after);
    if (before.isValid()) {
        QSettings settings(SettingsFile(), QSettings::IniFormat);
        settings.setValue(u"Today/Enabled"_s, before);
    }
    auto asNumber = [](const QVariant& value) {
        return value.isValid() ? QVariant(value.toUInt()) : QVariant();
    };
    {
        DatabaseOptionsDlg dialog;
        QCOMPARE(asNumber(StoredSwitch(SettingsFile())), whileOpen);
        dialog.accept();
        QCOMPARE(asNumber(StoredSwitch(SettingsFile())), after);
    }
    QCOMPARE(QFileInfo::exists(SettingsFile()), before.isValid());
}

void TestDatabaseOptionsDlg::backupAsksForTheDatedName()
{
    Records::Course(u"Astronomy"_s);
    const QString target = m_db->Folder() + u"/Brindle 1-1-2006.db"_s;
    DatabaseOptionsDlg dialog;
    {
        FileAnswers files({QString(), target});
        MessageAnswers messages;
        QVERIFY(!dialog.OnBackup());
        QVERIFY(messages.Texts().isEmpty());
        QVERIFY(!QFileInfo::exists(target));

        QVERIFY(dialog.OnBackup());
        QCOMPARE(files.Requests().size(), 2);
        const BrindleFileDialog::Request& request = files.Requests().constLast();
        QCOMPARE(request.kind, BrindleFileDialog::Request::Save);
        QCOMPARE(request.suggestedName, u"Brindle 1-1-2006.db"_s);
        QCOMPARE(request.defaultSuffix, u"db"_s);
        QCOMPARE(messages.Texts(), QStringList({u"The database has been backed up"_s}));
    }
    QCOMPARE(MaintenanceFiles::Dump(target), MaintenanceFiles::Dump(m_db->Path()));

    // A copy that cannot be proven is not called a backup.
    QVERIFY(MaintenanceFiles::Write(target + u".tmp"_s, "in the way"));
    FileAnswers files({target});
    MessageAnswers messages;
    QVERIFY(!dialog.OnBackup());
    QCOMPARE(messages.Texts().size(), 1);
    QVERIFY2(messages.Texts().constFirst().contains(target + u".tmp"_s),
             qPrintable(messages.Texts().constFirst()));
    QVERIFY(!dialog.DatabaseChanged());
}

void TestDatabaseOptionsDlg::restoreReportsWhyAFileIsRefused()
{
    const QString chosen = m_db->Folder() + u"/notes.db"_s;
    QVERIFY(MaintenanceFiles::Write(chosen, "my lecture notes"));
    DatabaseOptionsDlg dialog;
    FileAnswers files({chosen});
    MessageAnswers messages;
    QVERIFY(!dialog.OnRestore());
    QCOMPARE(files.Requests().constFirst().kind, BrindleFileDialog::Request::Open);
    QCOMPARE(files.Requests().constFirst().filters,
             QStringList({u"Database Files (*.db)"_s, u"All Files (*)"_s}));
    QCOMPARE(messages.Texts().size(), 1);
    QVERIFY(messages.Texts().constFirst().startsWith(u"Restore failed!\n"_s));
    QVERIFY(messages.Texts().constFirst().contains(u"not a database"_s));
    QVERIFY(!dialog.DatabaseChanged());
}

void TestDatabaseOptionsDlg::restoreBringsTheChosenDatabase()
{
    const QString backup = m_db->Folder() + u"/backup.db"_s;
    Records::Course(u"Kept In The Backup"_s);
    {
        DatabaseOptionsDlg dialog;
        FileAnswers files({backup});
        MessageAnswers messages;
        QVERIFY(dialog.OnBackup());
    }
    Records::Course(u"Added Later"_s);
    QCOMPARE(Records::Count("Course"), 2);

    DatabaseOptionsDlg dialog;
    FileAnswers files({backup});
    MessageAnswers messages;
    QVERIFY(dialog.OnRestore());
    QCOMPARE(messages.Texts(), QStringList({u"The database has been restored"_s}));
    QVERIFY(dialog.DatabaseChanged());
    QVERIFY(dialog.Finish().ok);
    QCOMPARE(Records::Count("Course"), 1);
}

void TestDatabaseOptionsDlg::clearAsksThenKeepsWhatIsNotACourse_data()
{
    QTest::addColumn<bool>("confirmed");
    QTest::newRow("No") << false;
    QTest::newRow("Yes") << true;
}

void TestDatabaseOptionsDlg::clearAsksThenKeepsWhatIsNotACourse()
{
    QFETCH(bool, confirmed);
    const quint32 archived = Records::Semester(u"Fall 2025"_s);
    const quint32 current = Records::Course(u"Chemistry"_s);
    const quint32 old = Records::Course(u"History"_s, archived, 0.91);
    Records::Coursework(current, Records::CwType(current, u"Quiz"_s), u"Quiz 1"_s, 9, 10);
    Records::Policy(old, 1);
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentCourseID(current);
    state.SetShowDone(1);
    QVERIFY(state.UpdateRecord());
    const int grades = Records::Count("GradeScale");
    QVERIFY(grades > 0);

    DatabaseOptionsDlg dialog;
    MessageAnswers messages({confirmed ? QMessageBox::Yes : QMessageBox::No});
    QCOMPARE(dialog.OnClear(), confirmed);
    QCOMPARE(messages.Texts().constFirst(),
             u"Clearing a database will remove all the courses and this change cannot be "
             "undone.\n\nAre you sure you want to clear the databaes?"_s);
    QCOMPARE(messages.Texts().size(), confirmed ? 2 : 1);
    if (confirmed)
        QCOMPARE(messages.Texts().constLast(), u"The database has been cleared"_s);
    QCOMPARE(dialog.DatabaseChanged(), confirmed);
    QVERIFY(!CDataTable::GetMount()->IsMounted());
    QVERIFY(dialog.Finish().ok);

    for (const char* table : {"Course", "CourseOrder", "Coursework", "CwType", "GradingPolicy"})
        QCOMPARE(Records::Count(table) == 0, confirmed);
    QCOMPARE(Records::Count("Semester"), 1);
    QCOMPARE(Records::Count("GradeScale"), grades);
    QCOMPARE(Records::Count("GPAInfo"), 1);
    QCOMPARE(Records::Count("AppState"), 1);
    QCOMPARE(state.GetShowDone(), 1);
    QCOMPARE(state.GetCurrentCourseID(), confirmed ? AllCoursesID : current);
}

void TestDatabaseOptionsDlg::keyboardAlone()
{
    DatabaseOptionsDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto* backup = dialog.findChild<QPushButton*>(u"backupButton"_s);
    auto* restore = dialog.findChild<QPushButton*>(u"restoreButton"_s);
    auto* clear = dialog.findChild<QPushButton*>(u"clearButton"_s);
    QVERIFY(backup && restore && clear);
    QCOMPARE(QApplication::focusWidget(), backup);

    FileAnswers files({QString(), QString()});
    MessageAnswers messages({QMessageBox::No});
    // Return presses the button that has the focus.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(files.Requests().size(), 1);
    QCOMPARE(files.Requests().constLast().kind, BrindleFileDialog::Request::Save);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), restore);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(files.Requests().constLast().kind, BrindleFileDialog::Request::Open);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), clear);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(messages.Texts().size(), 1);

    // Escape closes it and takes the database back.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QVERIFY(CDataTable::GetMount()->IsMounted());
    QVERIFY(CAppStateTable::Instance().IsOpen());
}

void TestDatabaseOptionsDlg::everyTextFitsAtDefaultSize()
{
    DatabaseOptionsDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (auto* button : dialog.findChildren<QPushButton*>())
        QVERIFY2(button->width() >= button->fontMetrics().horizontalAdvance(button->text()),
                 qPrintable(button->text()));
    auto* description = dialog.findChild<QLabel*>(u"descriptionLabel"_s);
    QVERIFY(description->height() >= description->heightForWidth(description->width()));
    // BRINDLE_GRAB_DIR: where to leave a picture of the dialog to look at.
    const QString grabs = qEnvironmentVariable("BRINDLE_GRAB_DIR");
    if (!grabs.isEmpty())
        QVERIFY(dialog.grab().save(grabs + u"/DatabaseOptionsDlg.png"_s));
}

void TestDatabaseOptionsDlg::helpOpensItsSection()
{
    DatabaseOptionsDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(&dialog, Qt::Key_F1);
    auto* viewer = dialog.findChild<CHelpViewer*>();
    QVERIFY(viewer);
    QCOMPARE(viewer->CurrentTopic(), u"DatabaseOptionsDlg"_s);
    QVERIFY(viewer->Browser()->toPlainText().contains(u"Database Options"_s));
}

void TestDatabaseOptionsDlg::mainFrameShowsTheRestoredDatabase()
{
    // A backup holding one course, then a database with another.
    const quint32 backedUp = Records::Course(u"Backed Up Course"_s);
    const QString backup = m_db->Folder() + u"/backup.db"_s;
    DatabaseVolume::Release();
    QVERIFY(QFile::copy(m_db->Path(), backup));
    QVERIFY(DatabaseVolume::Reopen().ok);
    Records::Course(u"Newer Course"_s);
    CPredictionStore::Instance().SetActive(true);
    CPredictionStore::Instance().SetPredictedGrade(backedUp, 0.5);

    CMainFrame frame;
    QComboBox* courses = frame.View()->CourseSelector();
    QVERIFY(courses->findText(u"Newer Course"_s) >= 0);
    QAction* command = frame.findChild<QAction*>(u"actionDatabase"_s);
    QVERIFY(command && command->isEnabled());

    QString shown;
    DialogRunner::SetHook([&](QDialog& dialog) {
        shown = dialog.objectName() + u" "_s + dialog.windowTitle();
        FileAnswers files({backup});
        MessageAnswers messages;
        static_cast<DatabaseOptionsDlg&>(dialog).OnRestore();
        return int(QDialog::Rejected);
    });
    command->trigger();
    DialogRunner::SetHook({});

    QCOMPARE(shown, u"DatabaseOptionsDlg Database Options"_s);
    QVERIFY(CAppStateTable::Instance().IsOpen());
    QVERIFY(courses->findText(u"Backed Up Course"_s) >= 0);
    QCOMPARE(courses->findText(u"Newer Course"_s), -1);
    QVERIFY(!CPredictionStore::Instance().PredictedGrade(backedUp).has_value());
}

QTEST_MAIN(TestDatabaseOptionsDlg)
#include "tst_databaseoptionsdlg.moc"
