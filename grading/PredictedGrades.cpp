#include "PredictedGrades.h"

#include "CourseList.h"
#include "GradeCalculation.h"
#include "PredictionStore.h"

void RecomputePredictedGrades()
{
    // Off, a recompute would store into the course records: never here.
    if (!CPredictionStore::Instance().IsActive())
        return;
    for (quint32 courseId : GetSemesterCourses())
        RecomputeCourseGrade(courseId);
}
