#pragma once

#include "CourseFacts.h"

#include <QString>

#include <vector>

// Things in a grading policy that make the grade come out other than a
// student would expect. They are warnings only: every policy can be saved.
struct PolicyWarning
{
    enum Kind {
        WeightsNotHundred, // By Type: the graded types' weights add up to `value`
        WeightsAllZero,    // By Type: the graded types' weights add up to 0
        TypeWeightZero,    // By Type: `subject` has weight 0
        TypeWithoutCoursework,
        ItemWeightsZero,          // Per Item: `count` coursework of `subject` have weight 0
        ItemWeightsAllZeroGraded, // Per Item: none of `subject` has a weight, one is graded: 0/0
        DropsNotBelowGraded,      // `subject` drops `count`, `value` of its coursework are graded
        DropsUnderPerItem,        // Per Item never drops
        MinimumNotFalling,        // the minimum of `subject` (`value`) is not below `other`'s
    };

    Kind kind;
    QString subject;
    QString other;
    double value = 0.0;
    double otherValue = 0.0;
    int count = 0;

    QString Text() const;
};

struct PolicyCheckType
{
    QString name;
    double weight = 0.0;
    quint16 drops = 0;
    std::vector<CourseworkFacts> coursework;
};

struct PolicyCheckMinimum
{
    QString gradeName;
    double minimum = 0.0;
};

// The checks on a policy as given (the grading policy dialog's working copy);
// minimums in grade order.
std::vector<PolicyWarning> CheckGradingPolicy(quint32 weighting,
                                              const std::vector<PolicyCheckType>& types,
                                              const std::vector<PolicyCheckMinimum>& minimums);

// The same on the course's stored policy and coursework.
std::vector<PolicyWarning> CheckCoursePolicy(quint32 courseId);
