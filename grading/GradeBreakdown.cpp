#include "GradeBreakdown.h"

#include "CourseFacts.h"
#include "GradeCalculation.h"
#include "PredictionStore.h"

#include <algorithm>

GradeBreakdown ExplainCourseGrade(quint32 courseId)
{
    const CourseFacts facts = LoadCourseFacts(courseId, true);
    const CPredictionStore& store = CPredictionStore::Instance();
    CourseCalculation calculation;
    GradeBreakdown breakdown;
    breakdown.weighting = facts.weighting;
    breakdown.fraction = ComputeCourseFraction(facts, store, &calculation);

    for (size_t t = 0; t < facts.types.size(); ++t) {
        const CwTypeFacts& typeFacts = facts.types[t];
        const CourseCalculation::Type& step = calculation.types[t];
        GradeBreakdown::Type type;
        type.name = typeFacts.name;
        type.considered = step.considered;
        type.contribution = step.considered ? calculation.Contribution(step) : 0.0;
        for (size_t i = 0; i < typeFacts.coursework.size(); ++i) {
            const CourseworkFacts& coursework = typeFacts.coursework[i];
            const EffectiveScore e = GetEffectiveScore(coursework, store);
            GradeBreakdown::Item item;
            item.name = coursework.name;
            item.score = e.score;
            item.possible = e.possible;
            item.weight = coursework.weight;
            item.predicted = e.source != EffectiveScore::Recorded;
            if (!(e.score >= 0.0))
                item.state = GradeBreakdown::Item::NotGraded;
            else if (std::find(step.dropped.cbegin(), step.dropped.cend(), i) !=
                     step.dropped.cend())
                item.state = GradeBreakdown::Item::Dropped;
            else
                item.state = GradeBreakdown::Item::Counted;
            type.items.push_back(item);
        }
        breakdown.types.push_back(std::move(type));
    }
    return breakdown;
}
