#include "DatabaseRestore.h"

#include "BrindleData.h"
#include "DatabaseFileCheck.h"
#include "DatabaseFileCopy.h"
#include "DatabaseVolume.h"
#include "res/strings/DatabaseStrings.h"

#include <QFile>
#include <QFileInfo>

namespace DatabaseRestore {

namespace {

// Puts the set-aside database back at its path, in place of the copy that
// failed.
void PutBack(const QString& aside, const QString& databasePath)
{
    QFile::remove(databasePath);
    DatabaseFileCopy::MoveFile(aside, databasePath);
}

} // namespace

QString AsidePath(const QString& databasePath)
{
    if (databasePath.endsWith(QStringLiteral(".db")))
        return databasePath + QStringLiteral("2");
    return databasePath + QStringLiteral(".db2");
}

MaintenanceResult Restore(const QString& chosenFile)
{
    const QString databasePath = GetDatabasePath();
    const QString aside = AsidePath(databasePath);
    const QString temporary = DatabaseFileCopy::TemporaryPathFor(databasePath);
    // A ".db2" already there may be the only copy of an older database.
    if (QFileInfo::exists(aside) || QFileInfo(aside).isSymLink())
        return MaintenanceResult::Failed(DatabaseStrings::FileInTheWay(aside));

    // The copy is made before the database moves, so that restoring the
    // database file onto itself (by any path) still has its bytes to copy.
    // The copy, not the chosen file, is checked: it is what will be mounted,
    // and no other program can change it between the check and the mount.
    MaintenanceResult result =
        DatabaseFileCopy::CopyToNewFile(chosenFile, temporary, [&temporary, &chosenFile] {
            return CheckDatabaseFile(temporary, chosenFile);
        });
    if (!result.ok)
        return result;

    result = DatabaseFileCopy::MoveFile(databasePath, aside);
    if (!result.ok) {
        QFile::remove(temporary);
        return result;
    }
    result = DatabaseFileCopy::MoveFile(temporary, databasePath);
    if (!result.ok) {
        QFile::remove(temporary);
        // Whatever stands at the database path now is not ours to remove.
        DatabaseFileCopy::MoveFile(aside, databasePath);
        return result;
    }

    result = DatabaseVolume::Mount();
    DatabaseVolume::Release();
    if (!result.ok) {
        PutBack(aside, databasePath);
        return result;
    }
    DatabaseFileCopy::SyncFolderOf(databasePath);

    if (!QFile::remove(aside))
        return MaintenanceResult::Done(DatabaseStrings::RestoredOldCopyKept(aside));
    return MaintenanceResult::Done();
}

} // namespace DatabaseRestore
