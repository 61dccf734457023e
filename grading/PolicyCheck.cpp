#include "PolicyCheck.h"

#include "GradeScaleTable.h"
#include "GradingPolicyTable.h"
#include "res/strings/PlannerStrings.h"
#include "store/GradeText.h"

#include <algorithm>
#include <cmath>

namespace {

bool IsGraded(const CourseworkFacts& coursework)
{
    return coursework.score >= 0.0;
}

int GradedCount(const PolicyCheckType& type)
{
    return static_cast<int>(
        std::count_if(type.coursework.cbegin(), type.coursework.cend(), IsGraded));
}

void CheckByTypeWeights(const std::vector<PolicyCheckType>& types,
                        std::vector<PolicyWarning>& warnings)
{
    double gradedWeights = 0.0;
    bool anyGraded = false;
    for (const PolicyCheckType& type : types) {
        if (type.weight == 0.0)
            warnings.push_back({PolicyWarning::TypeWeightZero, type.name, {}});
        if (GradedCount(type) > 0) {
            anyGraded = true;
            gradedWeights += type.weight;
        }
    }
    if (!anyGraded)
        return;
    if (gradedWeights == 0.0)
        warnings.push_back({PolicyWarning::WeightsAllZero, {}, {}});
    // Weights typed as percents: a sum off by binary noise still is 100.
    else if (std::fabs(gradedWeights - 100.0) > 1e-9)
        warnings.push_back({PolicyWarning::WeightsNotHundred, {}, {}, gradedWeights});
}

void CheckPerItemWeights(const PolicyCheckType& type, std::vector<PolicyWarning>& warnings)
{
    int zero = 0;
    bool gradedWithPossible = false;
    for (const CourseworkFacts& coursework : type.coursework) {
        if (!(coursework.weight > 0.0))
            ++zero;
        if (IsGraded(coursework) && coursework.possible > 0.0)
            gradedWithPossible = true;
    }
    if (zero == 0)
        return;
    if (zero == static_cast<int>(type.coursework.size()) && gradedWithPossible)
        warnings.push_back({PolicyWarning::ItemWeightsAllZeroGraded, type.name, {}});
    else
        warnings.push_back({PolicyWarning::ItemWeightsZero, type.name, {}, 0.0, 0.0, zero});
}

} // namespace

QString PolicyWarning::Text() const
{
    switch (kind) {
    case WeightsNotHundred:
        return PlannerStrings::WeightsNotHundred(GradeText::NumberToText(value));
    case WeightsAllZero:
        return PlannerStrings::WeightsAllZero();
    case TypeWeightZero:
        return PlannerStrings::TypeWeightZero(subject);
    case TypeWithoutCoursework:
        return PlannerStrings::TypeWithoutCoursework(subject);
    case ItemWeightsZero:
        return PlannerStrings::ItemWeightsZero(subject, count);
    case ItemWeightsAllZeroGraded:
        return PlannerStrings::ItemWeightsAllZeroGraded(subject);
    case DropsNotBelowGraded:
        return PlannerStrings::DropsNotBelowGraded(subject, count, static_cast<int>(value));
    case DropsUnderPerItem:
        return PlannerStrings::DropsUnderPerItem(subject);
    case MinimumNotFalling:
        return PlannerStrings::MinimumNotFalling(subject, GradeText::NumberToText(value), other,
                                                 GradeText::NumberToText(otherValue));
    }
    return {};
}

std::vector<PolicyWarning> CheckGradingPolicy(quint32 weighting,
                                              const std::vector<PolicyCheckType>& types,
                                              const std::vector<PolicyCheckMinimum>& minimums)
{
    std::vector<PolicyWarning> warnings;
    if (weighting == CGradingPolicyTable::WeightByType)
        CheckByTypeWeights(types, warnings);
    for (const PolicyCheckType& type : types) {
        if (type.coursework.empty()) {
            warnings.push_back({PolicyWarning::TypeWithoutCoursework, type.name, {}});
            continue;
        }
        if (weighting == CGradingPolicyTable::WeightPerItem)
            CheckPerItemWeights(type, warnings);
        if (type.drops == 0)
            continue;
        if (weighting == CGradingPolicyTable::WeightPerItem) {
            warnings.push_back({PolicyWarning::DropsUnderPerItem, type.name, {}});
            continue;
        }
        const int graded = GradedCount(type);
        if (type.drops >= graded)
            warnings.push_back({PolicyWarning::DropsNotBelowGraded,
                                type.name,
                                {},
                                double(graded),
                                0.0,
                                type.drops});
    }
    for (size_t i = 1; i < minimums.size(); ++i) {
        // The scan takes the first grade reached, so a grade whose minimum is
        // not below the one before it is never given.
        if (minimums[i].minimum >= minimums[i - 1].minimum)
            warnings.push_back({PolicyWarning::MinimumNotFalling, minimums[i].gradeName,
                                minimums[i - 1].gradeName, minimums[i].minimum,
                                minimums[i - 1].minimum});
    }
    return warnings;
}

std::vector<PolicyWarning> CheckCoursePolicy(quint32 courseId)
{
    const CourseFacts facts = LoadCourseFacts(courseId);
    std::vector<PolicyCheckType> types;
    for (const CwTypeFacts& type : facts.types) {
        if (type.found)
            types.push_back({type.name, type.weight, type.drops, type.coursework});
    }
    std::vector<PolicyCheckMinimum> minimums;
    const std::vector<double> table = LoadMinimumPercents(courseId);
    for (size_t grade = 0; grade < table.size(); ++grade)
        minimums.push_back(
            {CGradeScaleTable::GetGradeNameFromGrade(static_cast<quint16>(grade)), table[grade]});
    return CheckGradingPolicy(facts.weighting, types, minimums);
}
