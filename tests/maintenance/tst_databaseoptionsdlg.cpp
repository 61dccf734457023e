// The Database Options dialog and what it runs: backup, restore, clear, and
// the database and the Today switch let go of while it is open.
// Faults tried, each caught: DatabaseClear committing each course's removal on
// its own (clear, "refused part-way"); the file check without its newer-schema
// test and a restore whose mount fails not putting ".db2" back
// (restoreLeavesAWorkingDatabase, "newer schema" and "tables cannot be
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
#include "res/strings/DatabaseStrings.h"
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

    void backup_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("reasonPart"); // empty: backed up (or cancelled)
        // An older backup of the same name is replaced; the user asked for it.
        QTest::newRow("over an older backup") << u"good"_s << QString();
        QTest::newRow("cancelled") << u"cancel"_s << QString();
        QTest::newRow("database is not one") << u"text"_s << u"not a database"_s;
        // Someone else's file at the temporary path.
        QTest::newRow("file at the temporary path") << u"obstacle"_s << u"in the way"_s;
    }

    void backup()
    {
        QFETCH(QString, kind);
        QFETCH(QString, reasonPart);
        const bool cancel = kind == u"cancel"_s;
        const bool obstacle = kind == u"obstacle"_s;
        const quint32 course = Records::Course(u"Geology"_s);
        Records::Coursework(course, Records::CwType(course, u"Lab"_s), u"Core samples"_s, 8, 10);
        const QString target = Beside(u"Brindle 1-1-2006.db"_s);
        const QString temporary = target + u".tmp"_s;
        QVERIFY(Write(target, "an older backup"));
        QVERIFY(QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ReadOther));
        QVERIFY(!obstacle || Write(temporary, "someone else's"));
        DatabaseOptionsDlg dialog;
        QVERIFY(kind != u"text"_s || Write(m_db->Path(), "plain text"));
        FileAnswers files({cancel ? QString() : target});
        MessageAnswers messages;

        const bool backedUp = !cancel && reasonPart.isEmpty();
        QCOMPARE(dialog.OnBackup(), backedUp);
        const BrindleFileDialog::Request& request = files.Requests().constFirst();
        QCOMPARE(request.kind, BrindleFileDialog::Request::Save);
        QCOMPARE(request.suggestedName, u"Brindle 1-1-2006.db"_s);
        if (!backedUp) {
            // A copy that cannot be proven is not called a backup; the target
            // and someone else's file stay, no copy of ours is left.
            QCOMPARE(messages.Texts().size(), cancel ? 0 : 1);
            QVERIFY2(cancel || messages.Texts().constFirst().contains(reasonPart),
                     qPrintable(messages.Texts().value(0)));
            QCOMPARE(Read(target), QByteArray("an older backup"));
            QCOMPARE(Read(temporary), QByteArray(obstacle ? "someone else's" : ""));
            QCOMPARE(QFileInfo::exists(temporary), obstacle);
            return;
        }
        QCOMPARE(messages.Texts(), QStringList({u"The database has been backed up"_s}));
        QCOMPARE(DatabaseBackup::SuggestedName(QDate(2005, 7, 4)), u"Brindle 7-4-2005.db"_s);
        QCOMPARE(DatabaseBackup::SuggestedName(QDate(987, 12, 31)), u"Brindle 12-31-987.db"_s);
        QCOMPARE(Dump(target), Dump(m_db->Path()));
        QVERIFY(Dump(target).join(u'\n').contains(u"Core samples"_s));
        QCOMPARE(QFileInfo(target).permissions(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                      QFileDevice::ReadUser |
                                                      QFileDevice::WriteUser);
        QVERIFY(!QFileInfo::exists(temporary));
        // That Brindle opens a backup: restoreFromTheMainFrame.
    }

    void restoreLeavesAWorkingDatabase_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("reasonPart"); // a refusal names the chosen file and why
        QTest::newRow("text") << u"text"_s << u"is not a database"_s;
        QTest::newRow("zero bytes") << u"empty"_s << u"is empty"_s;
        QTest::newRow("truncated") << u"truncated"_s << u"damaged"_s;
        QTest::newRow("another program's") << u"foreign"_s << u"another program"_s;
        QTest::newRow("no tables") << u"blank"_s << u"another program"_s;
        QTest::newRow("newer schema") << u"newer"_s << u"newer version"_s;
        QTest::newRow("folder") << u"folder"_s << u"cannot be read"_s;
        // A good file, and a step after the checks fails.
        QTest::newRow("file at the temporary path") << u"temporary"_s << QString();
        QTest::newRow("file at the .db2 path") << u"aside"_s << QString();
        QTest::newRow("read-only folder") << u"read-only"_s << QString();
        QTest::newRow("tables cannot be made") << u"trigger"_s << QString();
        // The database restored onto itself keeps every record.
        QTest::newRow("itself") << u"itself"_s << QString();
    }

    void restoreLeavesAWorkingDatabase()
    {
        QFETCH(QString, kind);
        QFETCH(QString, reasonPart);
        QString chosen = Beside(u"chosen.db"_s);
        const QString temporary = m_db->Path() + u".tmp"_s;
        const QString aside = DatabaseRestore::AsidePath(m_db->Path());
        const QString standing = kind == u"temporary"_s ? temporary
                                 : kind == u"aside"_s   ? aside
                                                        : QString();
        const bool itself = kind == u"itself"_s;
        if (kind == u"text"_s || kind == u"empty"_s) {
            QVERIFY(Write(chosen, kind == u"text"_s ? "Course,Grade\nBotany,A\n" : ""));
        } else if (kind == u"foreign"_s || kind == u"blank"_s) {
            QVERIFY(Execute(chosen, kind == u"foreign"_s ? "CREATE TABLE Songs (title TEXT)"
                                                         : "PRAGMA user_version = 0; VACUUM"));
        } else if (kind == u"folder"_s) {
            QVERIFY(QDir().mkdir(chosen));
        } else if (itself) {
            chosen = m_db->Path();
        } else if (kind == u"newer"_s || kind == u"truncated"_s) {
            // Enough pages that a cut hits the records.
            chosen = BrindleFile(u"chosen.db"_s, u"Other Course"_s, 200);
            QByteArray bytes = Read(chosen);
            QVERIFY(bytes.size() > 8192);
            if (kind == u"truncated"_s)
                bytes.truncate(bytes.size() / 2 + 100);
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
        const QStringList before = Dump(m_db->Path());
        QVERIFY(!old.isEmpty());

        const MaintenanceResult result = DatabaseRestore::Restore(chosen);
        QFile::setPermissions(m_db->Folder(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ExeOwner);
        QVERIFY2(result.ok == itself && (itself || !result.reason.isEmpty()),
                 qPrintable(result.reason));
        if (!reasonPart.isEmpty())
            QVERIFY2(result.reason.contains(reasonPart) && result.reason.contains(chosen),
                     qPrintable(result.reason));
        if (!standing.isEmpty()) {
            QCOMPARE(Read(standing), QByteArray("not Brindle's"));
            QVERIFY(QFile::remove(standing));
        }
        // The old database's records (after a failure its very bytes), nothing
        // left beside them, and Brindle opens them.
        QVERIFY(itself || Hash(m_db->Path()) == old);
        QCOMPARE(Dump(m_db->Path()), before);
        QVERIFY(!QFileInfo::exists(aside) && !QFileInfo::exists(temporary));
        QVERIFY(DatabaseVolume::Reopen().ok);
        QCOMPARE(Records::Rows("SELECT CourseName FROM Course"), QStringList{u"Old Course"_s});
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
        QVERIFY(CDataTable::GetMount()->Execute("UPDATE GPAInfo SET TotalPastHours = 42"));
        auto kept = [] {
            return Records::Rows("SELECT * FROM Semester") +
                   Records::Rows("SELECT * FROM GPAInfo") +
                   Records::Rows("SELECT * FROM GradeScale");
        };
        const QStringList before = kept();
        if (refused)
            QVERIFY(CDataTable::GetMount()->Execute(
                "CREATE TRIGGER Refuse BEFORE DELETE ON Course WHEN OLD.CourseName = 'History' "
                "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
        const bool cleared = answer == QMessageBox::Yes && !refused;

        DatabaseOptionsDlg dialog;
        MessageAnswers messages({QMessageBox::StandardButton(answer)});
        QCOMPARE(dialog.OnClear(), cleared);
        QCOMPARE(messages.Texts().constFirst(), DatabaseStrings::ConfirmClear());
        QCOMPARE(messages.Texts().size(), answer == QMessageBox::Yes ? 2 : 1);
        QCOMPARE(messages.Texts().constLast() == DatabaseStrings::Cleared(), cleared);
        QCOMPARE(dialog.DatabaseChanged(), cleared);
        QVERIFY(dialog.Finish().ok);

        for (const char* table : {"Course", "CourseOrder", "Coursework", "CwType", "GradingPolicy"})
            QVERIFY2((Records::Count(table) == 0) == cleared, table);
        QCOMPARE(kept(), before);
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
        QVERIFY(DatabaseBackup::Backup(m_db->Path(), backup).ok);
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
