// The Database Options dialog and what it runs. A backup is a copy proven by
// quick_check, readable by its owner alone; a failed one leaves the target as
// it was. A file that is not a Brindle database this Brindle reads is refused
// before anything moves; a restore that fails half-way puts the old database
// back; restoring the database onto itself loses nothing. While the dialog is
// open the database is let go of, and the Today switch is off; closing takes
// both back. Clear removes the courses and nothing else.
// Faults tried, each caught: DatabaseClear committing each course's removal on
// its own (clear, "refused part-way"); the file check without its newer-schema
// test and a restore whose mount fails not putting ".db2" back
// (failedRestoreKeepsTheOldDatabase, "newer schema" and "tables cannot be
// made"); closing the dialog switching Today on whatever it was before
// (todaySwitch, "off" and "no switch").
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/FileDialog.h"
#include "maintenance/DatabaseBackup.h"
#include "maintenance/DatabaseOptionsDlg.h"
#include "maintenance/DatabaseRestore.h"
#include "maintenance/DatabaseVolume.h"
#include "store/Clock.h"
#include "support/DatabaseFiles.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace DatabaseFiles;

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

class TestDatabaseOptionsDlg : public DatabaseTest
{
    Q_OBJECT

    QString Beside(const QString& name) const { return m_db->Folder() + u"/"_s + name; }
    QString SettingsFile() const { return Beside(u"Brindle.ini"_s); }

    // A Brindle database beside the test's own, with a course of the name and
    // as many more as asked for. Leaves both let go of.
    QString BrindleFile(const QString& name, const QString& course, int moreCourses = 0)
    {
        DatabaseVolume::Release();
        SetDatabasePath(Beside(name));
        if (DatabaseVolume::Reopen().ok) {
            CTransaction transaction;
            Records::Course(course);
            for (int i = 0; i < moreCourses; ++i)
                Records::Course(u"Course %1"_s.arg(i));
            transaction.Commit();
        }
        DatabaseVolume::Release();
        SetDatabasePath(m_db->Path());
        return Beside(name);
    }

private slots:
    void init()
    {
        DatabaseTest::init();
        Records::Course(u"Old Course"_s);
        qputenv("BRINDLE_SETTINGS", SettingsFile().toUtf8());
        BrindleClock::SetNow(QDateTime(QDate(2006, 1, 1), QTime(9, 30)));
    }
    void cleanup()
    {
        BrindleClock::SetNow(QDateTime());
        qunsetenv("BRINDLE_SETTINGS");
        DatabaseTest::cleanup();
    }

    void backupHoldsTheSameRecords()
    {
        const quint32 course = Records::Course(u"Geology"_s);
        Records::Coursework(course, Records::CwType(course, u"Lab"_s), u"Core samples"_s, 8, 10);
        Records::Semester(u"Spring 2025"_s);
        // An older backup of the same name is replaced; the user asked for it.
        const QString target = Beside(u"Brindle 1-1-2006.db"_s);
        QVERIFY(Write(target, "an older backup"));
        QVERIFY(QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ReadOther));
        DatabaseOptionsDlg dialog;
        FileAnswers files({QString(), target, target});
        MessageAnswers messages;
        QVERIFY(!dialog.OnBackup()); // cancelled
        QVERIFY(messages.Texts().isEmpty() && Read(target) == "an older backup");
        QVERIFY(dialog.OnBackup());
        const BrindleFileDialog::Request& request = files.Requests().constLast();
        QCOMPARE(request.kind, BrindleFileDialog::Request::Save);
        QCOMPARE(request.suggestedName, u"Brindle 1-1-2006.db"_s);
        QCOMPARE(DatabaseBackup::SuggestedName(QDate(2005, 7, 4)), u"Brindle 7-4-2005.db"_s);
        QCOMPARE(DatabaseBackup::SuggestedName(QDate(987, 12, 31)), u"Brindle 12-31-987.db"_s);
        QCOMPARE(request.defaultSuffix, u"db"_s);
        QCOMPARE(messages.Texts(), QStringList({u"The database has been backed up"_s}));
        QCOMPARE(Dump(target), Dump(m_db->Path()));
        QVERIFY(Dump(target).join(u'\n').contains(u"Core samples"_s));
        QCOMPARE(QFileInfo(target).permissions(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                      QFileDevice::ReadUser |
                                                      QFileDevice::WriteUser);
        QVERIFY(!QFileInfo::exists(target + u".tmp"_s));
        // A copy that cannot be proven is not called a backup.
        QVERIFY(Write(target + u".tmp"_s, "in the way"));
        QVERIFY(!dialog.OnBackup());
        QVERIFY2(messages.Texts().constLast().contains(target + u".tmp"_s),
                 qPrintable(messages.Texts().constLast()));
        // Brindle itself opens the copy.
        SetDatabasePath(target);
        QVERIFY(DatabaseVolume::Reopen().ok);
        QCOMPARE(Records::Count("Coursework"), 1);
        DatabaseVolume::Release();
        SetDatabasePath(m_db->Path());
    }

