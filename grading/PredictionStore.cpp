#include "PredictionStore.h"

CPredictionStore& CPredictionStore::Instance()
{
    static CPredictionStore store;
    return store;
}

void CPredictionStore::SetActive(bool active)
{
    m_active = active;
    if (!active)
        Clear();
}

std::optional<double> CPredictionStore::PredictedGrade(quint32 courseId) const
{
    const auto it = m_predictedGrades.constFind(courseId);
    return it == m_predictedGrades.constEnd() ? std::nullopt : std::optional<double>(*it);
}

void CPredictionStore::SetPredictedGrade(quint32 courseId, double fraction)
{
    m_predictedGrades.insert(courseId, fraction);
}

std::optional<EffectiveScore> CPredictionStore::Override(quint32 courseworkId) const
{
    const auto it = m_overrides.constFind(courseworkId);
    return it == m_overrides.constEnd() ? std::nullopt : std::optional<EffectiveScore>(*it);
}

void CPredictionStore::SetOverride(quint32 courseworkId, const EffectiveScore& score)
{
    m_overrides.insert(courseworkId, score);
}

std::optional<double> CPredictionStore::ScoreToGive(quint32 cwTypeId) const
{
    const auto it = m_scoresToGive.constFind(cwTypeId);
    return it == m_scoresToGive.constEnd() ? std::nullopt : std::optional<double>(*it);
}

void CPredictionStore::SetScoreToGive(quint32 cwTypeId, double fraction)
{
    m_scoresToGive.insert(cwTypeId, fraction);
}

void CPredictionStore::ClearScoresToGive()
{
    m_scoresToGive.clear();
}

void CPredictionStore::Clear()
{
    m_predictedGrades.clear();
    m_overrides.clear();
    m_scoresToGive.clear();
}
