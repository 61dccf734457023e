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

// Sort order 7 of CCourseworkTable: its index on the coursework type id.
constexpr quint16 CourseworkByCwType = 7;
// Sort order 1 of CCwTypeOrderTable: CourseID.
constexpr quint16 TypeOrderByCourse = 1;
// Sort order 0 of CGradingPolicyGradeTable and CGradeScaleTable.
constexpr quint16 MinimumByCourse = 0;
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
bool DropOne(TypeSummary& summary, std::vector<DropCandidate>& candidates, quint32 weighting)
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
    candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(*chosen));
    return true;
}

double ComputeCourseFraction(quint32 courseId)
{
    const quint32 weighting = CGradingPolicyTable::GetWeightingFromCourseID(courseId);
    const auto w = static_cast<CGradingPolicyTable::Weighting>(weighting);
    CourseTypeList types;
    LoadCourseTypes(courseId, types);

    double sum = 0.0;
    double total = 0.0;
    int considered = 0;
    for (const auto& [typeId, position] : types) {
        Q_UNUSED(position);
        const TypeSummary summary = SummarizeType(typeId, w);
        if (summary.scoreTotal == -1.0)
            continue;
        ++considered;
        switch (weighting) {
        case CGradingPolicyTable::WeightNone:
            sum += summary.scoreTotal;
            total += summary.possibleTotal;
            break;
        case CGradingPolicyTable::WeightByType:
            sum += summary.scoreTotal / summary.possibleTotal * summary.weight;
            total += summary.weight;
            break;
        case CGradingPolicyTable::WeightPerItem:
            sum += summary.weight * summary.scoreTotal;
            total += summary.weight;
            break;
        default:
            break;
        }
    }

    switch (weighting) {
    case CGradingPolicyTable::WeightNone:
        return total == 0.0 ? -1.0 : sum / total;
    case CGradingPolicyTable::WeightByType:
    case CGradingPolicyTable::WeightPerItem:
        if (considered == 0)
            return -1.0;
        return total != 0.0 ? sum / total : sum;
    default:
        return 0.0;
    }
}

} // namespace

void RecomputeCourseGrade(quint32 courseId)
{
    const double fraction = ComputeCourseFraction(courseId);
    CPredictionStore& store = CPredictionStore::Instance();
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
    // Indexed by grade number; a gap in the table counts as minimum 0.0.
    std::vector<double> minimum;
    CGradingPolicyGradeTable rows;
    if (rows.Open(MinimumByCourse)) {
        const CCeDBProp key(courseId);
        rows.SetSeekValue(&key, CDataTable::SeekValueEqual);
        rows.SetFilter(2, CGradingPolicyGradeTable::PropGrade,
                       CGradingPolicyGradeTable::PropMinimumPercent);
        for (int ok = rows.MoveFirst(1); ok; ok = rows.MoveNext(1)) {
            const quint16 grade = rows.GetGrade();
            if (grade >= minimum.size())
                minimum.resize(size_t(grade) + 1, 0.0);
            minimum[grade] = rows.GetMinimumPercent();
        }
    }
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
    TypeSummary summary;
    summary.cwTypeId = cwTypeId;

    CCwTypeTable type;
    if (!type.Open() || !type.MoveToRecord(cwTypeId))
        return summary;
    summary.name = type.GetCwTypeName();
    summary.drops = type.GetDrops();
    if (weighting == CGradingPolicyTable::WeightByType)
        summary.weight = type.GetWeight();
    type.Close();

    CCourseworkTable coursework;
    if (!coursework.Open(CourseworkByCwType))
        return summary;
    const CCeDBProp key(cwTypeId);
    coursework.SetSeekValue(&key, CDataTable::SeekValueEqual);
    coursework.SetFilter(5, CCourseworkTable::PropCwTypeID, CCourseworkTable::PropScore,
                         CCourseworkTable::PropPossible, CCourseworkTable::PropWeight,
                         CCourseworkTable::PropCompleted);

    double itemWeightTotal = 0.0; // W of Per Item: every positive weight, graded or not
    if (weighting == CGradingPolicyTable::WeightPerItem) {
        for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
            if (coursework.GetWeight() > 0.0)
                itemWeightTotal += coursework.GetWeight();
        }
        summary.possibleTotal = 1.0;
    }

    std::vector<DropCandidate> candidates;
    for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
        ++summary.courseworkCount;
        if (coursework.GetCompleted() >= 100)
            ++summary.completedCount;
        const EffectiveScore e = GetEffectiveScore(coursework);
        const double weight = coursework.GetWeight();
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
            if (!DropOne(summary, candidates, weighting))
                break;
        }
    }
    return summary;
}

EffectiveScore GetEffectiveScore(const CCourseworkTable& coursework)
{
    const CPredictionStore& store = CPredictionStore::Instance();
    const bool predicting = store.IsActive();
    if (predicting) {
        if (const auto overridden = store.Override(coursework.GetRecordID()))
            return {overridden->score, overridden->possible, EffectiveScore::Overridden};
    }
    EffectiveScore e;
    e.possible = coursework.GetPossible();
    e.score = coursework.GetScore();
    e.source = EffectiveScore::Recorded;
    if (predicting && e.score == -1.0 && e.possible > 0.0) {
        if (const auto toGive = store.ScoreToGive(coursework.GetCwTypeID())) {
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
