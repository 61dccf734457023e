#pragma once

#include "CourseFacts.h"
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

// How one computation reached a course's fraction, for the texts that show
// the calculation: each type's summary, the coursework its drops removed and
// its share of the result.
struct CourseCalculation
{
    struct Type
    {
        TypeSummary summary;
        std::vector<size_t> dropped; // indices into the type's coursework, in drop order
        bool considered = false;     // something of it is graded
        double term = 0.0;           // what the type adds to the weighted sum
    };
    std::vector<Type> types;
    double total = 0.0; // the sum the terms are divided by (0.0: they are not)
    double fraction = -1.0;

    // The type's part of the course fraction; the parts add up to it.
    double Contribution(const Type& type) const
    {
        return total != 0.0 ? type.term / total : type.term;
    }
};

class CPredictionStore;

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

// The calculation itself, on facts read beforehand and the prediction store
// given; RecomputeCourseGrade and the functions above run exactly this.
EffectiveScore GetEffectiveScore(const CourseworkFacts& coursework, const CPredictionStore& store);
TypeSummary SummarizeType(const CwTypeFacts& type, CGradingPolicyTable::Weighting weighting,
                          const CPredictionStore& store, std::vector<size_t>* dropped = nullptr);
double ComputeCourseFraction(const CourseFacts& course, const CPredictionStore& store,
                             CourseCalculation* calculation = nullptr);
// GetGradeIndex on minimum percents already read (LoadMinimumPercents).
quint16 GradeIndexFromMinimums(const std::vector<double>& minimum, double fraction);

// A new course's policy: the type "Homework", weighting None, and minimum
// percents falling evenly from just under 100 to 60 over the grade scale.
void CreateDefaultGradingPolicy(quint32 courseId);
