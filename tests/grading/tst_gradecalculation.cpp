// The course grade: per-type sums with drops, the three weightings, the grade
// number, the default policy of a new course, prediction mode and the way a
// grade is shown (rounded up without binary noise, whole numbers of any size);
// grade points and the semester, in-major and cumulative GPAs. Expected values
// are worked out by hand, independently of the code.
//
// Faults tried and caught: Per Item type weight left out of the course sum
// ("per item: two types of different weights"); By Type counting the weight
// of a type with nothing graded ("ungraded weighted type"); the drop test
// made >= instead of > (the tie rows); a no-score course (-1.0) counted in
// the GPA ("only ungraded courses", "ungraded courses beside graded ones");
// PercentOf rounding binary noise up ("28 of 50", "7 of 100").
#include "GradingFixtures.h"
#include "grading/Grading.h"
#include "support/DatabaseTest.h"

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
};

QTEST_GUILESS_MAIN(TestGradeCalculation)
#include "tst_gradecalculation.moc"
