#pragma once

#include <QString>

// The one line of the grade bar for the application state: the current
// course's grade ("Grade: 87.35% B+", "Grade: --"), or under "All Courses"
// the semester's grade point average ("GPA: 3.25", "GPA:").
QString GradeBarText();

// The grade bar of one course.
QString CourseGradeText(quint32 courseId);
