#pragma once

#include <QtGlobal>

#include <vector>

// The working semester's id; archived semesters are CSemesterTable records.
constexpr quint32 WorkingSemesterID = 0;
// "All Courses" as a current course id.
constexpr quint32 AllCoursesID = 0xFFFFFFFF;

// The course ids of a semester in CoursePosition order (positions compared as
// signed 16-bit numbers; equal positions keep their stored order). A semester
// of -1 means the semester on view in the application state.
std::vector<quint32> GetSemesterCourses(qint64 semesterId = -1);
