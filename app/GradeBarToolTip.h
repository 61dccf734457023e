#pragma once

#include <QString>

// The grade bar's tooltip for the current course: the band the final grade
// must fall in (every coursework not graded yet at 0 % and at 100 %). Empty
// under "All Courses".
QString GradeBarToolTip();

// The same for one course.
QString CourseBandToolTip(quint32 courseId);
