#pragma once

#include <QString>

#include <vector>

// How a course's grade is worked out, for the progress report: per type the
// coursework that counted, the ones its drops removed, and the type's share
// of the course percent. Taken from one run of the grade calculation.
struct GradeBreakdown
{
    struct Item
    {
        enum State { Counted, Dropped, NotGraded };
        QString name;
        State state = NotGraded;
        double score = -1.0;
        double possible = 0.0;
        double weight = 0.0;    // Per Item weighting only
        bool predicted = false; // the score comes from grade prediction
    };

    struct Type
    {
        QString name;
        std::vector<Item> items;
        bool considered = false;   // something of it is graded
        double contribution = 0.0; // its part of the course fraction
    };

    quint32 weighting = 0;
    std::vector<Type> types;
    double fraction = -1.0;
};

// The grade of the course as the calculation gives it now (prediction mode
// included), taken apart.
GradeBreakdown ExplainCourseGrade(quint32 courseId);
