#include "GradeBarToolTip.h"

#include "BrindleData.h"
#include "grading/GradePlanner.h"
#include "grading/GradeText.h"
#include "res/strings/PlannerStrings.h"

#include <cmath>

namespace {
QString BandGradeText(const CGradePlanner& planner, double fraction)
{
    if (fraction == -1.0 || !std::isfinite(fraction))
        return PlannerStrings::NoScore();
    return PlannerStrings::PercentWithGrade(
        GradeText::NumberToText(GradeText::PercentOf(fraction)),
        CGradeScaleTable::GetGradeNameFromGrade(planner.GradeOf(fraction)));
}
} // namespace

QString CourseBandToolTip(quint32 courseId)
{
    CGradePlanner planner(courseId);
    const double best = planner.BestCase();
    const double worst = planner.WorstCase();
    return PlannerStrings::BestCase(BandGradeText(planner, best)) + QLatin1Char('\n') +
           PlannerStrings::WorstCase(BandGradeText(planner, worst));
}

QString GradeBarToolTip()
{
    const quint32 courseId = CAppStateTable::Instance().GetCurrentCourseID();
    return courseId == AllCoursesID ? QString() : CourseBandToolTip(courseId);
}
