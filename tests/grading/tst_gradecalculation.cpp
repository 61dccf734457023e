// The course grade: per-type sums with drops, the three weightings, the grade
// number, the default policy of a new course, prediction mode and the way a
// grade is shown (rounded up without binary noise, whole numbers of any size);
// grade points and the semester, in-major and cumulative GPAs. Expected values
// are worked out by hand, independently of the code. The grade planner: every
// answer is checked against the grade calculation itself (RecomputeCourseGrade
// with the percent as score to give), at the answered percent and one
// hundredth below; randomized courses check that the answer is the lowest
// percent from which on the grade holds, and that the grade never falls as the
// percent rises where the planner says so. Also the target GPA, the policy
// checks and the calculation breakdown.
//
// Faults tried and caught: Per Item type weight left out of the course sum
// ("per item: two types of different weights"); By Type counting the weight
// of a type with nothing graded ("ungraded weighted type"); the drop test
// made >= instead of > (the tie rows); a no-score course (-1.0) counted in
// the GPA ("only ungraded courses", "ungraded courses beside graded ones");
// PercentOf rounding binary noise up ("28 of 50", "7 of 100").
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

// One course of a row; the default scale is A 4, B 3, C 2, D 1.
struct GpaCourse
{
    double grade; // fraction, -1.0 no score
    double hours;
    bool inMajor = true;
    bool archived = false;
};
using GpaCourses = std::vector<GpaCourse>;

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

Q_DECLARE_METATYPE(GpaCourses)

class TestGradeCalculation : public DatabaseTest
{
    Q_OBJECT

private slots:
    void courseFraction_data()
    {
        QTest::addColumn<quint32>("weighting");
        QTest::addColumn<Course>("course");
        QTest::addColumn<double>("expected");

        const Type zeroOfTen{0.0, 0, {{0, 10}}};
        for (quint32 w : {0u, 1u, 2u}) {
            QTest::addRow("no types, weighting %u", w) << w << Course{} << -1.0;
            QTest::addRow("all ungraded, weighting %u", w)
                << w << Course{{1.0, 1, {{-1, 10, 1}, {-1, 20, 1}}}, {2.0, 0, {{-1, 5, 1}}}}
                << -1.0;
        }
        QTest::newRow("none: extra credit above possible")
            << 0u << Course{{0.0, 0, {{12, 10}, {5, 10}}}} << 0.85;
        QTest::newRow("none: one drop takes the 5/10")
            << 0u << Course{{0.0, 1, {{8, 10}, {5, 10}}}} << 0.8;
        // After the 2/10 goes the rest sit at the average: the second drop
        // finds nothing (the other type shows whether one or two were dropped).
        QTest::newRow("none: drops 2 drops only one")
            << 0u << Course{{0.0, 2, {{8, 10}, {8, 10}, {2, 10}}}, zeroOfTen} << 16.0 / 30.0;
        // Dropping 0/2 or 1/4 leaves 5/10 or 4/8: a tie, so the earlier one goes.
        QTest::newRow("tie drops the earlier item")
            << 0u << Course{{0.0, 1, {{4, 6}, {0, 2}, {1, 4}}}, zeroOfTen} << 5.0 / 20.0;
        QTest::newRow("tie drops the earlier item, other order")
            << 0u << Course{{0.0, 1, {{4, 6}, {1, 4}, {0, 2}}}, zeroOfTen} << 4.0 / 18.0;
        QTest::newRow("ungraded and zero-possible items are never dropped, drops beyond")
            << 0u << Course{{0.0, 3, {{8, 10}, {-1, 10}, {0, 0}}}} << 0.8;
        QTest::newRow("none: a type with nothing graded is left out")
            << 0u << Course{{0.0, 0, {{8, 10}, {5, 10}}}, {0.0, 0, {{-1, 50}}}} << 0.65;
        QTest::newRow("by type: ungraded weighted type's weight does not count")
            << 1u << Course{{1.0, 0, {{8, 10}}}, {3.0, 0, {{5, 10}}}, {6.0, 0, {{-1, 10}}}}
            << 0.575;
        QTest::newRow("by type: drop inside the type")
            << 1u << Course{{1.0, 1, {{8, 10}, {5, 10}}}} << 0.8;
        QTest::newRow("by type: every weight 0 gives 0.0")
            << 1u << Course{{0.0, 0, {{8, 10}}}, {0.0, 0, {{5, 10}}}} << 0.0;
        // Graded items whose possible total is 0.0: stored as it is.
        QTest::newRow("by type: nothing possible gives infinity")
            << 1u << Course{{1.0, 0, {{5, -1}}}} << qInf();
        QTest::newRow("per item: weights 1 and 3")
            << 2u << Course{{0.0, 0, {{8, 10, 1}, {5, 10, 3}}}} << 0.575;
        // Type weights 2 and 3 (their graded item weights): (2 x 0.7 + 3 x 0.5) / 5.
        QTest::newRow("per item: two types of different weights")
            << 2u << Course{{9.0, 0, {{8, 10, 1}, {6, 10, 1}}}, {1.0, 0, {{5, 10, 3}}}} << 0.58;
        // W counts the ungraded item's weight; the type's weight only the graded.
        QTest::newRow("per item: ungraded weight still divides")
            << 2u << Course{{0.0, 0, {{8, 10, 1}, {-1, 10, 1}}}} << 0.4;
        // Drop-one would take the 0.1/0.5 item here (leaving 0.5); Per Item never drops.
        QTest::newRow("per item: drops drop nothing")
            << 2u << Course{{0.0, 1, {{0.1, 0.5, 1}, {0.5, 0.5, 1}}}} << 0.6;
    }
    void courseFraction()
    {
        QFETCH(quint32, weighting);
        QFETCH(Course, course);
        QFETCH(double, expected);

        const quint32 courseId = MakeCourse(weighting, course);
        RecomputeCourseGrade(courseId);
        QCOMPARE(GetCourseGrade(courseId), expected); // as stored
    }

