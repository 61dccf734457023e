#include "DatabaseBackup.h"

#include "DatabaseFileCheck.h"
#include "DatabaseFileCopy.h"
#include "res/strings/DatabaseStrings.h"

#include <QDate>
#include <QFile>

namespace DatabaseBackup {

QString SuggestedName(const QDate& date)
{
    return DatabaseStrings::BackupFileName(date.month(), date.day(), date.year());
}

MaintenanceResult Backup(const QString& databasePath, const QString& target)
{
    const QString temporary = DatabaseFileCopy::TemporaryPathFor(target);
    // The copy is proven before it replaces anything the user had at target.
    MaintenanceResult result = DatabaseFileCopy::CopyToNewFile(
        databasePath, temporary, [&temporary] { return CheckDatabaseFile(temporary); });
    if (!result.ok)
        return result;
    result = DatabaseFileCopy::ReplaceFile(temporary, target);
    if (!result.ok) {
        QFile::remove(temporary);
        return result;
    }
    DatabaseFileCopy::SyncFolderOf(target);
    return MaintenanceResult::Done();
}

} // namespace DatabaseBackup
