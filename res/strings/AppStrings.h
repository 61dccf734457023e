#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the application shell: the title, the main frame's menus, the
// about box and start-up messages.
namespace AppStrings {

inline QString AppTitle()
{
    return BrindleText::tr("Brindle");
}

inline QString MenuCourse()
{
    return BrindleText::tr("Course");
}
inline QString MenuTools()
{
    return BrindleText::tr("Tools");
}
inline QString MenuPrediction()
{
    return BrindleText::tr("Prediction");
}
inline QString MenuHelp()
{
    return BrindleText::tr("Help");
}

inline QString NewCourse()
{
    return BrindleText::tr("New Course...");
}
inline QString SortCourses()
{
    return BrindleText::tr("Sort Courses...");
}
inline QString DeleteCourse()
{
    return BrindleText::tr("Delete Course...");
}
inline QString ProgressReport()
{
    return BrindleText::tr("Progress Report...");
}
inline QString AddCoursework()
{
    return BrindleText::tr("Add Coursework...");
}
inline QString EditCourse()
{
    return BrindleText::tr("Edit Course...");
}
inline QString EditInstructors()
{
    return BrindleText::tr("Edit Instructors...");
}
inline QString EditGradingPolicy()
{
    return BrindleText::tr("Edit Grading Policy...");
}

inline QString AboutBrindle()
{
    return BrindleText::tr("About Brindle...");
}
inline QString Database()
{
    return BrindleText::tr("Database...");
}
inline QString Semester()
{
    return BrindleText::tr("Semester...");
}
inline QString TabOrder()
{
    return BrindleText::tr("Tab Order...");
}
inline QString Buildings()
{
    return BrindleText::tr("Buildings...");
}
inline QString AllInstructors()
{
    return BrindleText::tr("All Instructors...");
}
inline QString Institution()
{
    return BrindleText::tr("Institution...");
}
inline QString ReportCard()
{
    return BrindleText::tr("Report Card...");
}

inline QString PredictionOptions()
{
    return BrindleText::tr("Options...");
}
inline QString ToggleGradePrediction()
{
    return BrindleText::tr("Toggle Grade Prediction");
}
inline QString TurnOn()
{
    return BrindleText::tr("Turn On");
}
inline QString TurnOff()
{
    return BrindleText::tr("Turn Off");
}

inline QString HelpContents()
{
    return ControlStrings::HelpTitle();
}
inline QString ShowDone()
{
    return BrindleText::tr("Show Done");
}
inline QString Quit()
{
    return BrindleText::tr("Quit");
}

inline QString AboutTitle()
{
    return BrindleText::tr("About Brindle");
}
inline QString AboutText(const QString& version)
{
    return BrindleText::tr("<h3>Brindle %1</h3><p>A student organizer: courses, coursework, "
                           "grades and grade point averages, semester after semester.</p>")
        .arg(version);
}

inline QString HelpTitle()
{
    return ControlStrings::HelpTitle();
}
inline QString HelpBack()
{
    return BrindleText::tr("Back");
}
inline QString HelpForward()
{
    return BrindleText::tr("Forward");
}
inline QString HelpContentsButton()
{
    return BrindleText::tr("Contents");
}
inline QString HelpMissing(const QString& path)
{
    return BrindleText::tr("The help file %1 cannot be found.").arg(path);
}

inline QString DatabaseUnusable(const QString& reason)
{
    return BrindleText::tr("%1\n\nStart with a new, empty database? The file is kept, unchanged, "
                           "under a new name beside it.")
        .arg(reason);
}
inline QString DatabaseSetAside(const QString& reason)
{
    return BrindleText::tr("%1\n\nBrindle cannot start on this database.").arg(reason);
}
inline QString DatabaseCannotMoveAside(const QString& path)
{
    return BrindleText::tr("The file %1 cannot be renamed; Brindle leaves it as it is and stops.")
        .arg(path);
}

inline QString ScreenshotFailed(const QString& path)
{
    return BrindleText::tr("The picture %1 cannot be written.").arg(path);
}

// Command-line help.
inline QString OptionDatabase()
{
    return BrindleText::tr("Use the database FILE.");
}
inline QString OptionScreenshot()
{
    return BrindleText::tr("Write the main window to the PNG FILE and exit.");
}
inline QString OptionQuitAfterShow()
{
    return BrindleText::tr("Exit as soon as the main window is drawn.");
}
inline QString OptionDemo()
{
    return BrindleText::tr("Start on a fresh demo database in a temporary folder.");
}

} // namespace AppStrings
