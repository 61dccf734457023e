#pragma once

#include "GradeCalculation.h"

#include <QHash>

#include <optional>

// Grade prediction mode's scratch pad: scores the student tries out and the
// grades they give. In memory only, never written to the database; switching
// the mode off empties it.
class CPredictionStore
{
public:
    // The one store of the application.
    static CPredictionStore& Instance();

    bool IsActive() const { return m_active; }
    // Switches the mode; switching it off empties every map.
    void SetActive(bool active);
    void Toggle() { SetActive(!m_active); }

    std::optional<double> PredictedGrade(quint32 courseId) const;
    void SetPredictedGrade(quint32 courseId, double fraction);

    std::optional<EffectiveScore> Override(quint32 courseworkId) const;
    void SetOverride(quint32 courseworkId, const EffectiveScore& score);

    // The fraction (0.85 = 85 %) every ungraded coursework of the type gets.
    std::optional<double> ScoreToGive(quint32 cwTypeId) const;
    void SetScoreToGive(quint32 cwTypeId, double fraction);
    void ClearScoresToGive();

    void Clear();

private:
    bool m_active = false;
    QHash<quint32, double> m_predictedGrades;
    QHash<quint32, EffectiveScore> m_overrides;
    QHash<quint32, double> m_scoresToGive;
};
