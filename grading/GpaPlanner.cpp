#include "GpaPlanner.h"

#include "CourseList.h"
#include "CourseTable.h"
#include "GpaCalculation.h"
#include "GradeScaleTable.h"

#include <algorithm>
#include <cmath>

namespace {
// The GPA is shown with two or three decimals; a sum of grade points that
// misses the target by binary noise still meets it.
constexpr double GpaTolerance = 1e-9;
// Grade numbers above this earn no points (GetGradePoints).
constexpr quint16 HighestScoredGrade = 11;
} // namespace

CGpaPlanner::CGpaPlanner(quint32 semesterId, bool weightedByCourseHours)
    : m_weighted(weightedByCourseHours)
{
    CCourseTable table;
    const bool open = table.Open();
    for (quint32 courseId : GetSemesterCourses(semesterId)) {
        Course course;
        course.planner = std::make_unique<CGradePlanner>(courseId);
        if (open && table.MoveToRecord(courseId)) {
            course.name = table.GetCourseName();
            // Hours left empty (the no-value marker) count as none.
            course.hours = std::max(0.0, table.GetCourseHours());
        }
        m_courses.push_back(std::move(course));
    }
    for (quint16 grade = 0; grade <= HighestScoredGrade; ++grade)
        m_points.push_back(GetGradePoints(grade));
}

double CGpaPlanner::Points(quint16 grade)
{
    return grade < m_points.size() ? m_points[grade] : 0.0;
}

std::vector<CGpaPlanner::CourseGrade> CGpaPlanner::GradesAtStep(int step)
{
    std::vector<CourseGrade> grades;
    for (Course& course : m_courses) {
        CourseGrade grade;
        grade.courseId = course.planner->CourseID();
        grade.courseName = course.name;
        grade.fraction = course.planner->FractionAtStep(step);
        if (grade.fraction != -1.0 && std::isfinite(grade.fraction)) {
            grade.grade = course.planner->GradeOf(grade.fraction);
            grade.gradeName = CGradeScaleTable::GetGradeNameFromGrade(grade.grade);
        } else {
            grade.fraction = -1.0;
        }
        grades.push_back(grade);
    }
    return grades;
}

double CGpaPlanner::GpaAtStep(int step)
{
    double points = 0.0;
    double hours = 0.0;
    for (Course& course : m_courses) {
        const double fraction = course.planner->FractionAtStep(step);
        // No score, or one that is not a number, leaves the course out.
        if (fraction < 0.0 || !std::isfinite(fraction))
            continue;
        const double weight = m_weighted ? course.hours : 1.0;
        points += Points(course.planner->GradeOf(fraction)) * weight;
        hours += weight;
    }
    return hours == 0.0 ? -1.0 : points / hours;
}

bool CGpaPlanner::MayFallAsPercentRises()
{
    for (size_t grade = 1; grade < m_points.size(); ++grade) {
        if (m_points[grade] > m_points[grade - 1])
            return true; // a worse grade earning more points
    }
    for (Course& course : m_courses) {
        if (course.planner->MayFallAsPercentRises())
            return true;
    }
    return false;
}

CGpaPlanner::Answer CGpaPlanner::For(double targetGpa)
{
    Answer answer;
    if (m_courses.empty())
        return answer;
    auto reaches = [this, targetGpa](int step) {
        const double gpa = GpaAtStep(step);
        return gpa != -1.0 && gpa >= targetGpa - GpaTolerance;
    };
    int step = 0;
    if (!reaches(CGradePlanner::Steps)) {
        step = CGradePlanner::Steps + 1;
    } else if (MayFallAsPercentRises()) {
        // Every percent from the top down; the answer holds for all above it.
        step = CGradePlanner::Steps;
        while (step > 0 && reaches(step - 1))
            --step;
    } else if (!reaches(0)) {
        int low = 0;
        int high = CGradePlanner::Steps;
        while (high - low > 1) {
            const int middle = low + (high - low) / 2;
            (reaches(middle) ? high : low) = middle;
        }
        step = high;
    }

    const int shown = std::min(step, CGradePlanner::Steps);
    answer.gpa = GpaAtStep(shown);
    answer.courses = GradesAtStep(shown);
    if (step == 0) {
        answer.status = Answer::Secured;
    } else if (step > CGradePlanner::Steps) {
        answer.status = Answer::NotReachable;
    } else {
        answer.status = Answer::Reachable;
        answer.percent = PercentOfStep(step);
    }
    return answer;
}
