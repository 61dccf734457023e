#include "GradeCalculation.h"

#include "CeDBProp.h"
#include "CourseTable.h"
#include "CwTypeOrderTable.h"
#include "CwTypeTable.h"
#include "GradeScaleTable.h"
#include "GradingPolicyGradeTable.h"
#include "PredictionStore.h"
#include "Transaction.h"
#include "res/strings/GradingStrings.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// Sort order 1 of CCwTypeOrderTable: CourseID.
constexpr quint16 TypeOrderByCourse = 1;
// Sort order 0 of CGradeScaleTable.
constexpr quint16 ScaleByGrade = 0;

struct DropCandidate
{
    size_t index = 0;
    double score = -1.0;
    double possible = 0.0;
    double weight = 0.0;
};

// Drops the one below-average item whose removal raises the type's average
// most; false when nothing can be dropped.
bool DropOne(TypeSummary& summary, std::vector<DropCandidate>& candidates, quint32 weighting,
             std::vector<size_t>* dropped)
{
    const double average = summary.scoreTotal / summary.possibleTotal;
    std::vector<size_t> eligible;
    for (size_t i = 0; i < candidates.size(); ++i) {
        const DropCandidate& c = candidates[i];
        if (c.score != -1.0 && c.possible > 0.0 && c.score / c.possible < average)
            eligible.push_back(i);
    }
    if (eligible.empty())
        return false;
    // Per Item never drops: a student who relies on drops sees the same
    // grade whichever item would have gone.
    if (weighting == CGradingPolicyTable::WeightPerItem)
        return false;

    double best = average;
    std::optional<size_t> chosen;
    for (size_t i : eligible) {
        const DropCandidate& c = candidates[i];
        const double value = (summary.scoreTotal - c.score) / (summary.possibleTotal - c.possible);
        if (value > best) { // strictly: on a tie the earlier candidate stays
            best = value;
            chosen = i;
        }
    }
    if (!chosen)
        return false;
    summary.scoreTotal -= candidates[*chosen].score;
    summary.possibleTotal -= candidates[*chosen].possible;
    if (dropped)
        dropped->push_back(candidates[*chosen].index);
    candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(*chosen));
    return true;
}

} // namespace

void RecomputeCourseGrade(quint32 courseId)
{
    CPredictionStore& store = CPredictionStore::Instance();
    const double fraction = ComputeCourseFraction(LoadCourseFacts(courseId), store);
    if (store.IsActive()) {
        store.SetPredictedGrade(courseId, fraction);
        return;
    }
    CCourseTable course;
    if (!course.Open())
        return;
    // Only the grade is read and written back; the rest of the record stays.
    course.SetFilter(1, CCourseTable::PropCurrentGrade);
    if (!course.MoveToRecord(courseId))
        return;
    course.SetCurrentGrade(fraction);
    course.UpdateRecord();
}

double GetCourseGrade(quint32 courseId)
{
    const CPredictionStore& store = CPredictionStore::Instance();
    if (store.IsActive()) {
        if (const auto predicted = store.PredictedGrade(courseId))
            return *predicted;
    }
    CCourseTable course;
    if (!course.Open())
        return -1.0;
    course.SetFilter(1, CCourseTable::PropCurrentGrade);
    return course.MoveToRecord(courseId) ? course.GetCurrentGrade() : -1.0;
}

quint16 GetGradeIndex(quint32 courseId, double fraction)
{
    return GradeIndexFromMinimums(LoadMinimumPercents(courseId), fraction);
}

quint16 GradeIndexFromMinimums(const std::vector<double>& minimum, double fraction)
{
    const double percent = fraction * 100.0;
    for (size_t i = 0; i < minimum.size(); ++i) {
        // "Not less than", so a non-finite (NaN) fraction earns the first grade.
        if (!(percent < minimum[i]))
            return static_cast<quint16>(i);
    }
    // One past the last grade; grade 65535 filled would leave no room for it.
    return static_cast<quint16>(std::min<size_t>(minimum.size(), 0xFFFF));
}

