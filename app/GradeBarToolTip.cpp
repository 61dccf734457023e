#include "GradeBarToolTip.h"

#include "BrindleData.h"
#include "grading/GradePlanner.h"
#include "res/strings/PlannerStrings.h"

QString CourseBandToolTip(quint32 courseId)
{
    CGradePlanner planner(courseId);
    const double best = planner.BestCase();
    const double worst = planner.WorstCase();
    return PlannerStrings::BestCase(planner.GradeTextOf(best)) + QLatin1Char('\n') +
           PlannerStrings::WorstCase(planner.GradeTextOf(worst));
}

QString GradeBarToolTip()
{
    const quint32 courseId = CAppStateTable::Instance().GetCurrentCourseID();
    return courseId == AllCoursesID ? QString() : CourseBandToolTip(courseId);
}
