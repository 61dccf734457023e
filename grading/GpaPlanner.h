#pragma once

#include "GradePlanner.h"

#include <QString>

#include <memory>
#include <vector>

// The semester GPA if every coursework of every course that is not graded yet
// got the same percent, and the lowest such percent for a target GPA, with
// the grade each course then gets. Counts courses and hours as the GPA of the
// grade bar does; nothing is written.
class CGpaPlanner
{
public:
    struct CourseGrade
    {
        quint32 courseId = 0;
        QString courseName;
        double fraction = -1.0; // -1.0: no score
        quint16 grade = 0;      // meaningful when the fraction is a score
        QString gradeName;
    };

    struct Answer
    {
        enum Status { NoCourses, Secured, Reachable, NotReachable };
        Status status = NoCourses;
        double percent = 0.0; // Reachable: the lowest uniform percent
        double gpa = -1.0;    // at that percent (NotReachable: at 100 %)
        std::vector<CourseGrade> courses;
    };

    CGpaPlanner(quint32 semesterId, bool weightedByCourseHours);

    int CourseCount() const { return static_cast<int>(m_courses.size()); }
    // -1.0 when no course counts.
    double GpaAtStep(int step);
    Answer For(double targetGpa);

private:
    struct Course
    {
        std::unique_ptr<CGradePlanner> planner;
        QString name;
        double hours = 0.0;
    };
    std::vector<CourseGrade> GradesAtStep(int step);
    double Points(quint16 grade);
    bool MayFallAsPercentRises();

    std::vector<Course> m_courses;
    bool m_weighted;
    std::vector<double> m_points; // by grade number, read once
};