    void backupFailureLeavesTheTargetAsItWas_data()
    {
        QTest::addColumn<QByteArray>("database"); // written over it; empty: a good one
        QTest::addColumn<QString>("reasonPart");
        QTest::newRow("database is not one") << QByteArray("plain text") << u"not a database"_s;
        QTest::newRow("database from another program")
            << QByteArray("foreign") << u"another program"_s;
        QTest::newRow("file at the temporary path") << QByteArray() << u"in the way"_s;
    }

    void backupFailureLeavesTheTargetAsItWas()
    {
        QFETCH(QByteArray, database);
        QFETCH(QString, reasonPart);
        DatabaseVolume::Release();
        if (database == "foreign") {
            QVERIFY(QFile::remove(m_db->Path()));
            QVERIFY(Execute(m_db->Path(), "CREATE TABLE Photos (id INTEGER)"));
        } else if (!database.isEmpty()) {
            QVERIFY(Write(m_db->Path(), database));
        }
        const QString target = Beside(u"backup.db"_s);
        const QString temporary = target + u".tmp"_s;
        const bool obstacle = database.isEmpty();
        QVERIFY(Write(target, "the backup of last week"));
        QVERIFY(!obstacle || Write(temporary, "someone else's"));

        const MaintenanceResult result = DatabaseBackup::Backup(m_db->Path(), target);
        QVERIFY2(!result.ok && result.reason.contains(reasonPart), qPrintable(result.reason));
        QCOMPARE(Read(target), QByteArray("the backup of last week"));
        // Someone else's file at the temporary path stays; no copy of ours is left.
        QCOMPARE(Read(temporary), QByteArray(obstacle ? "someone else's" : ""));
        QCOMPARE(QFileInfo::exists(temporary), obstacle);
    }

