#pragma once

#include <QtGlobal>

// Grade points of a grade number; 0.0 above grade 11 or for a grade the scale
// lacks.
double GetGradePoints(quint16 grade);

// GPA of the semester on view; -1.0 when no course counts.
double GetSemesterGPA(bool weightedByCourseHours, bool inMajorOnly);

// GPA over the past hours and points and every course of every semester;
// -1.0 when nothing counts.
double GetCumulativeGPA(bool weightedByCourseHours);
