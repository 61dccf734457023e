#pragma once

#include "CourseFacts.h"
#include "GradeCalculation.h"
#include "PredictionStore.h"

#include <QString>

#include <vector>

// What one course's grade would be if every coursework not yet graded (and
// with points possible) got the same percent, and the lowest such percent for
// each grade. Every answer comes from the course grade calculation itself,
// run on the course's records with that percent as the score to give of each
// type; nothing is written anywhere.
class CGradePlanner
{
public:
    // Percents are tried in hundredths: 0, 0.01, ..., 100.
    static constexpr int Steps = 10000;

    struct Need
    {
        enum Status { Secured, Reachable, NotReachable };
        quint16 grade = 0;
        QString gradeName;
        double minimum = 0.0; // percent
        Status status = NotReachable;
        double percent = 0.0; // Reachable: the lowest uniform percent that gets the grade
    };

    explicit CGradePlanner(quint32 courseId);

    quint32 CourseID() const { return m_facts.courseId; }
    bool ReadOk() const { return m_facts.readOk; }
    const CourseFacts& Facts() const { return m_facts; }

    // The course fraction with every ungraded coursework at `percent`
    // (0..100), as the calculation gives it (-1.0: no score).
    double FractionAt(double percent);
    // The fraction at step k (percent k / 100).
    double FractionAtStep(int step);
    double BestCase() { return FractionAtStep(Steps); }
    double WorstCase() { return FractionAtStep(0); }

    // The grade a fraction earns, one past the last when none; a fraction
    // that is not a number, or -1.0, earns none.
    quint16 GradeOf(double fraction) const;
    // "87.35% B+" (the percent rounded up, as the progress report shows it),
    // or "No Score".
    QString GradeTextOf(double fraction) const;
    quint16 GradeCount() const { return static_cast<quint16>(m_minimums.size()); }
    const std::vector<double>& Minimums() const { return m_minimums; }

    // The answer for each grade of the course's table, best grade first.
    std::vector<Need> Needs();
    Need NeedFor(quint16 grade);

    // The coursework the answers give the uniform percent: not graded, with
    // points possible, in type order.
    std::vector<const CourseworkFacts*> AssumedCoursework() const;

    // Drops can make the grade fall where the percent rises (a different item
    // becomes the one to drop); then every percent is tried instead of
    // halving, so that an answer holds for every higher percent too.
    bool MayFallAsPercentRises() const;

private:
    // The lowest step from which on every step reaches `grade` or better;
    // Steps + 1 when even the last does not.
    int LowestSafeStep(quint16 grade);
    void FillAllSteps();

    CourseFacts m_facts;
    std::vector<double> m_minimums;
    CPredictionStore m_store;
    std::vector<int> m_bestGradeFrom; // per step: the worst grade of this step and every higher one
};

// Percent steps as the text of a percent ("82.35").
double PercentOfStep(int step);