void LoadCourseTypes(quint32 courseId, CourseTypeList& list)
{
    list.clear();
    CCwTypeOrderTable order;
    if (!order.Open(TypeOrderByCourse))
        return;
    const CCeDBProp key(courseId);
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    order.SetFilter(2, CCwTypeOrderTable::PropCwTypeID, CCwTypeOrderTable::PropCwTypePosition);
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
        list.emplace_back(order.GetCwTypeID(), order.GetCwTypePosition());
    // Equal positions keep their read order.
    std::stable_sort(list.begin(), list.end(),
                     [](const auto& a, const auto& b) { return a.second < b.second; });
}

TypeSummary SummarizeType(quint32 cwTypeId, CGradingPolicyTable::Weighting weighting)
{
    return SummarizeType(LoadCwTypeFacts(cwTypeId), weighting, CPredictionStore::Instance());
}

TypeSummary SummarizeType(const CwTypeFacts& type, CGradingPolicyTable::Weighting weighting,
                          const CPredictionStore& store, std::vector<size_t>* dropped)
{
    TypeSummary summary;
    summary.cwTypeId = type.id;
    if (!type.found)
        return summary;
    summary.name = type.name;
    summary.drops = type.drops;
    if (weighting == CGradingPolicyTable::WeightByType)
        summary.weight = type.weight;

    double itemWeightTotal = 0.0; // W of Per Item: every positive weight, graded or not
    if (weighting == CGradingPolicyTable::WeightPerItem) {
        for (const CourseworkFacts& coursework : type.coursework) {
            if (coursework.weight > 0.0)
                itemWeightTotal += coursework.weight;
        }
        summary.possibleTotal = 1.0;
    }

    std::vector<DropCandidate> candidates;
    for (const CourseworkFacts& coursework : type.coursework) {
        ++summary.courseworkCount;
        if (coursework.completed >= 100)
            ++summary.completedCount;
        const EffectiveScore e = GetEffectiveScore(coursework, store);
        const double weight = coursework.weight;
        if (summary.drops != 0)
            candidates.push_back({candidates.size(), e.score, e.possible, weight});
        if (!(e.score >= 0.0))
            continue; // not graded: counted only
        if (summary.scoreTotal == -1.0)
            summary.scoreTotal = 0.0;
        if (weighting == CGradingPolicyTable::WeightNone ||
            weighting == CGradingPolicyTable::WeightByType) {
            summary.scoreTotal += e.score;
            if (e.possible != -1.0)
                summary.possibleTotal += e.possible;
        } else if (weighting == CGradingPolicyTable::WeightPerItem) {
            if (weight > 0.0)
                summary.weight += weight;
            if (e.possible > 0.0)
                summary.scoreTotal += (e.score / e.possible) * (weight / itemWeightTotal);
        }
    }

    if (summary.drops != 0 && summary.scoreTotal != -1.0) {
        for (quint16 i = 0; i < summary.drops; ++i) {
            if (!DropOne(summary, candidates, weighting, dropped))
                break;
        }
    }
    return summary;
}

