#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the semester dialogs and of the course and tab order dialogs.
namespace MaintenanceStrings {

// "Semester Information" and its row menu.
inline QString SemesterTitle()
{
    return BrindleText::tr("Semester Information");
}
inline QString SemesterNameLabel()
{
    return BrindleText::tr("Semester Name: ");
}
inline QString ArchiveSemester()
{
    return BrindleText::tr("Archive Semester");
}
inline QString ViewOldSemester()
{
    return BrindleText::tr("View Old Semester");
}
inline QString EditSemester()
{
    return BrindleText::tr("Edit Semester");
}
inline QString DeleteSemester()
{
    return BrindleText::tr("Delete Semester");
}
inline QString ConfirmArchive()
{
    return BrindleText::tr("Archiving the current semester will make your current semester clear "
                           "of courses\nAre you sure you want to archive the semester?");
}
inline QString ArchiveBeforeExit()
{
    return BrindleText::tr("Archive semester before exit?");
}
inline QString SemestersNotSaved()
{
    return BrindleText::tr("The semesters could not be saved; nothing was changed.");
}

// "Archive Semester".
inline QString CheckCoursesToArchive()
{
    return BrindleText::tr("Check the courses to archive.");
}
inline QString Fall(int year)
{
    return BrindleText::tr("Fall %1").arg(year);
}
inline QString Spring(int year)
{
    return BrindleText::tr("Spring %1").arg(year);
}
inline QString SemesterNameRequired()
{
    return BrindleText::tr("Semester Name Required");
}

// "Course Order" and "Tab Order".
inline QString CourseOrderTitle()
{
    return BrindleText::tr("Course Order");
}
inline QString CourseOrderHint()
{
    return BrindleText::tr("Set the order for the courses.");
}
inline QString CourseOrderNotSaved()
{
    return BrindleText::tr("The course order could not be saved; nothing was changed.");
}
inline QString TabOrderTitle()
{
    return BrindleText::tr("Tab Order");
}
inline QString TabOrderHint()
{
    return BrindleText::tr("Set the tab order for the main view.");
}
inline QString TabOrderNotSaved()
{
    return BrindleText::tr("The tab order could not be saved; nothing was changed.");
}
inline QString MoveUp()
{
    return ControlStrings::MoveUp();
}
inline QString MoveDown()
{
    return ControlStrings::MoveDown();
}

} // namespace MaintenanceStrings
