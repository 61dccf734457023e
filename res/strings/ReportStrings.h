#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of grade prediction, the progress report, the institution's grade
// scale and GPA, and the report card.
namespace ReportStrings {

// Shared by the dialogs that show a percent with its grade name.
inline QString PercentAndGrade(const QString& percent, const QString& grade)
{
    return BrindleText::tr("%1% %2").arg(percent, grade);
}

inline QString Percent(const QString& percent)
{
    return ControlStrings::Percent(percent);
}

// Grade prediction.
inline QString GradePredictionTitle()
{
    return BrindleText::tr("Grade Prediction");
}
inline QString NoCourses()
{
    return ControlStrings::NoCourses();
}
inline QString PredictionPrompt()
{
    return BrindleText::tr("Enter score each non-graded coursework will receive");
}
inline QString EditPercent()
{
    return BrindleText::tr("Edit Percent");
}
inline QString ClearPercent()
{
    return BrindleText::tr("Clear Percent");
}
inline QString ScoreToGiveLabel()
{
    return BrindleText::tr("Score to Give: ");
}
inline QString ScoreToGiveOutOfRange()
{
    return BrindleText::tr("The score to give is a percent: enter a number from 0 to 100.");
}

// Progress report.
inline QString ProgressReportTitle()
{
    return BrindleText::tr("Progress Report");
}
inline QString CompletedOf(int completed, int count)
{
    return BrindleText::tr("%1 of %2 completed").arg(completed).arg(count);
}
inline QString NoMark()
{
    return BrindleText::tr("-");
}
inline QString NoCourseworks()
{
    return BrindleText::tr("No Courseworks");
}
inline QString CourseworksCompleted(int completed, int count)
{
    return BrindleText::tr("%1 of %2 courseworks completed").arg(completed).arg(count);
}
inline QString NoScore()
{
    return ControlStrings::NoScore();
}
inline QString GradeLine(const QString& percent, const QString& grade)
{
    return ControlStrings::GradeWithName(percent, grade);
}
// The grade text of a type whose possible total is the no-value marker.
inline QString TopGrade()
{
    return BrindleText::tr("A+");
}

// Institution.
inline QString InstitutionTitle()
{
    return BrindleText::tr("Institution Info");
}
inline QString GradeScalePage()
{
    return BrindleText::tr("Grade Scale");
}
inline QString GpaPage()
{
    return ControlStrings::Gpa();
}
inline QString GradeScalePrompt()
{
    return BrindleText::tr("Set the grade points for the grade scale");
}
inline QString GradeScalesLabel()
{
    return BrindleText::tr("Grade Scales: ");
}
inline QString CurrentScale()
{
    return BrindleText::tr("Current");
}
inline QString CustomScale()
{
    return BrindleText::tr("Custom");
}
inline QString NewGrade()
{
    return BrindleText::tr("New...");
}
inline QString EditGrade()
{
    return BrindleText::tr("Edit...");
}
inline QString DeleteGrade()
{
    return ControlStrings::Delete();
}
inline QString GradeColumn()
{
    return ControlStrings::Grade();
}
inline QString PointsColumn()
{
    return BrindleText::tr("Points");
}
inline QString TooManyGrades(int most)
{
    return BrindleText::tr("A grade scale holds at most %1 grades. Delete a grade before adding "
                           "another.")
        .arg(most);
}
inline QString NoGrades()
{
    return BrindleText::tr("The grade scale needs at least one grade. Add a grade or choose a "
                           "scale from the list.");
}
inline QString ShowGpaWithHours()
{
    return BrindleText::tr("Show GPA With Hours");
}
inline QString TotalHours()
{
    return BrindleText::tr("Total Hours ");
}
inline QString TotalPoints()
{
    return BrindleText::tr("Total Points ");
}
inline QString PastGpa()
{
    return BrindleText::tr("Past GPA");
}
inline QString PastGpaValue(double gpa)
{
    return QString::asprintf("%.2f", gpa);
}
inline QString PastValuesNegative()
{
    return BrindleText::tr("Past hours and past points cannot be negative.");
}
inline QString PastValuesExplained()
{
    return BrindleText::tr("Hours and grade points earned before the courses kept in Brindle; "
                           "they count toward the cumulative GPA.");
}

// Grade point sub-dialog.
inline QString NewGradePointTitle()
{
    return BrindleText::tr("New Grade Point");
}
inline QString EditGradePointTitle()
{
    return BrindleText::tr("Edit Grade Point");
}
inline QString GradePointName()
{
    return BrindleText::tr("Grade Point Name");
}
inline QString GradePoints()
{
    return BrindleText::tr("Grade Points: ");
}
inline QString GradeNameEmpty()
{
    return BrindleText::tr("Enter a name for the grade.");
}
inline QString GradePointsNegative()
{
    return BrindleText::tr("Grade points are a number from 0 up.");
}

// Report card.
inline QString ReportCardTitle()
{
    return BrindleText::tr("Report Card");
}
inline QString GpaLabel()
{
    return ControlStrings::Gpa();
}
inline QString MajorGpaLabel()
{
    return BrindleText::tr("Maj GPA");
}
inline QString CumulativeGpaLabel()
{
    return BrindleText::tr("Cum. GPA");
}
inline QString GpaLine(const QString& label, double gpa)
{
    return BrindleText::tr("%1: %2").arg(label, QString::asprintf("%.3f", gpa));
}
inline QString GpaLineEmpty(const QString& label)
{
    return BrindleText::tr("%1:").arg(label);
}
inline QString AllCourseGrades()
{
    return BrindleText::tr("All course grade information");
}
inline QString ChartCaption()
{
    return BrindleText::tr("Current percent against grade minimums");
}
inline QString ChartNoCourses()
{
    return BrindleText::tr("No courses to chart");
}
inline QString ChartNoScore()
{
    return ControlStrings::NoScore();
}
// One course of the chart as a screen reader speaks it: "Biology: 87.35% B".
inline QString ChartLine(const QString& course, const QString& value)
{
    return BrindleText::tr("%1: %2").arg(course, value);
}

} // namespace ReportStrings
