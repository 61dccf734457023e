// The Database Options dialog: the database let go of while it is open and
// taken back when it closes, the Today switch, each command through its file
// dialog and message boxes, and the main frame's command.
// Fault tried, and caught: DatabaseClear committing each course's removal on
// its own (clear, "refused part-way" row).
#include "BrindleData.h"
#include "MaintenanceFiles.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/FileDialog.h"
#include "grading/PredictionStore.h"
#include "maintenance/DatabaseOptionsDlg.h"
#include "maintenance/DatabaseVolume.h"
#include "store/Clock.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QSettings>
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
    void backupThenRestore();
    void clear_data();
    void clear();
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
    DatabaseOptionsDlg dialog;
    QVERIFY(!CDataTable::GetMount()->IsMounted() && !state.IsOpen());
    // The file alone holds every record: another program may change it now.
    QVERIFY(!QFileInfo::exists(m_db->Path() + u"-journal"_s));
    QVERIFY(MaintenanceFiles::Execute(m_db->Path(), "UPDATE AppState SET ShowDone = 0"));
    dialog.reject();
    QVERIFY(CDataTable::GetMount()->IsMounted() && state.IsOpen());
    QCOMPARE(state.GetShowDone(), 0);
    QVERIFY(!dialog.DatabaseChanged());
}

void TestDatabaseOptionsDlg::todaySwitch_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("whileOpen");
    QTest::addColumn<QVariant>("after");
    QTest::newRow("on, any non-zero value") << QVariant(7u) << QVariant(0u) << QVariant(1u);
    QTest::newRow("off") << QVariant(0u) << QVariant(0u) << QVariant(0u);
    QTest::newRow("no switch") << QVariant() << QVariant() << QVariant();
}

void TestDatabaseOptionsDlg::todaySwitch()
{
    QFETCH(QVariant, before);
    QFETCH(QVariant, whileOpen);
    QFETCH(QVariant, after);
    if (before.isValid())
        QSettings(SettingsFile(), QSettings::IniFormat).setValue(u"Today/Enabled"_s, before);
    auto stored = [this] {
        const QVariant value =
            QSettings(SettingsFile(), QSettings::IniFormat).value(u"Today/Enabled"_s);
        return value.isValid() ? QVariant(value.toUInt()) : QVariant();
    };
    {
        DatabaseOptionsDlg dialog;
        QCOMPARE(stored(), whileOpen);
        dialog.accept();
        QCOMPARE(stored(), after);
    }
    QCOMPARE(QFileInfo::exists(SettingsFile()), before.isValid());
}

void TestDatabaseOptionsDlg::backupThenRestore()
{
    Records::Course(u"Kept In The Backup"_s);
    const QString backup = m_db->Folder() + u"/Brindle 1-1-2006.db"_s;
    {
        DatabaseOptionsDlg dialog;
        FileAnswers files({QString(), backup, backup});
        MessageAnswers messages;
        QVERIFY(!dialog.OnBackup()); // cancelled
        QVERIFY(messages.Texts().isEmpty() && !QFileInfo::exists(backup));
        QVERIFY(dialog.OnBackup());
        const BrindleFileDialog::Request& request = files.Requests().constLast();
        QCOMPARE(request.kind, BrindleFileDialog::Request::Save);
        QCOMPARE(request.suggestedName, u"Brindle 1-1-2006.db"_s);
        QCOMPARE(request.defaultSuffix, u"db"_s);
        QCOMPARE(messages.Texts(), QStringList({u"The database has been backed up"_s}));
        // A copy that cannot be proven is not called a backup.
        QVERIFY(MaintenanceFiles::Write(backup + u".tmp"_s, "in the way"));
        QVERIFY(!dialog.OnBackup());
        QVERIFY2(messages.Texts().constLast().contains(backup + u".tmp"_s),
                 qPrintable(messages.Texts().constLast()));
        QVERIFY(QFile::remove(backup + u".tmp"_s));
    }
    Records::Course(u"Added Later"_s);

    const QString notes = m_db->Folder() + u"/notes.db"_s;
    QVERIFY(MaintenanceFiles::Write(notes, "my lecture notes"));
    DatabaseOptionsDlg dialog;
    FileAnswers files({notes, backup});
    MessageAnswers messages;
    QVERIFY(!dialog.OnRestore());
    QCOMPARE(files.Requests().constFirst().kind, BrindleFileDialog::Request::Open);
    QCOMPARE(files.Requests().constFirst().filters,
             QStringList({u"Database Files (*.db)"_s, u"All Files (*)"_s}));
    QVERIFY(messages.Texts().constFirst().startsWith(u"Restore failed!\n"_s));
    QVERIFY(messages.Texts().constFirst().contains(u"not a database"_s));
    QVERIFY(!dialog.DatabaseChanged());
    QVERIFY(dialog.OnRestore());
    QCOMPARE(messages.Texts().constLast(), u"The database has been restored"_s);
    QVERIFY(dialog.DatabaseChanged());
    QVERIFY(dialog.Finish().ok);
    QCOMPARE(Records::Count("Course"), 1);
}

