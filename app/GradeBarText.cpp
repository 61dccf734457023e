#include "GradeBarText.h"

#include "BrindleData.h"
#include "grading/GpaCalculation.h"
#include "grading/GradeCalculation.h"
#include "res/strings/ViewStrings.h"
#include "store/GradeText.h"

QString CourseGradeText(quint32 courseId)
{
    const double grade = GetCourseGrade(courseId);
    if (!GradeText::HasScore(grade))
        return ViewStrings::GradeNone();
    const QString gradeName =
        CGradeScaleTable::GetGradeNameFromGrade(GetGradeIndex(courseId, grade));
    const QString percent = GradeText::NumberToText(GradeText::PercentOfCut(grade));
    // A grade one past the scale has no name.
    return gradeName.isEmpty() ? ViewStrings::GradePercentOnly(percent)
                               : ViewStrings::GradeValue(percent, gradeName);
}

QString GradeBarText()
{
    const CAppStateTable& state = CAppStateTable::Instance();
    const quint32 courseId = state.GetCurrentCourseID();
    if (courseId != AllCoursesID)
        return CourseGradeText(courseId);

    const double gpa = GetSemesterGPA(state.GetShowGPAWithHours() != 0, false);
    if (gpa == -1.0)
        return ViewStrings::GpaNone();
    return ViewStrings::GpaValue(GradeText::FixedText(gpa, 2));
}
