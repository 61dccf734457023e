#include "GradePlanner.h"

#include "GradeScaleTable.h"
#include "res/strings/PlannerStrings.h"
#include "store/GradeText.h"

#include <algorithm>
#include <cmath>

double PercentOfStep(int step)
{
    // As the student would type it: the percent itself, made a fraction the
    // way the Grade Prediction dialog does (percent x 0.01).
    return step / 100.0;
}

CGradePlanner::CGradePlanner(quint32 courseId)
    : m_facts(LoadCourseFacts(courseId, true)), m_minimums(LoadMinimumPercents(courseId)),
      // Scores typed in prediction mode stand; only the scores to give are ours.
      m_store(CPredictionStore::Instance())
{
    m_store.SetActive(true);
    m_store.ClearScoresToGive();
    FractionAtStep(Steps);
}

double CGradePlanner::FractionAt(double percent)
{
    const double toGive = percent * 0.01;
    for (const CwTypeFacts& type : m_facts.types)
        m_store.SetScoreToGive(type.id, toGive);
    return ComputeCourseFraction(m_facts, m_store);
}

double CGradePlanner::FractionAtStep(int step)
{
    return FractionAt(PercentOfStep(step));
}

quint16 CGradePlanner::GradeOf(double fraction) const
{
    // A grade that is not a number is shown as no score, so it earns nothing.
    if (fraction == -1.0 || !std::isfinite(fraction))
        return GradeCount();
    return GradeIndexFromMinimums(m_minimums, fraction);
}

QString CGradePlanner::GradeTextOf(double fraction) const
{
    if (fraction == -1.0 || !std::isfinite(fraction))
        return PlannerStrings::NoScore();
    return PlannerStrings::PercentWithGrade(
        GradeText::NumberToText(GradeText::PercentOf(fraction)),
        CGradeScaleTable::GetGradeNameFromGrade(GradeOf(fraction)));
}

std::vector<const CourseworkFacts*> CGradePlanner::AssumedCoursework() const
{
    std::vector<const CourseworkFacts*> assumed;
    for (const CwTypeFacts& type : m_facts.types) {
        for (const CourseworkFacts& coursework : type.coursework) {
            if (GetEffectiveScore(coursework, m_store).source == EffectiveScore::PredictedFromType)
                assumed.push_back(&coursework);
        }
    }
    return assumed;
}

bool CGradePlanner::MayFallAsPercentRises() const
{
    // Per Item never drops; without drops every sum only grows with the percent.
    if (m_facts.weighting != CGradingPolicyTable::WeightNone &&
        m_facts.weighting != CGradingPolicyTable::WeightByType)
        return false;
    for (const CwTypeFacts& type : m_facts.types) {
        if (type.drops == 0)
            continue;
        for (const CourseworkFacts& coursework : type.coursework) {
            if (GetEffectiveScore(coursework, m_store).source == EffectiveScore::PredictedFromType)
                return true;
        }
    }
    return false;
}

void CGradePlanner::FillAllSteps()
{
    if (!m_bestGradeFrom.empty())
        return;
    m_bestGradeFrom.assign(Steps + 1, 0);
    int worst = 0;
    for (int step = Steps; step >= 0; --step) {
        worst = std::max<int>(worst, GradeOf(FractionAtStep(step)));
        m_bestGradeFrom[size_t(step)] = worst;
    }
}

int CGradePlanner::LowestSafeStep(quint16 grade)
{
    if (MayFallAsPercentRises()) {
        FillAllSteps();
        // Non-increasing in the step: the first step that holds is the answer.
        const auto first = std::find_if(m_bestGradeFrom.cbegin(), m_bestGradeFrom.cend(),
                                        [grade](int worst) { return worst <= grade; });
        return static_cast<int>(first - m_bestGradeFrom.cbegin());
    }
    auto reaches = [this, grade](int step) { return GradeOf(FractionAtStep(step)) <= grade; };
    if (!reaches(Steps))
        return Steps + 1;
    if (reaches(0))
        return 0;
    int low = 0;      // does not reach
    int high = Steps; // reaches
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (reaches(middle) ? high : low) = middle;
    }
    return high;
}

CGradePlanner::Need CGradePlanner::NeedFor(quint16 grade)
{
    Need need;
    need.grade = grade;
    need.gradeName = CGradeScaleTable::GetGradeNameFromGrade(grade);
    need.minimum = grade < m_minimums.size() ? m_minimums[grade] : 0.0;
    const int step = LowestSafeStep(grade);
    if (step == 0) {
        need.status = Need::Secured;
    } else if (step > Steps) {
        need.status = Need::NotReachable;
    } else {
        need.status = Need::Reachable;
        need.percent = PercentOfStep(step);
    }
    return need;
}

std::vector<CGradePlanner::Need> CGradePlanner::Needs()
{
    std::vector<Need> needs;
    for (quint16 grade = 0; grade < GradeCount(); ++grade)
        needs.push_back(NeedFor(grade));
    return needs;
}
