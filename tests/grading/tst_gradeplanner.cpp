// The grade planner: every answer is checked against the grade calculation
// itself (RecomputeCourseGrade with the percent as score to give), at the
// answered percent and one hundredth below; randomized courses check that the
// answer is the lowest percent from which on the grade holds, and that the
// grade never falls as the percent rises where the planner says so. Also the
// target GPA, the policy checks and the calculation breakdown.
#include "GradingFixtures.h"
#include "grading/GpaPlanner.h"
#include "grading/GradeBreakdown.h"
#include "grading/GradePlanner.h"
#include "grading/Grading.h"
#include "grading/PolicyCheck.h"
#include "support/DatabaseTest.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace Fixture;

namespace {

// What Brindle shows once the student has that percent on everything left:
// the prediction store's score to give for each type, then the recompute.
// Prediction mode stays on.
void GiveToAll(const std::vector<quint32>& courses, double percent)
{
    CPredictionStore& store = CPredictionStore::Instance();
    store.SetActive(false);
    store.SetActive(true);
    for (quint32 courseId : courses) {
        CourseTypeList types;
        LoadCourseTypes(courseId, types);
        for (const auto& type : types)
            store.SetScoreToGive(type.first, percent * 0.01);
        RecomputeCourseGrade(courseId);
    }
}

double RealFraction(quint32 courseId, double percent)
{
    GiveToAll({courseId}, percent);
    const double fraction = GetCourseGrade(courseId);
    CPredictionStore::Instance().SetActive(false);
    return fraction;
}

bool RealReaches(quint32 courseId, double percent, quint16 grade)
{
    const double fraction = RealFraction(courseId, percent);
    return fraction != -1.0 && std::isfinite(fraction) &&
           GetGradeIndex(courseId, fraction) <= grade;
}

// Checks one answer against the real calculation: secured is reached at 0 %,
// not reachable missed at 100 %, a percent reached there and missed one
// hundredth below, as the student would type it.
void CheckNeed(quint32 courseId, const CGradePlanner::Need& need)
{
    const bool secured = need.status == CGradePlanner::Need::Secured;
    if (need.status != CGradePlanner::Need::Reachable) {
        QCOMPARE(RealReaches(courseId, secured ? 0.0 : 100.0, need.grade), secured);
        return;
    }
    const int step = int(std::lround(need.percent * 100));
    QCOMPARE(PercentOfStep(step), need.percent);
    QVERIFY(RealReaches(courseId, need.percent, need.grade));
    QVERIFY(!RealReaches(courseId, PercentOfStep(step - 1), need.grade));
}

// Checks every answer of the course's planner; where drops can make the grade
// fall, also that each answer holds for every higher percent (every stride-th);
// where the planner says it cannot, that it does not.
void CheckPlanner(quint32 courseId, int stride)
{
    CGradePlanner planner(courseId);
    QCOMPARE(planner.BestCase(), RealFraction(courseId, 100.0));
    QCOMPARE(planner.WorstCase(), RealFraction(courseId, 0.0));
    const bool mayFall = planner.MayFallAsPercentRises();
    // Never falls; a 0/0 (NaN) compares with nothing.
    for (int step = stride; !mayFall && step <= CGradePlanner::Steps; step += stride)
        QVERIFY(!(planner.FractionAtStep(step) < planner.FractionAtStep(step - stride)));
    for (const CGradePlanner::Need& need : planner.Needs()) {
        CheckNeed(courseId, need);
        if (QTest::currentTestFailed() || !mayFall || need.status != CGradePlanner::Need::Reachable)
            continue;
        for (int step = int(std::lround(need.percent * 100)); step <= CGradePlanner::Steps;
             step += stride)
            QVERIFY(planner.GradeOf(planner.FractionAtStep(step)) <= need.grade);
    }
}

} // namespace

