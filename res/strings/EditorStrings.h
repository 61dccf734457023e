#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the course-record editors: courses, textbooks, meeting times,
// instructors and buildings.
namespace EditorStrings {

// The course editor.
inline QString NewCourseTitle()
{
    return BrindleText::tr("New Course");
}
inline QString EditCourseTitle()
{
    return BrindleText::tr("Edit Course");
}
inline QString PageBasicInfo()
{
    return BrindleText::tr("Basic Info");
}
inline QString PageBooks()
{
    return BrindleText::tr("Books");
}
inline QString PageTimes()
{
    return BrindleText::tr("Times");
}
inline QString PageRoom()
{
    return BrindleText::tr("Room");
}
inline QString LabelName()
{
    return ControlStrings::NameLabel();
}
inline QString LabelNumber()
{
    return BrindleText::tr("Number: ");
}
inline QString LabelSection()
{
    return BrindleText::tr("Section: ");
}
inline QString LabelDept()
{
    return BrindleText::tr("Dept: ");
}
inline QString LabelHours()
{
    return BrindleText::tr("Hours: ");
}
inline QString InMajor()
{
    return BrindleText::tr("In Major");
}
inline QString BooksHint()
{
    return BrindleText::tr("Tap and hold in the list below to add and edit textbooks.");
}
inline QString TimesHint()
{
    return BrindleText::tr("Tap and hold in the list below to add and edit times.");
}
inline QString LabelBuilding()
{
    return BrindleText::tr("Building: ");
}
inline QString LabelRoomNumber()
{
    return BrindleText::tr("Room Number: ");
}
inline QString LabelWebSite()
{
    return BrindleText::tr("Web Site: ");
}
inline QString MenuAdvanced()
{
    return BrindleText::tr("Advanced");
}
inline QString Grading()
{
    return BrindleText::tr("Grading...");
}
inline QString Instructor()
{
    return BrindleText::tr("Instructor...");
}
inline QString Details()
{
    return BrindleText::tr("Details...");
}
inline QString CourseDetailsTitle()
{
    return BrindleText::tr("Course Details");
}
inline QString NoCourseName()
{
    return BrindleText::tr("You must supply a course name.");
}
inline QString DuplicateCourseName(const QString& name)
{
    return BrindleText::tr("A course with the name '%1' already exists.\nPlease enter a new course "
                           "name.")
        .arg(name);
}
inline QString HoursOutOfRange()
{
    return BrindleText::tr("The hours must be a number from 0 up, or left empty.");
}

// Textbook list and editor.
inline QString NewTextbook()
{
    return BrindleText::tr("New Textbook");
}
inline QString EditTextbook()
{
    return BrindleText::tr("Edit Textbook");
}
inline QString DeleteTextbook()
{
    return BrindleText::tr("Delete Textbook");
}
inline QString MoveUp()
{
    return ControlStrings::MoveUp();
}
inline QString MoveDown()
{
    return ControlStrings::MoveDown();
}
inline QString LabelAuthor()
{
    return BrindleText::tr("Author: ");
}
inline QString LabelCost()
{
    return BrindleText::tr("Cost: ");
}
inline QString CostOutOfRange()
{
    return BrindleText::tr("The cost must be a number from 0 up, or left empty.");
}
// A textbook row of the list: name, then author and cost when given.
inline QString TextbookRow(const QString& name, const QString& author)
{
    return BrindleText::tr("%1 by %2").arg(name, author);
}
inline QString TextbookRowWithCost(const QString& row, const QString& cost)
{
    return BrindleText::tr("%1, %2").arg(row, cost);
}

// Time list and class time editor.
inline QString NewTime()
{
    return BrindleText::tr("New Time");
}
inline QString EditTime()
{
    return BrindleText::tr("Edit Time");
}
inline QString DeleteTime()
{
    return BrindleText::tr("Delete Time");
}
inline QString LabelStartTime()
{
    return BrindleText::tr("Start Time: ");
}
inline QString LabelEndTime()
{
    return BrindleText::tr("End Time: ");
}
inline QString LabelDays()
{
    return BrindleText::tr("Days: ");
}
inline QString DaySunday()
{
    return BrindleText::tr("Su");
}
inline QString DayMonday()
{
    return BrindleText::tr("M");
}
inline QString DayTuesday()
{
    return BrindleText::tr("Tu");
}
inline QString DayWednesday()
{
    return BrindleText::tr("W");
}
inline QString DayThursday()
{
    return BrindleText::tr("Th");
}
inline QString DayFriday()
{
    return BrindleText::tr("F");
}
inline QString DaySaturday()
{
    return BrindleText::tr("Sa");
}
inline QString NoDays()
{
    return BrindleText::tr("(no days)");
}
// A time row of the list: the days, then the start and end times.
inline QString TimeRow(const QString& days, const QString& start, const QString& end)
{
    return BrindleText::tr("%1  %2 - %3").arg(days, start, end);
}
inline QString EndBeforeStart()
{
    return BrindleText::tr("The end time is before the start time.\nPlease choose an end time at "
                           "or after the start time.");
}

// The instructors editor.
inline QString InstructorsTitle()
{
    return BrindleText::tr("Edit Instructors");
}
inline QString CurrentInstructors()
{
    return BrindleText::tr("Current Instructors");
}
inline QString PageOfficeHours()
{
    return BrindleText::tr("Office Hours");
}
inline QString LabelPhone()
{
    return BrindleText::tr("Phone: ");
}
inline QString LabelEmail()
{
    return BrindleText::tr("Email: ");
}
inline QString MenuNew()
{
    return BrindleText::tr("New");
}
inline QString FromPrevious()
{
    return BrindleText::tr("From Previous...");
}
inline QString BrandNew()
{
    return BrindleText::tr("Brand New");
}
inline QString MenuDelete()
{
    return ControlStrings::Delete();
}
inline QString CurrentInstructor()
{
    return BrindleText::tr("Current Instructor");
}
inline QString EnterName()
{
    return BrindleText::tr("(Enter Name)");
}
inline QString InstructorInUse()
{
    return BrindleText::tr("Another course is currently using this instructor.\nContinue with "
                           "Delete?");
}
inline QString ConfirmDeleteInstructor()
{
    return BrindleText::tr("Are you sure you want to delete the instructor?");
}

// The buildings editor.
inline QString BuildingsTitle()
{
    return BrindleText::tr("Buildings");
}
inline QString BuildingsHint()
{
    return BrindleText::tr("Tap and hold in the list below to add and edit buildings.");
}
inline QString NewBuilding()
{
    return BrindleText::tr("New Building");
}
inline QString EditBuilding()
{
    return BrindleText::tr("Edit Building");
}
inline QString DeleteBuilding()
{
    return BrindleText::tr("Delete Building");
}
inline QString BuildingNameCaption()
{
    return BrindleText::tr("Building Name:");
}

// The main frame's course commands.
inline QString ConfirmDeleteCourse(const QString& name)
{
    return BrindleText::tr("Are you sure you want to delete the course '%1'?").arg(name);
}

} // namespace EditorStrings