    void failedRestoreKeepsTheOldDatabase_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("reasonPart"); // a refusal names the chosen file and why
        QTest::newRow("text") << u"text"_s << u"is not a database"_s;
        QTest::newRow("zero bytes") << u"empty"_s << u"is empty"_s;
        QTest::newRow("truncated") << u"truncated"_s << u"damaged"_s;
        QTest::newRow("another program's") << u"foreign"_s << u"another program"_s;
        QTest::newRow("no tables") << u"blank"_s << u"another program"_s;
        QTest::newRow("newer schema") << u"newer"_s << u"newer version"_s;
        QTest::newRow("damaged page") << u"damaged"_s << u"damaged"_s;
        QTest::newRow("folder") << u"folder"_s << u"cannot be read"_s;
        // A good file, and a step after the checks fails.
        QTest::newRow("file at the temporary path") << u"temporary"_s << QString();
        QTest::newRow("file at the .db2 path") << u"aside"_s << QString();
        QTest::newRow("read-only folder") << u"read-only"_s << QString();
        QTest::newRow("tables cannot be made") << u"trigger"_s << QString();
    }

    void failedRestoreKeepsTheOldDatabase()
    {
        QFETCH(QString, kind);
        QFETCH(QString, reasonPart);
        QString chosen = Beside(u"chosen.db"_s);
        const QString temporary = m_db->Path() + u".tmp"_s;
        const QString aside = DatabaseRestore::AsidePath(m_db->Path());
        const QString standing = kind == u"temporary"_s ? temporary
                                 : kind == u"aside"_s   ? aside
                                                        : QString();
        if (kind == u"text"_s) {
            QVERIFY(Write(chosen, "Course,Grade\nBotany,A\n"));
        } else if (kind == u"empty"_s) {
            QVERIFY(Write(chosen, QByteArray()));
        } else if (kind == u"foreign"_s) {
            QVERIFY(Execute(chosen, "CREATE TABLE Songs (title TEXT)"));
        } else if (kind == u"blank"_s) {
            QVERIFY(Execute(chosen, "PRAGMA user_version = 0; VACUUM"));
        } else if (kind == u"folder"_s) {
            QVERIFY(QDir().mkdir(chosen));
        } else if (kind == u"newer"_s || kind == u"truncated"_s || kind == u"damaged"_s) {
            // Enough pages that a cut or a damaged page hits the records.
            chosen = BrindleFile(u"chosen.db"_s, u"Other Course"_s, 200);
            QByteArray bytes = Read(chosen);
            QVERIFY(bytes.size() > 8192);
            if (kind == u"truncated"_s)
                bytes.truncate(bytes.size() / 2 + 100);
            else if (kind == u"damaged"_s)
                bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, '\x5a'));
            QVERIFY(Write(chosen, bytes));
            if (kind == u"newer"_s)
                QVERIFY(Execute(chosen, "PRAGMA user_version = 1000"));
        } else {
            chosen = BrindleFile(u"chosen.db"_s, u"New Course"_s);
            if (!standing.isEmpty())
                QVERIFY(Write(standing, "not Brindle's"));
            // Passes every check, but CreateDatabase cannot write its default state.
            if (kind == u"trigger"_s)
                QVERIFY(Execute(chosen, "DELETE FROM AppState; CREATE TRIGGER NoState BEFORE "
                                        "INSERT ON AppState BEGIN SELECT RAISE(ABORT, 'no'); END"));
            if (kind == u"read-only"_s && ::geteuid() == 0)
                QSKIP("root writes into a read-only folder");
            if (kind == u"read-only"_s)
                QFile::setPermissions(m_db->Folder(),
                                      QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        }
        DatabaseVolume::Release();
        const QByteArray old = Hash(m_db->Path());
        QVERIFY(!old.isEmpty());

        const MaintenanceResult result = DatabaseRestore::Restore(chosen);
        QFile::setPermissions(m_db->Folder(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ExeOwner);
        QVERIFY(!result.ok && !result.reason.isEmpty());
        if (!reasonPart.isEmpty())
            QVERIFY2(result.reason.contains(reasonPart) && result.reason.contains(chosen),
                     qPrintable(result.reason));
        if (!standing.isEmpty()) {
            QCOMPARE(Read(standing), QByteArray("not Brindle's"));
            QVERIFY(QFile::remove(standing));
        }
        // The old database's bytes unchanged, nothing left beside them, and
        // Brindle opens them.
        QCOMPARE(Hash(m_db->Path()), old);
        QVERIFY(!QFileInfo::exists(aside) && !QFileInfo::exists(temporary));
        QVERIFY(DatabaseVolume::Reopen().ok);
        QCOMPARE(Records::Rows("SELECT CourseName FROM Course"), QStringList{u"Old Course"_s});
    }

    void restoringTheDatabaseItself_data()
    {
        QTest::addColumn<QString>("spelling");
        QTest::newRow("its own path") << u"same"_s;
        QTest::newRow("through its folder again") << u"dotted"_s;
        QTest::newRow("through a link") << u"link"_s;
    }

    void restoringTheDatabaseItself()
    {
        QFETCH(QString, spelling);
        DatabaseVolume::Release();
        const QStringList before = Dump(m_db->Path());
        QString chosen = m_db->Path();
        if (spelling == u"dotted"_s) {
            chosen = Beside(u"./../"_s + QFileInfo(m_db->Folder()).fileName() + u"/Brindle.db"_s);
        } else if (spelling == u"link"_s) {
            chosen = Beside(u"link.db"_s);
            QVERIFY(QFile::link(m_db->Path(), chosen));
        }
        const MaintenanceResult result = DatabaseRestore::Restore(chosen);
        QVERIFY2(result.ok, qPrintable(result.reason));
        QCOMPARE(Dump(m_db->Path()), before);
        QVERIFY(!QFileInfo::exists(DatabaseRestore::AsidePath(m_db->Path())));
    }

    void todaySwitch_data()
    {
        QTest::addColumn<QVariant>("before");
        QTest::addColumn<QVariant>("whileOpen");
        QTest::addColumn<QVariant>("after");
        QTest::newRow("on") << QVariant(1u) << QVariant(0u) << QVariant(1u);
        QTest::newRow("on, any non-zero value") << QVariant(7u) << QVariant(0u) << QVariant(1u);
        QTest::newRow("off") << QVariant(0u) << QVariant(0u) << QVariant(0u);
        QTest::newRow("no switch") << QVariant() << QVariant() << QVariant();
    }

    // While open, the dialog lets go of the database and switches Today off.
    void todaySwitch()
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
        CAppStateTable& state = CAppStateTable::Instance();
        state.SetShowDone(1);
        QVERIFY(state.UpdateRecord());
        {
            DatabaseOptionsDlg dialog;
            QCOMPARE(stored(), whileOpen);
            QVERIFY(!CDataTable::GetMount()->IsMounted() && !state.IsOpen());
            // The file alone holds every record: another program may change it now.
            QVERIFY(!QFileInfo::exists(m_db->Path() + u"-journal"_s));
            QVERIFY(Execute(m_db->Path(), "UPDATE AppState SET ShowDone = 0"));
            dialog.reject();
            QCOMPARE(stored(), after);
            QVERIFY(CDataTable::GetMount()->IsMounted() && state.IsOpen());
            QCOMPARE(state.GetShowDone(), 0);
            QVERIFY(!dialog.DatabaseChanged());
        }
        QCOMPARE(QFileInfo::exists(SettingsFile()), before.isValid());
    }

    void clear_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("refused"); // the second course's removal fails
        QTest::newRow("No") << int(QMessageBox::No) << false;
        QTest::newRow("Yes") << int(QMessageBox::Yes) << false;
        QTest::newRow("refused part-way") << int(QMessageBox::Yes) << true;
    }

    void clear()
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

    void restoreFromTheMainFrame()
    {
        const quint32 backedUp = Records::Course(u"Backed Up Course"_s);
        const QString backup = Beside(u"backup.db"_s);
        const QString notes = Beside(u"notes.db"_s);
        QVERIFY(Write(notes, "my lecture notes"));
        DatabaseVolume::Release();
        QVERIFY(QFile::copy(m_db->Path(), backup));
        // Tables it lacks are made.
        QVERIFY(Execute(backup, "DROP TABLE ViewTab; DELETE FROM AppState"));
        const QByteArray backupHash = Hash(backup);
        QVERIFY(DatabaseVolume::Reopen().ok);
        Records::Course(u"Newer Course"_s);
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(backedUp, 0.5);

        CMainFrame frame;
        QComboBox* courses = frame.View()->CourseSelector();
        QVERIFY(courses->findText(u"Newer Course"_s) >= 0);
        QAction* command = frame.findChild<QAction*>(u"actionDatabase"_s);
        QVERIFY(command && command->isEnabled());
        FileAnswers files({notes, backup});
        MessageAnswers messages;
        QList<bool> steps; // each restore's result, then whether the database changed
        DialogRunner::SetHook([&](QDialog& dialog) {
            auto& options = static_cast<DatabaseOptionsDlg&>(dialog);
            steps << options.OnRestore() << options.DatabaseChanged();
            steps << options.OnRestore() << options.DatabaseChanged();
            return int(QDialog::Rejected);
        });
        command->trigger();
        QCOMPARE(steps, (QList<bool>{false, false, true, true}));
        QCOMPARE(files.Requests().constFirst().kind, BrindleFileDialog::Request::Open);
        QCOMPARE(files.Requests().constFirst().filters,
                 QStringList({u"Database Files (*.db)"_s, u"All Files (*)"_s}));
        QVERIFY(messages.Texts().constFirst().startsWith(u"Restore failed!\n"_s));
        QVERIFY(messages.Texts().constFirst().contains(u"not a database"_s));
        QCOMPARE(messages.Texts().constLast(), u"The database has been restored"_s);
        // The main view shows what the database now holds; predictions are gone.
        QVERIFY(CAppStateTable::Instance().IsOpen());
        QVERIFY(courses->findText(u"Backed Up Course"_s) >= 0);
        QCOMPARE(courses->findText(u"Newer Course"_s), -1);
        QVERIFY(!CPredictionStore::Instance().PredictedGrade(backedUp).has_value());
        QCOMPARE(Records::Count("ViewTab"), 4);
        QCOMPARE(Records::Count("AppState"), 1);
        // The chosen file is left as it was; nothing is left beside the database.
        QCOMPARE(Hash(backup), backupHash);
        QVERIFY(!QFileInfo::exists(DatabaseRestore::AsidePath(m_db->Path())));
        QVERIFY(!QFileInfo::exists(m_db->Path() + u".tmp"_s));
    }
};

QTEST_MAIN(TestDatabaseOptionsDlg)
#include "tst_databaseoptionsdlg.moc"
