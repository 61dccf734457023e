#pragma once

#include "CourseworkTable.h"
#include "GradingPolicyTable.h"

#include <QString>

#include <utility>
#include <vector>

// The score of one coursework as the grade calculation sees it.
struct EffectiveScore
{
    enum Source { Recorded = 0, PredictedFromType = 1, Overridden = 2 };

    double score = -1.0;
    double possible = 0.0;
    int source = Recorded;
};

// What one coursework type of a course adds up to; built fresh by each
// computation.
struct TypeSummary
{
    quint32 cwTypeId = 0;
    QString name;
    double weight = 0.0;
    quint16 drops = 0;
    double scoreTotal = -1.0; // -1.0: nothing graded
    double possibleTotal = 0.0;
    int source = EffectiveScore::Recorded;
    quint16 courseworkCount = 0;
    quint16 completedCount = 0;
};

// (cw type id, position) pairs of a course in display order.
using CourseTypeList = std::vector<std::pair<quint32, qint16>>;

// Computes the course's grade fraction and stores it: into the prediction
// store while prediction mode is on, else into the course record.
void RecomputeCourseGrade(quint32 courseId);

// The course's grade fraction (-1.0: no score); in prediction mode the
// predicted one when the store holds it.
double GetCourseGrade(quint32 courseId);

// The grade number a fraction earns under the course's minimum percents; one
// past the last grade when none is reached.
quint16 GetGradeIndex(quint32 courseId, double fraction);

// The course's coursework types in display order.
void LoadCourseTypes(quint32 courseId, CourseTypeList& list);

TypeSummary SummarizeType(quint32 cwTypeId, CGradingPolicyTable::Weighting weighting);

// The coursework the table is positioned on, with prediction overrides and
// scores to give applied.
EffectiveScore GetEffectiveScore(const CCourseworkTable& coursework);

// A new course's policy: the type "Homework", weighting None, and minimum
// percents falling evenly from just under 100 to 60 over the grade scale.
void CreateDefaultGradingPolicy(quint32 courseId);
