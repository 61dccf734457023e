#pragma once

#include <QDate>

// How much a generated database holds. The defaults are the demo a new user
// sees; the benchmark asks for a student's whole career and more.
struct DemoSize
{
    int semesters = 2;          // the working semester and the archived ones
    int courses = 9;            // across all semesters
    int coursework = 76;        // across all courses
    int workingCourses = 5;     // of `courses`, in the working semester
    int workingCoursework = 40; // of `coursework`, in the working semester
};

// Fills the mounted database, made fresh by CreateDatabase, with a student's
// records around `today`: courses with meeting times, buildings, instructors
// with office hours and textbooks; coursework types with weights; graded,
// ungraded, done and overdue coursework; grades computed from them; archived
// semesters of finished courses. The application state starts on the working
// semester and "All Courses". Everything lands in one transaction; nonzero on
// success.
int BuildDemoDatabase(const QDate& today, const DemoSize& size = DemoSize());
