#pragma once

#include "Tr.h"

// Texts of the Database Options dialog: backup, restore and clear, and the
// reasons a file step or a file check fails.
namespace DatabaseStrings {

inline QString DialogTitle()
{
    return BrindleText::tr("Database Options");
}
inline QString Description()
{
    return BrindleText::tr("Backup Restore, and Clear all the courses from the database");
}
inline QString Backup()
{
    return BrindleText::tr("Backup");
}
inline QString Restore()
{
    return BrindleText::tr("Restore");
}
inline QString ClearDatabase()
{
    return BrindleText::tr("Clear Database");
}

// "Brindle %d-%d-%d.db" from month, day and year, without leading zeros.
inline QString BackupFileName(int month, int day, int year)
{
    return BrindleText::tr("Brindle %1-%2-%3.db").arg(month).arg(day).arg(year);
}
inline QString DatabaseFilesFilter()
{
    return BrindleText::tr("Database Files (*.db)");
}
inline QString AllFilesFilter()
{
    return BrindleText::tr("All Files (*)");
}

inline QString BackedUp()
{
    return BrindleText::tr("The database has been backed up");
}
inline QString BackupFailed(const QString& path, const QString& reason)
{
    return BrindleText::tr("The database could not be backed up to %1.\n%2").arg(path, reason);
}
inline QString Restored()
{
    return BrindleText::tr("The database has been restored");
}
// "Restore failed!" with a second line saying why.
inline QString RestoreFailedBecause(const QString& reason)
{
    return BrindleText::tr("Restore failed!\n%1").arg(reason);
}
inline QString RestoredOldCopyKept(const QString& path)
{
    return BrindleText::tr("The database has been restored\nThe previous database could not be "
                           "removed; it is kept as %1.")
        .arg(path);
}
inline QString ConfirmClear()
{
    return BrindleText::tr("Clearing a database will remove all the courses and this change "
                           "cannot be undone.\n\nAre you sure you want to clear the databaes?");
}
inline QString Cleared()
{
    return BrindleText::tr("The database has been cleared");
}
inline QString ClearFailed(const QString& reason)
{
    return BrindleText::tr("The database could not be cleared; nothing was removed.\n%1")
        .arg(reason);
}
inline QString CannotReopen(const QString& reason)
{
    return BrindleText::tr("The database cannot be opened again, so Brindle stops.\n%1")
        .arg(reason);
}
inline QString StateUnreadable(const QString& path)
{
    return BrindleText::tr("The application state of the database file %1 cannot be read.")
        .arg(path);
}
inline QString TodayNotRestored(const QString& path)
{
    return BrindleText::tr("The Today item could not be switched on again: the settings file %1 "
                           "cannot be written.")
        .arg(path);
}

// Why a file step failed; each names the file. The reasons a file is not a
// usable database are the store's own (StoreStrings).
inline QString FileInTheWay(const QString& path)
{
    return BrindleText::tr("The file %1 is in the way; move or rename it, then try again.")
        .arg(path);
}
inline QString CannotWriteFile(const QString& path, const QString& reason)
{
    return BrindleText::tr("The file %1 cannot be written: %2").arg(path, reason);
}
inline QString CannotRename(const QString& from, const QString& to, const QString& reason)
{
    return BrindleText::tr("The file %1 cannot be renamed to %2: %3").arg(from, to, reason);
}
inline QString EmptyFile(const QString& path)
{
    return BrindleText::tr("The file %1 is empty.").arg(path);
}
} // namespace DatabaseStrings