double ComputeCourseFraction(const CourseFacts& course, const CPredictionStore& store,
                             CourseCalculation* calculation)
{
    const quint32 weighting = course.weighting;
    const auto w = static_cast<CGradingPolicyTable::Weighting>(weighting);

    double sum = 0.0;
    double total = 0.0;
    int considered = 0;
    for (const CwTypeFacts& type : course.types) {
        CourseCalculation::Type step;
        const TypeSummary summary =
            SummarizeType(type, w, store, calculation ? &step.dropped : nullptr);
        if (summary.scoreTotal != -1.0) {
            ++considered;
            step.considered = true;
            switch (weighting) {
            case CGradingPolicyTable::WeightNone:
                step.term = summary.scoreTotal;
                total += summary.possibleTotal;
                break;
            case CGradingPolicyTable::WeightByType:
                step.term = summary.scoreTotal / summary.possibleTotal * summary.weight;
                total += summary.weight;
                break;
            case CGradingPolicyTable::WeightPerItem:
                step.term = summary.weight * summary.scoreTotal;
                total += summary.weight;
                break;
            default:
                break;
            }
            sum += step.term;
        }
        if (calculation) {
            step.summary = summary;
            calculation->types.push_back(std::move(step));
        }
    }

    double fraction = 0.0;
    switch (weighting) {
    case CGradingPolicyTable::WeightNone:
        fraction = total == 0.0 ? -1.0 : sum / total;
        break;
    case CGradingPolicyTable::WeightByType:
    case CGradingPolicyTable::WeightPerItem:
        if (considered == 0)
            fraction = -1.0;
        else
            fraction = total != 0.0 ? sum / total : sum;
        break;
    default:
        break;
    }
    if (calculation) {
        calculation->total = total;
        calculation->fraction = fraction;
    }
    return fraction;
}

EffectiveScore GetEffectiveScore(const CCourseworkTable& coursework)
{
    CourseworkFacts facts;
    facts.id = coursework.GetRecordID();
    facts.cwTypeId = coursework.GetCwTypeID();
    facts.score = coursework.GetScore();
    facts.possible = coursework.GetPossible();
    return GetEffectiveScore(facts, CPredictionStore::Instance());
}

EffectiveScore GetEffectiveScore(const CourseworkFacts& coursework, const CPredictionStore& store)
{
    const bool predicting = store.IsActive();
    if (predicting) {
        if (const auto overridden = store.Override(coursework.id))
            return {overridden->score, overridden->possible, EffectiveScore::Overridden};
    }
    EffectiveScore e;
    e.possible = coursework.possible;
    e.score = coursework.score;
    e.source = EffectiveScore::Recorded;
    if (predicting && e.score == -1.0 && e.possible > 0.0) {
        if (const auto toGive = store.ScoreToGive(coursework.cwTypeId)) {
            e.score = *toGive * e.possible;
            e.source = EffectiveScore::PredictedFromType;
        }
    }
    return e;
}

void CreateDefaultGradingPolicy(quint32 courseId)
{
    CTransaction transaction;

    CCwTypeTable type;
    if (!type.Open() || !type.NewRecord(0))
        return;
    type.SetCourseID(courseId);
    type.SetCwTypeName(GradingStrings::DefaultCwTypeName());
    type.SetWeight(0.0);
    type.SetDrops(0);
    if (!type.UpdateRecord())
        return;
    const quint32 typeId = type.GetRecordID();
    type.Close();

    CCwTypeOrderTable order;
    if (!order.Open() || !order.NewRecord(0))
        return;
    order.SetCourseID(courseId);
    order.SetCwTypeID(typeId);
    order.SetCwTypePosition(0);
    if (!order.UpdateRecord())
        return;
    order.Close();

    CGradingPolicyTable policy;
    if (!policy.Open() || !policy.NewRecord(0))
        return;
    policy.SetCourseID(courseId);
    policy.SetWeightType(CGradingPolicyTable::WeightNone);
    if (!policy.UpdateRecord())
        return;
    policy.Close();

    CGradeScaleTable scale;
    if (!scale.Open(ScaleByGrade))
        return;
    const quint16 gradeCount = scale.GetRecordCount();
    CGradingPolicyGradeTable minimum;
    if (!minimum.Open())
        return;
    quint16 grade = 0;
    for (int ok = scale.MoveFirst(1); ok && grade < gradeCount; ok = scale.MoveNext(1), ++grade) {
        minimum.NewRecord(0);
        minimum.SetCourseID(courseId);
        minimum.SetGrade(grade);
        minimum.SetMinimumPercent(std::trunc(100.0 - (grade + 1) * (40.0 / gradeCount)));
        if (!minimum.UpdateRecord())
            return;
    }
    transaction.Commit();
}
