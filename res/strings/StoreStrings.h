#pragma once

#include "Tr.h"

// Texts of the record store: default records and the reasons a database file
// cannot be used.
namespace StoreStrings {

inline QString TabNoFilter()
{
    return BrindleText::tr("No Filter");
}
inline QString TabCwType()
{
    return BrindleText::tr("Cw Type");
}
inline QString TabPastDue()
{
    return BrindleText::tr("Past Due");
}
inline QString TabCourseWeek()
{
    return BrindleText::tr("Course Week");
}
inline QString TabDueBy()
{
    return BrindleText::tr("Due By");
}

inline QString CannotReadFile(const QString& path, const QString& reason)
{
    return BrindleText::tr("The database file %1 cannot be read: %2").arg(path, reason);
}
inline QString CannotOpenFile(const QString& path, const QString& reason)
{
    return BrindleText::tr("The database file %1 cannot be opened: %2").arg(path, reason);
}
inline QString NotADatabase(const QString& path)
{
    return BrindleText::tr("The file %1 is not a database.").arg(path);
}
inline QString NotABrindleDatabase(const QString& path)
{
    return BrindleText::tr("The file %1 is a database of another program, not a Brindle database.")
        .arg(path);
}
inline QString DamagedDatabase(const QString& path, const QString& detail)
{
    return BrindleText::tr("The database file %1 is damaged (%2).").arg(path, detail);
}
inline QString NewerDatabase(const QString& path)
{
    return BrindleText::tr("The database file %1 was written by a newer version of Brindle.")
        .arg(path);
}
inline QString CannotCreateTables(const QString& path, const QString& reason)
{
    return BrindleText::tr("The tables of the database file %1 cannot be created: %2")
        .arg(path, reason);
}
inline QString CannotReadState(const QString& path, const QString& reason)
{
    return BrindleText::tr("The settings record of the database file %1 cannot be read: %2")
        .arg(path, reason);
}

inline QString PathIsFolder(const QString& path)
{
    return BrindleText::tr("The database path %1 is a folder, not a file.").arg(path);
}
inline QString FolderNotMade(const QString& folder)
{
    return BrindleText::tr("the folder %1 cannot be made").arg(folder);
}
inline QString NotWritable(const QString& path)
{
    return BrindleText::tr("The database file %1 is read-only, or its folder is: Brindle could "
                           "not save any change. Make both writable and start Brindle again.")
        .arg(path);
}
inline QString DatabaseInUse(const QString& path)
{
    return BrindleText::tr("The database file %1 is in use by another program, which keeps it "
                           "locked. Close that program (or wait until it is done) and start "
                           "Brindle again. The file is not damaged.")
        .arg(path);
}
inline QString DatabaseOpenElsewhere(const QString& path)
{
    return BrindleText::tr("The database file %1 is already open in another Brindle window. "
                           "Use that window, or close it and start Brindle again.")
        .arg(path);
}

// Reasons a change was not saved, where SQLite gives none of its own.
inline QString StepFailed()
{
    return BrindleText::tr("a part of the change could not be written");
}
inline QString TransactionLost()
{
    return BrindleText::tr("the database ended the change before it was complete");
}
inline QString NoMoreRecordIds()
{
    return BrindleText::tr("the database has no record numbers left");
}
inline QString StateRecordMissing()
{
    return BrindleText::tr("the record is missing");
}
inline QString NotMounted()
{
    return BrindleText::tr("no database is open");
}

} // namespace StoreStrings
