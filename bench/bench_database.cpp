// How fast the Database Options commands are on a large database (40
// semesters, 320 courses, 20,000 coursework): backup and restore beside a
// plain copy of the same file (the floor), clear and the main view's refresh
// after each beside their goals (1 s and 50 ms; for these the goal is the
// floor, so a ratio under 1 meets it).
//
// Prints one line per figure: NAME: median_ms=X floor_ms=Y ratio=Z
// and a comment line with the steps backup and restore are made of.
// Build it in Release.
#include "BenchSupport.h"
#include "app/MainFrame.h"
#include "maintenance/DatabaseBackup.h"
#include "maintenance/DatabaseClear.h"
#include "maintenance/DatabaseFileCheck.h"
#include "maintenance/DatabaseFileCopy.h"
#include "maintenance/DatabaseRestore.h"
#include "maintenance/DatabaseVolume.h"
#include "res/Resources.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>

namespace {

using BenchSupport::MedianMs;
using BenchSupport::Report;

bool Check(const MaintenanceResult& result, const char* step)
{
    if (!result.ok)
        std::fprintf(stderr, "%s failed: %s\n", step, qPrintable(result.reason));
    return result.ok;
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitBrindleResources();
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Brindle.db"));
    const QString backup = folder.filePath(QStringLiteral("backup.db"));
    const QString plainCopy = folder.filePath(QStringLiteral("plain.db"));
    SetDatabasePath(path);
    if (!Check(DatabaseVolume::Reopen(), "mount"))
        return 1;

    const DemoSize size = BenchSupport::GeneratedSize;
    if (!BuildDemoDatabase(QDate::currentDate(), size))
        return 1;
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentCourseID(AllCoursesID);
    state.SetCurrentTabID(CViewTabTable::NoFilter);
    state.SetShowDone(1);
    state.UpdateRecord();
    CMainFrame frame;
    DatabaseVolume::Release();
    std::printf("# %d semesters, %d courses, %d coursework: %lld bytes\n", size.semesters,
                size.courses, size.coursework, static_cast<long long>(QFileInfo(path).size()));

    constexpr int Runs = 11;
    const double copy = MedianMs(
        Runs, [&] { QFile::copy(path, plainCopy); }, [&] { QFile::remove(plainCopy); });

    bool ok = true;
    const double backupTime = MedianMs(
        Runs, [&] { ok = Check(DatabaseBackup::Backup(path, backup), "backup") && ok; },
        [&] { QFile::remove(backup); });
    Report("backup", backupTime, copy);

    auto refresh = [&](const char* name) {
        ok = Check(DatabaseVolume::Reopen(), "reopen") && ok;
        Report(name, MedianMs(Runs, [&] { frame.RefreshAll(); }), 50.0);
        DatabaseVolume::Release();
    };
    refresh("refresh_after_backup");

    const double restoreTime =
        MedianMs(Runs, [&] { ok = Check(DatabaseRestore::Restore(backup), "restore") && ok; });
    Report("restore", restoreTime, copy);
    refresh("refresh_after_restore");

    // The steps: the copy alone (std::filesystem, unsynced), the copy synced
    // to the disk (backup and restore), the check of that copy, the mount that
    // gives a restored file its missing tables.
    const std::filesystem::path from = QFile::encodeName(path).toStdString();
    const std::filesystem::path to = QFile::encodeName(plainCopy).toStdString();
    const double unsynced = MedianMs(
        Runs,
        [&] {
            std::error_code error;
            ok = std::filesystem::copy_file(from, to, error) && ok;
        },
        [&] { QFile::remove(plainCopy); });
    const double synced = MedianMs(
        Runs, [&] { ok = Check(DatabaseFileCopy::CopyToNewFile(path, plainCopy), "copy") && ok; },
        [&] { QFile::remove(plainCopy); });
    const double check = MedianMs(Runs, [&] { ok = CheckDatabaseFile(plainCopy).isEmpty() && ok; });
    const double mount = MedianMs(Runs, [&] {
        ok = Check(DatabaseVolume::Mount(), "mount") && ok;
        DatabaseVolume::Release();
    });
    std::printf("# steps: copy_ms=%.3f copy_and_sync_ms=%.3f check_ms=%.3f mount_ms=%.3f\n",
                unsynced, synced, check, mount);

    // Each clear starts from the full database again.
    const double clearTime = MedianMs(
        5, [&] { ok = Check(DatabaseClear::Clear(), "clear") && ok; },
        [&] { ok = Check(DatabaseRestore::Restore(backup), "restore") && ok; });
    Report("clear", clearTime, 1000.0);
    refresh("refresh_after_clear");
    return ok ? 0 : 1;
}