    void gradeIndex_data()
    {
        QTest::addColumn<QList<double>>("minima"); // by grade number; NaN: no row
        QTest::addColumn<double>("fraction");
        QTest::addColumn<int>("expected");

        const QList<double> four{90, 80, 70, 60};
        QTest::newRow("best grade") << four << 0.95 << 0;
        QTest::newRow("exactly a minimum") << QList<double>{90, 75, 60} << 0.75 << 1;
        QTest::newRow("0.29 x 100 does not reach 29") << QList<double>{29} << 0.29 << 1;
        QTest::newRow("under every minimum") << four << 0.59 << 4;
        QTest::newRow("no score falls past the last grade") << four << -1.0 << 4;
        QTest::newRow("a gap counts as minimum 0") << QList<double>{90, qQNaN(), 60} << 0.5 << 1;
        QTest::newRow("no rows") << QList<double>{} << 0.5 << 0;
        QTest::newRow("a NaN fraction is not less than any minimum") << four << qQNaN() << 0;
        QTest::newRow("first match wins, not the best fit") << QList<double>{50, 90} << 0.95 << 0;
    }
    void gradeIndex()
    {
        QFETCH(QList<double>, minima);
        QFETCH(double, fraction);
        QFETCH(int, expected);

        const quint32 courseId = Records::Course(u"Course"_s);
        Records::MinimumPercent(Records::Course(u"Other"_s), 0, 0.0);
        // Stored out of grade order: the array is indexed by the grade number.
        for (qsizetype g = minima.size() - 1; g >= 0; --g) {
            if (!std::isnan(minima[g]))
                Records::MinimumPercent(courseId, static_cast<quint16>(g), minima[g]);
        }
        QCOMPARE(int(GetGradeIndex(courseId, fraction)), expected);
    }

