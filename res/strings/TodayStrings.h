#pragma once

#include "Tr.h"

// Texts of the Today companion (brindle-today).
namespace TodayStrings {

inline QString Title()
{
    return BrindleText::tr("Brindle Today");
}
inline QString NothingDue()
{
    return BrindleText::tr("Nothing due");
}
inline QString PastDueMark()
{
    return BrindleText::tr("past due");
}
inline QString Paused()
{
    return BrindleText::tr("paused");
}
inline QString OptionCoursework()
{
    return BrindleText::tr("Open the coursework with this ID in its editor on start.");
}
inline QString DatabaseMissing(const QString& file)
{
    return BrindleText::tr("The database file %1 does not exist.").arg(file);
}
inline QString DatabaseNotProtected(const QString& file)
{
    return BrindleText::tr("The database file %1 could not be opened for reading only.").arg(file);
}
inline QString NoDatabase()
{
    return BrindleText::tr("The database is not open.");
}
inline QString ReadFailed()
{
    return BrindleText::tr("The coursework could not be read from the database.");
}
// The tray menu's row for one item: coursework, course, due time.
inline QString MenuItem(const QString& name, const QString& course, const QString& due)
{
    return BrindleText::tr("%1 (%2), due %3").arg(name, course, due);
}
inline QString TrayToolTip(int due, int pastDue)
{
    return BrindleText::tr("Brindle: %1 due, %2 of them past due").arg(due).arg(pastDue);
}
// A desktop notice: what is due and when.
inline QString NoticeSummary(const QString& name, const QString& course)
{
    return BrindleText::tr("%1 (%2)").arg(name, course);
}
inline QString NoticeBody(const QString& due)
{
    return BrindleText::tr("Due %1").arg(due);
}
inline QString StateNotSaved(const QString& file)
{
    return BrindleText::tr("The notices sent could not be remembered in %1.").arg(file);
}
inline QString StateNotRead(const QString& file)
{
    return BrindleText::tr("The notices sent before could not be read from %1.").arg(file);
}
inline QString OptionNotify()
{
    return BrindleText::tr("Give desktop notices these numbers of minutes before a due time "
                           "(comma-separated; default 1440,60).");
}
inline QString BadNotify(const QString& value)
{
    return BrindleText::tr("--notify wants minutes such as 1440,60, not \"%1\".").arg(value);
}
// Brindle's own dialog about the companion (Tools menu).
inline QString CompanionMenuItem()
{
    return BrindleText::tr("Today Companion...");
}
inline QString CompanionTitle()
{
    return BrindleText::tr("Today Companion");
}
inline QString CompanionDescription()
{
    return BrindleText::tr("Brindle Today sits in the system tray, lists the coursework due in "
                           "the coming days and gives a notice before each due time.");
}
inline QString StartAtLogin()
{
    return BrindleText::tr("Start the Today companion at log-in");
}
inline QString AutostartNotFound(const QString& file)
{
    return BrindleText::tr("The companion's start entry %1 is missing; is Brindle installed "
                           "whole?")
        .arg(file);
}
inline QString AutostartNotWritten(const QString& file)
{
    return BrindleText::tr("The start entry %1 could not be written.").arg(file);
}
inline QString AutostartNotRemoved(const QString& file)
{
    return BrindleText::tr("The start entry %1 could not be removed.").arg(file);
}
inline QString OpenBrindle()
{
    return BrindleText::tr("&Open Brindle");
}
inline QString Quit()
{
    return BrindleText::tr("&Quit");
}
inline QString CannotStartBrindle()
{
    return BrindleText::tr("Brindle could not be started.");
}
inline QString OptionList()
{
    return BrindleText::tr("Print the list of coursework due and exit.");
}
inline QString OptionDays()
{
    return BrindleText::tr("List what is due within the next N days (default 7).");
}
inline QString OptionJson()
{
    return BrindleText::tr("With --list: print JSON instead of plain text.");
}
inline QString OptionDatabase()
{
    return BrindleText::tr("Read the database FILE instead of the default one.");
}
inline QString BadDays(const QString& value)
{
    return BrindleText::tr("--days wants a whole number from 0 to 3650, not \"%1\".").arg(value);
}

} // namespace TodayStrings
