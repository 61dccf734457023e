#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the grade planner, the best and worst case, the grading policy
// checks and the calculation shown in the progress report.
namespace PlannerStrings {

inline QString MenuItem()
{
    return BrindleText::tr("Grade Planner...");
}
inline QString ReportButton()
{
    return BrindleText::tr("Grade &Planner...");
}
inline QString Title()
{
    return BrindleText::tr("Grade Planner");
}
inline QString NoCourses()
{
    return ControlStrings::NoCourses();
}
inline QString CourseLabel()
{
    return BrindleText::tr("&Course:");
}

// A percent with its grade name ("87.35% B+"), or the grade's absence.
inline QString PercentWithGrade(const QString& percent, const QString& gradeName)
{
    return BrindleText::tr("%1% %2").arg(percent, gradeName).trimmed();
}
inline QString NoScore()
{
    return ControlStrings::NoScore();
}

// What do I need?
inline QString NeedHeading()
{
    return BrindleText::tr("What do I need?");
}
inline QString NeedPrompt()
{
    return BrindleText::tr("The lowest percent to get on every coursework not graded yet, for "
                           "each grade:");
}
inline QString GradeColumn()
{
    return ControlStrings::Grade();
}
inline QString MinimumColumn()
{
    return BrindleText::tr("Minimum");
}
inline QString NeedColumn()
{
    return BrindleText::tr("You need");
}
inline QString Secured()
{
    return BrindleText::tr("already secured");
}
inline QString NotReachable()
{
    return BrindleText::tr("not reachable");
}
inline QString Percent(const QString& number)
{
    return ControlStrings::Percent(number);
}
inline QString NeedReachable(const QString& grade, const QString& minimum, const QString& percent,
                             int count)
{
    return BrindleText::tr("For %1 (at least %2%) you need %3% on each of the %4 coursework not "
                           "graded yet.")
        .arg(grade, minimum, percent)
        .arg(count);
}
inline QString NeedSecured(const QString& grade, const QString& minimum)
{
    return BrindleText::tr("%1 (at least %2%) is already secured: even 0% on everything not "
                           "graded yet keeps it.")
        .arg(grade, minimum);
}
inline QString NeedNotReachable(const QString& grade, const QString& minimum, const QString& best)
{
    return BrindleText::tr("%1 (at least %2%) is not reachable: 100% on everything not graded "
                           "yet gives %3.")
        .arg(grade, minimum, best);
}
inline QString AssumesHeading()
{
    return BrindleText::tr("The answers give the same percent to each of these:");
}
inline QString AssumedItem(const QString& type, const QString& name, const QString& possible)
{
    return BrindleText::tr("%1: %2 (out of %3)").arg(type, name, possible);
}
inline QString NothingLeft()
{
    return BrindleText::tr("Nothing is left to grade: every answer is the grade as it stands.");
}
inline QString MayFall()
{
    return BrindleText::tr("With drops, a higher percent can now and then give a lower grade "
                           "(another score becomes the one dropped). Each answer holds for "
                           "every higher percent too.");
}
inline QString ReadFailed()
{
    return BrindleText::tr("Some of the course's records could not be read; the answers may "
                           "be incomplete.");
}

// Best and worst case.
inline QString BestCase(const QString& grade)
{
    return BrindleText::tr("Best case (100% on everything not graded yet): %1").arg(grade);
}
inline QString WorstCase(const QString& grade)
{
    return BrindleText::tr("Worst case (0% on everything not graded yet): %1").arg(grade);
}
inline QString CurrentGrade(const QString& grade)
{
    return BrindleText::tr("Now: %1").arg(grade);
}
inline QString BestWorstLine(const QString& worst, const QString& best)
{
    return BrindleText::tr("Final grade between %1 and %2").arg(worst, best);
}

// Target GPA.
inline QString GpaHeading()
{
    return BrindleText::tr("Target semester GPA");
}
inline QString GpaLabel()
{
    return BrindleText::tr("&Target GPA:");
}
inline QString GpaValue(double gpa)
{
    // Two decimals as C prints them, like the grade bar.
    return QString::asprintf("%.2f", gpa);
}
inline QString GpaPrompt()
{
    return BrindleText::tr("Type the semester GPA you aim for.");
}
inline QString GpaInvalid()
{
    return BrindleText::tr("Enter a GPA of 0 or more.");
}
inline QString GpaNoCourses()
{
    return BrindleText::tr("The semester has no courses.");
}
inline QString GpaSecured(const QString& gpa)
{
    return BrindleText::tr("Already secured: even 0% on everything not graded yet gives a GPA of "
                           "%1.")
        .arg(gpa);
}
inline QString GpaReachable(const QString& percent, const QString& gpa)
{
    return BrindleText::tr("Reachable with %1% on everything not graded yet, in every course "
                           "(GPA %2). Each course then gets:")
        .arg(percent, gpa);
}
inline QString GpaNotReachable(const QString& gpa)
{
    return BrindleText::tr("Not reachable: 100% on everything not graded yet gives a GPA of %1.")
        .arg(gpa);
}
inline QString GpaNone()
{
    return BrindleText::tr("Not reachable: no course has a grade to count.");
}
inline QString CourseGrade(const QString& course, const QString& grade)
{
    return BrindleText::tr("%1: %2").arg(course, grade);
}

// Policy checks.
inline QString WarningsHeading()
{
    return BrindleText::tr("Worth checking in the grading policy:");
}
inline QString WeightsNotHundred(const QString& sum)
{
    return BrindleText::tr("The weights of the graded types add up to %1, not 100. Each type "
                           "counts in proportion to its weight.")
        .arg(sum);
}
inline QString WeightsAllZero()
{
    return BrindleText::tr("Every graded type has weight 0, so the grade is 0% whatever the "
                           "scores.");
}
inline QString TypeWeightZero(const QString& type)
{
    return BrindleText::tr("\"%1\" has weight 0: its coursework does not count toward the grade.")
        .arg(type);
}
inline QString TypeWithoutCoursework(const QString& type)
{
    return BrindleText::tr("\"%1\" has no coursework.").arg(type);
}
inline QString ItemWeightsZero(const QString& type, int count)
{
    return BrindleText::tr("%1 coursework of \"%2\" have weight 0 and do not count under Per "
                           "Item weighting.")
        .arg(count)
        .arg(type);
}
inline QString ItemWeightsAllZeroGraded(const QString& type)
{
    return BrindleText::tr("No coursework of \"%1\" has a weight, so under Per Item weighting its "
                           "grade is 0 divided by 0 and the course shows no grade. Give its "
                           "coursework a weight.")
        .arg(type);
}
inline QString DropsNotBelowGraded(const QString& type, int drops, int graded)
{
    return BrindleText::tr("\"%1\" drops %2, but only %3 of its coursework are graded: a drop "
                           "only removes a score below the type's average, so not every drop "
                           "can be used.")
        .arg(type)
        .arg(drops)
        .arg(graded);
}
inline QString DropsUnderPerItem(const QString& type)
{
    return BrindleText::tr("\"%1\" has drops, but drops have no effect under Per Item weighting.")
        .arg(type);
}
inline QString MinimumNotFalling(const QString& grade, const QString& minimum, const QString& above,
                                 const QString& aboveMinimum)
{
    return BrindleText::tr("The minimum for %1 (%2%) is not below the minimum for %3 (%4%), so "
                           "%1 is never given.")
        .arg(grade, minimum, above, aboveMinimum);
}

// One warning of a list of them.
inline QString WarningItem(const QString& text)
{
    return BrindleText::tr("\u2022 %1").arg(text);
}

// The calculation in the progress report.
inline QString CalculationHeading()
{
    return BrindleText::tr("How the grade is worked out");
}
inline QString TypeContribution(const QString& points)
{
    return BrindleText::tr("adds %1 to the course percent").arg(points);
}
inline QString TypeNotCounted()
{
    return BrindleText::tr("nothing graded yet: not counted");
}
inline QString ItemScore(const QString& score, const QString& possible)
{
    return BrindleText::tr("%1 / %2").arg(score, possible);
}
inline QString ItemScoreWeighted(const QString& score, const QString& possible,
                                 const QString& weight)
{
    return BrindleText::tr("%1 / %2, weight %3").arg(score, possible, weight);
}
inline QString ItemCounted()
{
    return BrindleText::tr("counted");
}
inline QString ItemCountedPredicted()
{
    return BrindleText::tr("counted (predicted score)");
}
inline QString ItemDropped()
{
    return BrindleText::tr("dropped: below the type's average, and dropping it raised the "
                           "average most");
}
inline QString ItemNotGraded()
{
    return BrindleText::tr("not graded yet");
}

} // namespace PlannerStrings