    // A new course's policy on a scale of three grades: one type, weighting
    // None, minimums spread below 100 and truncated, not rounded. (The crash
    // test checks those of the default four grades.)
    void defaultPolicy()
    {
        QVERIFY(CDataTable::GetMount()->Execute("DELETE FROM GradeScale WHERE Grade = 3"));
        const quint32 courseId = Records::Course(u"Course"_s);
        CreateDefaultGradingPolicy(courseId);

        CourseTypeList types;
        LoadCourseTypes(courseId, types);
        QCOMPARE(types.size(), size_t(1));
        QCOMPARE(CCwTypeTable::GetCwTypeNameFromID(types[0].first), u"Homework"_s);
        QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(courseId),
                 CGradingPolicyTable::WeightNone);
        QCOMPARE(StoredMinimums(courseId), (Minimums{86, 73, 60}));
    }

    void predictionGoesToTheStoreAndLeavesWithTheMode()
    {
        const quint32 courseId = MakeCourse(0, {{0.0, 0, {{8, 10}}}});
        RecomputeCourseGrade(courseId);
        CCourseworkTable coursework;
        coursework.Open();
        QVERIFY(coursework.MoveFirst(1));
        const quint32 itemId = coursework.GetRecordID();

        CPredictionStore& store = CPredictionStore::Instance();
        store.SetActive(true);
        store.SetOverride(itemId, {5.0, 10.0, EffectiveScore::Overridden});
        QCOMPARE(GetCourseGrade(courseId), 0.8); // nothing recomputed yet
        QCOMPARE(GetEffectiveScore(coursework).source, int(EffectiveScore::Overridden));
        RecomputeCourseGrade(courseId);
        QCOMPARE(GetCourseGrade(courseId), 0.5);

        store.Toggle();
        QCOMPARE(GetCourseGrade(courseId), 0.8); // the database never saw 0.5
        QCOMPARE(GetEffectiveScore(coursework).score, 8.0);
        QVERIFY(!store.Override(itemId) && !store.PredictedGrade(courseId));
    }

    void shownNumber_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("percent"); // 0: as it is, 1: PercentOf, 2: PercentOfCut
        QTest::addColumn<QString>("text");

        // Exact percents whose product with 10000 lands a hair above the whole.
        QTest::newRow("28 of 50") << 28.0 / 50.0 << 1 << u"56"_s;
        QTest::newRow("7 of 100") << 7.0 / 100.0 << 1 << u"7"_s;
        QTest::newRow("rounded up to the next hundredth") << 0.87341 << 1 << u"87.35"_s;
        QTest::newRow("0.87654") << 0.87654 << 2 << u"87.66"_s;
        QTest::newRow("above 100 keeps hundredths") << 1.125 << 1 << u"112.5"_s;
        QTest::newRow("above 100 cut to its whole part") << 1.125 << 2 << u"112"_s;
        QTest::newRow("negative large") << -3e9 << 0 << u"-3000000000"_s;
        QTest::newRow("1e20") << 1e20 << 0 << u"100000000000000000000"_s;
        QTest::newRow("six places at most") << 1.0 / 3.0 << 0 << u"0.333333"_s;
        QTest::newRow("a hair below whole") << 99.9999999 << 0 << u"100"_s;
    }
    void shownNumber()
    {
        QFETCH(double, value);
        QFETCH(int, percent);
        QFETCH(QString, text);
        if (percent)
            value = percent == 1 ? GradeText::PercentOf(value) : GradeText::PercentOfCut(value);
        QCOMPARE(GradeText::NumberToText(value), text);
    }

    void twelfthGradeEarnsItsPoints()
    {
        CGradeScaleTable scale;
        scale.Open();
        scale.NewRecord(0);
        scale.SetGrade(11);
        scale.SetGradePoints(0.5);
        QVERIFY(scale.UpdateRecord());
        QCOMPARE(GetGradePoints(11), 0.5);
    }

    void gpa_data()
    {
        using Gpas = QList<double>;
        QTest::addColumn<GpaCourses>("courses");
        QTest::addColumn<QList<double>>("past"); // hours, points
        QTest::addColumn<bool>("weighted");
        QTest::addColumn<Gpas>("gpas"); // semester, in major, cumulative

        const QList<double> noPast{0, 0};
        const Gpas none{-1, -1, -1};
        const GpaCourses zeroHours{{0.95, 0}, {0.85, 0}};
        QTest::newRow("only ungraded courses") << GpaCourses{{-1.0, 3}} << noPast << true << none;
        QTest::newRow("ungraded courses beside graded ones")
            << GpaCourses{{-1.0, 3}, {0.85, 1}, {-1.0, 1, true, true}} << noPast << false
            << Gpas{3, 3, 3};
        QTest::newRow("zero-hour courses, weighted") << zeroHours << noPast << true << none;
        QTest::newRow("zero-hour courses, unweighted: the average")
            << zeroHours << noPast << false << Gpas{3.5, 3.5, 3.5};
        QTest::newRow("weighted by hours")
            << GpaCourses{{0.95, 3}, {0.75, 1}} << noPast << true << Gpas{3.5, 3.5, 3.5};
        QTest::newRow("a failing course counts with 0 points")
            << GpaCourses{{0.95, 3}, {0.10, 1}} << noPast << true << Gpas{3, 3, 3};
        QTest::newRow("0 % counts")
            << GpaCourses{{0.95, 3}, {0.0, 1}} << noPast << false << Gpas{2, 2, 2};
        QTest::newRow("hours left empty count 0 when weighted")
            << GpaCourses{{0.95, -999.0}, {0.85, 2}} << noPast << true << Gpas{3, 3, 3};
        QTest::newRow("in major only")
            << GpaCourses{{0.95, 3, true}, {0.75, 3, false}} << noPast << true << Gpas{3, 4, 3};
        QTest::newRow("past hours and points, weighted")
            << GpaCourses{{0.95, 2}} << QList<double>{10, 30} << true << Gpas{4, 4, 38.0 / 12.0};
        QTest::newRow("past hours and points, unweighted")
            << GpaCourses{{0.95, 2}} << QList<double>{10, 30} << false << Gpas{4, 4, 34.0 / 11.0};
        QTest::newRow("past points without past hours are ignored")
            << GpaCourses{{0.85, 2}} << QList<double>{0, 50} << true << Gpas{3, 3, 3};
        QTest::newRow("past alone")
            << GpaCourses{} << QList<double>{4, 14} << true << Gpas{-1, -1, 3.5};
        QTest::newRow("archived courses count only cumulatively")
            << GpaCourses{{0.95, 1}, {0.65, 1, true, true}} << noPast << false << Gpas{4, 4, 2.5};
    }
    void gpa()
    {
        QFETCH(GpaCourses, courses);
        QFETCH(QList<double>, past);
        QFETCH(bool, weighted);
        QFETCH(QList<double>, gpas);

        const quint32 archiveId = Records::Semester(u"Fall"_s);
        for (const GpaCourse& c : courses)
            Fixture::GradedCourse(u"Course"_s, c.grade, c.hours, c.inMajor,
                                  c.archived ? archiveId : WorkingSemesterID);
        QVERIFY(CDataTable::GetMount()->Execute(
            "UPDATE GPAInfo SET TotalPastHours = " + QByteArray::number(past[0]) +
            ", TotalPastPoints = " + QByteArray::number(past[1])));
        QCOMPARE(Records::Count("GPAInfo"), 1);

        QCOMPARE(GetSemesterGPA(weighted, false), gpas[0]);
        QCOMPARE(GetSemesterGPA(weighted, true), gpas[1]);
        QCOMPARE(GetCumulativeGPA(weighted), gpas[2]);
    }

    void semesterOnViewAndPredictedGrades()
    {
        const quint32 archiveId = Records::Semester(u"Fall"_s);
        const quint32 courseId = Fixture::GradedCourse(u"Now"_s, 0.95);
        Fixture::GradedCourse(u"Then"_s, 0.75, 3.0, true, archiveId);
        CAppStateTable::Instance().SetCurrentSemesterID(archiveId);
        QCOMPARE(GetSemesterGPA(true, false), 2.0);
        CAppStateTable::Instance().SetCurrentSemesterID(0);
        QCOMPARE(GetSemesterGPA(true, false), 4.0);

        CPredictionStore& store = CPredictionStore::Instance();
        store.SetActive(true);
        QCOMPARE(GetSemesterGPA(false, false), 4.0); // nothing predicted yet
        store.SetPredictedGrade(courseId, 0.72);
        QCOMPARE(GetSemesterGPA(false, false), 2.0);
        QCOMPARE(GetCumulativeGPA(false), 2.0);
        store.SetPredictedGrade(courseId, -1.0); // predicted no score: left out
        QCOMPARE(GetCumulativeGPA(false), 2.0);
        QCOMPARE(GetSemesterGPA(false, false), -1.0);
        store.SetActive(false);
        QCOMPARE(GetCumulativeGPA(false), 3.0);
    }

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

QTEST_GUILESS_MAIN(TestGradeCalculation)
#include "tst_gradecalculation.moc"
