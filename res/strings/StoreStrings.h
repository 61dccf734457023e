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
inline QString CannotCreateTables(const QString& path)
{
    return BrindleText::tr("The tables of the database file %1 cannot be created.").arg(path);
}

} // namespace StoreStrings