void TestDatabaseOptionsDlg::clear_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("refused"); // the second course's removal fails
    QTest::newRow("No") << int(QMessageBox::No) << false;
    QTest::newRow("Yes") << int(QMessageBox::Yes) << false;
    QTest::newRow("refused part-way") << int(QMessageBox::Yes) << true;
}

void TestDatabaseOptionsDlg::clear()
{
    QFETCH(int, answer);
    QFETCH(bool, refused);
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
    if (refused)
        QVERIFY(CDataTable::GetMount()->Execute(
            "CREATE TRIGGER Refuse BEFORE DELETE ON Course WHEN OLD.CourseName = 'History' "
            "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    const bool cleared = answer == QMessageBox::Yes && !refused;

    DatabaseOptionsDlg dialog;
    MessageAnswers messages({QMessageBox::StandardButton(answer)});
    QCOMPARE(dialog.OnClear(), cleared);
    QCOMPARE(messages.Texts().constFirst(),
             u"Clearing a database will remove all the courses and this change cannot be "
             "undone.\n\nAre you sure you want to clear the databaes?"_s);
    QCOMPARE(messages.Texts().size(), answer == QMessageBox::Yes ? 2 : 1);
    if (answer == QMessageBox::Yes)
        QVERIFY2(messages.Texts().constLast().startsWith(
                     refused ? u"The database could not be cleared; nothing was removed."_s
                             : u"The database has been cleared"_s),
                 qPrintable(messages.Texts().constLast()));
    QCOMPARE(dialog.DatabaseChanged(), cleared);
    QVERIFY(dialog.Finish().ok);

    for (const char* table : {"Course", "CourseOrder", "Coursework", "CwType", "GradingPolicy"})
        QVERIFY2((Records::Count(table) == 0) == cleared, table);
    QCOMPARE(Records::Count("Semester"), 1);
    QCOMPARE(Records::Count("GradeScale"), grades);
    QCOMPARE(Records::Count("AppState"), 1);
    QCOMPARE(state.GetShowDone(), 1);
    QCOMPARE(state.GetCurrentCourseID(), cleared ? AllCoursesID : current);
}

void TestDatabaseOptionsDlg::mainFrameShowsTheRestoredDatabase()
{
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
    DialogRunner::SetHook([&](QDialog& dialog) {
        FileAnswers files({backup});
        MessageAnswers messages;
        static_cast<DatabaseOptionsDlg&>(dialog).OnRestore();
        return int(QDialog::Rejected);
    });
    command->trigger();
    DialogRunner::SetHook({});
    QVERIFY(CAppStateTable::Instance().IsOpen());
    QVERIFY(courses->findText(u"Backed Up Course"_s) >= 0);
    QCOMPARE(courses->findText(u"Newer Course"_s), -1);
    QVERIFY(!CPredictionStore::Instance().PredictedGrade(backedUp).has_value());
}

QTEST_MAIN(TestDatabaseOptionsDlg)
#include "tst_databaseoptionsdlg.moc"