class TestGradePlanner : public DatabaseTest
{
    Q_OBJECT

private slots:
    void needs_data()
    {
        QTest::addColumn<quint32>("weighting");
        QTest::addColumn<Course>("course");
        QTest::addColumn<Minimums>("minimums");
        QTest::addColumn<QString>("statuses"); // per grade: Secured, Reachable, Not reachable

        QTest::newRow("none: half graded at 80")
            << 0u << Course{{0, 0, {{40, 50}, {-1, 50}}}} << abcd << u"RRRR"_s;
        QTest::newRow("none: nothing left to grade")
            << 0u << Course{{0, 0, {{85, 100}}}} << abcd << u"NSSS"_s;
        QTest::newRow("none: far behind")
            << 0u << Course{{0, 0, {{10, 90}, {-1, 10}}}} << abcd << u"NNNN"_s;
        QTest::newRow("none: extra credit already in")
            << 0u << Course{{0, 0, {{60, 50}, {-1, 50}}}} << abcd << u"RRRS"_s;
        QTest::newRow("none: drops")
            << 0u << Course{{0, 1, {{8, 10}, {2, 10}, {-1, 10}, {-1, 10}}}} << abcd << u"RRRR"_s;
        QTest::newRow("by type: two types")
            << 1u << Course{{40, 0, {{18, 20}, {-1, 20}}}, {60, 0, {{-1, 100}}}, {0, 0, {{-1, 10}}}}
            << abcd << u"RRRR"_s;
        QTest::newRow("per item") << 2u << Course{{0, 0, {{9, 10, 1}, {-1, 10, 3}, {-1, 5, 1}}}}
                                  << abcd << u"RRRR"_s;
        QTest::newRow("per item: all weights 0 (0/0)")
            << 2u << Course{{0, 0, {{9, 10, 0}, {-1, 10, 0}}}} << abcd << u"NNNN"_s;
        QTest::newRow("minimums not falling")
            << 0u << Course{{0, 0, {{40, 50}, {-1, 50}}}} << Minimums{90, 95, 70} << u"RRR"_s;
    }
    void needs()
    {
        QFETCH(quint32, weighting);
        QFETCH(Course, course);
        QFETCH(Minimums, minimums);
        QFETCH(QString, statuses);

        const quint32 courseId = MakeCourse(weighting, course, minimums);
        QString shown;
        for (const CGradePlanner::Need& need : CGradePlanner(courseId).Needs()) {
            shown += u"SRN"_s.at(need.status);
            QCOMPARE(need.minimum, minimums.at(need.grade));
        }
        QCOMPARE(shown, statuses);
        CheckPlanner(courseId, 1);
    }
    void randomCourses()
    {
        QRandomGenerator random(1616);
        auto pick = [&random](int low, int high) { return int(random.bounded(low, high + 1)); };
        for (int round = 0; round < 300; ++round) {
            const quint32 weighting = quint32(pick(0, 2));
            Course course;
            const int typeCount = pick(1, 3);
            bool drops = false;
            for (int t = 0; t < typeCount; ++t) {
                Type type{double(pick(0, 4) * 10), quint16(pick(0, 3) == 0 ? pick(1, 2) : 0), {}};
                drops = drops || type.drops;
                const int itemCount = pick(1, 5);
                for (int i = 0; i < itemCount; ++i) {
                    const double possible = double(pick(1, 4) * 5);
                    // Some ungraded, some above their possible (extra credit).
                    const double score =
                        pick(0, 2) == 0 ? -1.0 : possible * random.bounded(130) / 100.0;
                    type.items.push_back({score, possible, double(pick(0, 3))});
                }
                course.push_back(type);
            }
            Minimums minimums;
            double minimum = 100.0;
            for (int g = 0; g < 4; ++g)
                minimums.push_back(minimum -= 1 + random.bounded(20));

            const quint32 courseId = MakeCourse(weighting, course, minimums);
            // Without drops every sum grows with the percent, extra credit
            // included: the grade cannot fall, under every weighting.
            QVERIFY(drops || !CGradePlanner(courseId).MayFallAsPercentRises());
            CheckPlanner(courseId, 7);
            if (QTest::currentTestFailed())
                return;
        }
    }
    void dropsCanMakeTheGradeFall()
    {
        // Two drops: at 41 % one pair of scores goes, at 42 % another, and the
        // type's average falls although every remaining score rose.
        const Course course{{0, 2, {{1.0, 3}, {-1, 50}, {1.6, 3}, {1.3, 3}, {-1, 100}}}};
        const quint32 courseId = MakeCourse(0, course, {43, 42.9, 40});
        QVERIFY(RealFraction(courseId, 42.0) < RealFraction(courseId, 41.0));

        QVERIFY(CGradePlanner(courseId).MayFallAsPercentRises());
        CheckPlanner(courseId, 1);
    }
    void predictionScoresStand()
    {
        // A score tried in prediction mode counts as graded; only the rest gets
        // the uniform percent.
        const quint32 courseId = MakeCourse(0, {{0, 0, {{-1, 50}, {-1, 50}}}}, {90, 80});
        CourseFacts facts = LoadCourseFacts(courseId);
        CPredictionStore& store = CPredictionStore::Instance();
        store.SetActive(true);
        store.SetOverride(facts.types[0].coursework[0].id,
                          {50.0, 50.0, EffectiveScore::Overridden});

        CGradePlanner planner(courseId);
        QCOMPARE(int(planner.AssumedCoursework().size()), 1);
        const CGradePlanner::Need b = planner.NeedFor(1);
        QCOMPARE(int(b.status), int(CGradePlanner::Need::Reachable));
        QCOMPARE(b.percent, 60.0);
        QCOMPARE(planner.FractionAtStep(6000), 0.8);
        // Nothing reached the records or the store's own scores to give.
        QVERIFY(!store.ScoreToGive(facts.types[0].id));
        QCOMPARE(LoadCourseFacts(courseId).types[0].coursework[0].score, -1.0);
    }
    void targetGpa()
    {
        // Default scale: grade points fall with the grade number.
        MakeCourse(0, {{0, 0, {{45, 50}, {-1, 50}}}}, abcd, 3.0);
        MakeCourse(1, {{50, 0, {{20, 40}}}, {50, 0, {{-1, 100}}}}, abcd, 4.0);
        CAppStateTable::Instance().SetShowGPAWithHours(1);

        auto realGpa = [](double percent) {
            GiveToAll(GetSemesterCourses(0), percent);
            const double gpa = GetSemesterGPA(true, false);
            CPredictionStore::Instance().SetActive(false);
            return gpa;
        };

        CGpaPlanner planner(0, true);
        const double best = planner.GpaAtStep(CGradePlanner::Steps);
        QCOMPARE(best, realGpa(100.0));
        const double target = (best + planner.GpaAtStep(0)) / 2;
        const CGpaPlanner::Answer answer = planner.For(target);
        QCOMPARE(int(answer.status), int(CGpaPlanner::Answer::Reachable));
        QVERIFY(realGpa(answer.percent) >= target);
        QVERIFY(realGpa(PercentOfStep(int(std::lround(answer.percent * 100)) - 1)) < target);
        QCOMPARE(int(answer.courses.size()), 2);

        QCOMPARE(int(planner.For(best + 0.01).status), int(CGpaPlanner::Answer::NotReachable));
        QCOMPARE(int(planner.For(0.0).status), int(CGpaPlanner::Answer::Secured));
    }
    void policyChecks_data()
    {
        QTest::addColumn<quint32>("weighting");
        QTest::addColumn<Course>("course");
        QTest::addColumn<Minimums>("minimums");
        QTest::addColumn<QList<int>>("kinds");

        using W = PolicyWarning;
        const Minimums falling{90, 80};
        const Item graded{8, 10, 1};
        QTest::newRow("clean by type")
            << 1u << Course{{40, 0, {graded}}, {60, 0, {graded}}} << falling << QList<int>{};
        QTest::newRow("by type not 100")
            << 1u << Course{{40, 0, {graded}}, {50, 0, {graded}}, {20, 0, {{-1, 10}}}} << falling
            << QList<int>{W::WeightsNotHundred};
        QTest::newRow("per item zero weights") << 2u << Course{{0, 0, {graded, {-1, 10, 0}}}}
                                               << falling << QList<int>{W::ItemWeightsZero};
        QTest::newRow("per item 0/0") << 2u << Course{{0, 0, {{8, 10, 0}, {-1, 10, 0}}}} << falling
                                      << QList<int>{W::ItemWeightsAllZeroGraded};
        QTest::newRow("per item drops") << 2u << Course{{0, 1, {graded, graded}}} << falling
                                        << QList<int>{W::DropsUnderPerItem};
        QTest::newRow("drops not below graded") << 0u << Course{{0, 2, {graded, graded, {-1, 10}}}}
                                                << falling << QList<int>{W::DropsNotBelowGraded};
        QTest::newRow("minimums equal") << 0u << Course{{0, 0, {graded}}} << Minimums{90, 90, 70}
                                        << QList<int>{W::MinimumNotFalling};
    }
    void policyChecks()
    {
        QFETCH(quint32, weighting);
        QFETCH(Course, course);
        QFETCH(Minimums, minimums);
        QFETCH(QList<int>, kinds);

        QList<int> found;
        for (const PolicyWarning& warning :
             CheckCoursePolicy(MakeCourse(weighting, course, minimums))) {
            found << warning.kind;
            QVERIFY(!warning.Text().isEmpty());
        }
        QCOMPARE(found, kinds);
    }
    void breakdownShowsDropsAndShares()
    {
        const quint32 courseId = MakeCourse(
            1, {{40, 1, {{8, 10}, {5, 10}, {-1, 10}}}, {60, 0, {{-1, 10}}}, {60, 0, {{7, 10}}}},
            {90});
        RecomputeCourseGrade(courseId);
        const GradeBreakdown breakdown = ExplainCourseGrade(courseId);
        QCOMPARE(breakdown.fraction, GetCourseGrade(courseId));
        QCOMPARE(int(breakdown.types.size()), 3);
        QList<int> states;
        for (const auto& item : breakdown.types[0].items)
            states << item.state;
        using I = GradeBreakdown::Item;
        QCOMPARE(states, (QList<int>{I::Counted, I::Dropped, I::NotGraded}));
        QVERIFY(!breakdown.types[1].considered);
        double sum = 0.0;
        for (const auto& type : breakdown.types)
            sum += type.contribution;
        QVERIFY(std::fabs(sum - breakdown.fraction) < 1e-12);
    }
};

QTEST_GUILESS_MAIN(TestGradePlanner)
#include "tst_gradeplanner.moc"
