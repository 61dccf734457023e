#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the main view: the filters, the list, the grade bar and banners.
namespace ViewStrings {

inline QString AllCourses()
{
    return BrindleText::tr("All Courses");
}
inline QString NoCourses()
{
    return ControlStrings::NoCourses();
}

// The coursework list and its pop-up menu.
inline QString DeleteCoursework()
{
    return BrindleText::tr("Delete Coursework");
}
inline QString ConfirmDeleteCoursework()
{
    return BrindleText::tr("Are you sure you want to delete this coursework?");
}
inline QString UnofficialScore()
{
    return BrindleText::tr("Unofficial score from Grade Prediction Mode");
}
// Weekday, date and time of a due date, each in the user's locale.
inline QString DueWhen(const QString& weekday, const QString& date, const QString& time)
{
    return BrindleText::tr("%1 %2 %3").arg(weekday, date, time);
}
inline QString DueOn(const QString& when)
{
    return BrindleText::tr("Due %1").arg(when);
}
inline QString OverdueSince(const QString& when)
{
    return BrindleText::tr("Overdue: due %1").arg(when);
}
inline QString PercentText(const QString& number)
{
    return ControlStrings::Percent(number);
}
// Names of the main view's controls for screen readers.
inline QString TabsName()
{
    return BrindleText::tr("View");
}
inline QString CourseSelectorName()
{
    return BrindleText::tr("Course");
}
inline QString ListName()
{
    return BrindleText::tr("Coursework");
}

// A coursework row as a screen reader speaks it: name, due date, progress
// and, once graded, the score.
inline QString RowSpoken(const QString& name, const QString& due, const QString& progress)
{
    return BrindleText::tr("%1, %2, %3 done").arg(name, due, progress);
}
inline QString RowSpokenWithScore(const QString& row, const QString& score)
{
    return BrindleText::tr("%1, score %2").arg(row, score);
}
inline QString RowSpokenWithScoreOf(const QString& row, const QString& percent,
                                    const QString& points)
{
    return BrindleText::tr("%1, score %2 (%3)").arg(row, percent, points);
}
inline QString ScoreOfPossible(const QString& score, const QString& possible)
{
    return BrindleText::tr("%1/%2").arg(score, possible);
}
inline QString PointsOnly(const QString& score)
{
    return BrindleText::tr("%1 pts").arg(score);
}
inline QString NotGraded()
{
    return BrindleText::tr("--");
}
inline QString PredictedTip()
{
    return BrindleText::tr("Predicted score");
}

// The grade bar.
inline QString GpaValue(const QString& gpa)
{
    return BrindleText::tr("GPA: %1").arg(gpa);
}
inline QString GpaNone()
{
    return BrindleText::tr("GPA:");
}
inline QString GradeNone()
{
    return BrindleText::tr("Grade: --");
}
inline QString GradeValue(const QString& percent, const QString& gradeName)
{
    return ControlStrings::GradeWithName(percent, gradeName);
}
// A grade past the end of the scale has no name: the percent alone.
inline QString GradePercentOnly(const QString& percent)
{
    return BrindleText::tr("Grade: %1%").arg(percent);
}

// The banner and its pop-up menu.
inline QString GradePredictionMode()
{
    return BrindleText::tr("Grade Prediction Mode");
}
inline QString ArchivedSemester()
{
    return BrindleText::tr("Archived Semester");
}
inline QString ExitGradePredictionMode()
{
    return BrindleText::tr("Exit Grade Prediction Mode");
}
inline QString ExitArchivedSemester()
{
    return BrindleText::tr("Exit Archived Semester");
}

// Start-up with --demo.
inline QString DemoFailed()
{
    return BrindleText::tr("The demo database cannot be made.");
}

} // namespace ViewStrings
