// The course grade: per-type sums with drops, the three weightings, the grade
// number, the default policy of a new course, prediction mode and the way a
// grade is shown.
#include "BrindleData.h"
#include "grading/Grading.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

#include <cmath>
#include <memory>

namespace {

struct Item
{
    double score;
    double possible;
    double weight = 0.0;
};

struct Type
{
    double weight;
    quint16 drops;
    std::vector<Item> items;
};

using Course = std::vector<Type>;

// Builds the course with its policy; returns its id.
quint32 MakeCourse(quint32 weighting, const Course& types)
{
    const quint32 courseId = Records::Course(QStringLiteral("Course"));
    Records::Policy(courseId, weighting);
    int n = 0;
    for (const Type& type : types) {
        const quint32 typeId =
            Records::CwType(courseId, QStringLiteral("Type %1").arg(++n), type.weight, type.drops);
        for (const Item& item : type.items)
            Records::Coursework(courseId, typeId, QStringLiteral("Item"), item.score, item.possible,
                                0.0, 0, item.weight);
    }
    return courseId;
}

double StoredGrade(quint32 courseId)
{
    CCourseTable course;
    course.Open();
    return course.MoveToRecord(courseId) ? course.GetCurrentGrade() : -2.0;
}

void SetScale(int gradeCount)
{
    CGradeScaleTable scale;
    scale.Open();
    for (int ok = scale.MoveFirst(1); ok; ok = scale.MoveNext(1))
        scale.DeleteRecord(0);
    for (int g = 0; g < gradeCount; ++g) {
        scale.NewRecord(0);
        scale.SetGrade(static_cast<quint16>(g));
        scale.SetGradeName(QString(QChar(u'A' + g)));
        scale.SetGradePoints(gradeCount - g);
        scale.UpdateRecord();
    }
}

} // namespace

Q_DECLARE_METATYPE(Course)

class TestGradeCalculation : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup()
    {
        CPredictionStore::Instance().SetActive(false);
        m_db.reset();
    }

    void courseFraction_data();
    void courseFraction();
    void nonFiniteFractionIsStoredAsItIs();
    void typeSummaryCountsAndDrops();
    void typeOrderIsStableByPosition();
    void gradeIndex_data();
    void gradeIndex();
    void defaultPolicy_data();
    void defaultPolicy();
    void predictionGoesToTheStoreAndLeavesWithTheMode();
    void scoreToGive_data();
    void scoreToGive();
    void displayedPercent_data();
    void displayedPercent();
    void numberToText_data();
    void numberToText();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestGradeCalculation::courseFraction_data()
{
    QTest::addColumn<quint32>("weighting");
    QTest::addColumn<Course>("course");
    QTest::addColumn<double>("expected");

    const Type eightAndFive{0.0, 0, {{8, 10}, {5, 10}}};
    const Type zeroOfTen{0.0, 0, {{0, 10}}};
    for (quint32 w : {0u, 1u, 2u}) {
        QTest::addRow("no types, weighting %u", w) << w << Course{} << -1.0;
        QTest::addRow("all ungraded, weighting %u", w)
            << w << Course{{1.0, 1, {{-1, 10, 1}, {-1, 20, 1}}}, {2.0, 0, {{-1, 5, 1}}}} << -1.0;
    }
    QTest::newRow("none: 8/10 and 5/10") << 0u << Course{eightAndFive} << 0.65;
    QTest::newRow("none: one drop takes the 5/10")
        << 0u << Course{{0.0, 1, {{8, 10}, {5, 10}}}} << 0.8;
    // After the 2/10 goes the rest sit at the average: the second drop finds
    // nothing (the other type shows whether one or two were dropped).
    QTest::newRow("none: drops 2 drops only one")
        << 0u << Course{{0.0, 2, {{8, 10}, {8, 10}, {2, 10}}}, zeroOfTen} << 16.0 / 30.0;
    // Dropping 0/2 or 1/4 leaves 5/10 or 4/8: a tie, so the earlier one goes.
    QTest::newRow("tie drops the earlier item")
        << 0u << Course{{0.0, 1, {{4, 6}, {0, 2}, {1, 4}}}, zeroOfTen} << 5.0 / 20.0;
    QTest::newRow("tie drops the earlier item, other order")
        << 0u << Course{{0.0, 1, {{4, 6}, {1, 4}, {0, 2}}}, zeroOfTen} << 4.0 / 18.0;
    QTest::newRow("ungraded and zero-possible items are never dropped")
        << 0u << Course{{0.0, 3, {{8, 10}, {-1, 10}, {0, 0}}}} << 0.8;
    QTest::newRow("none: a type with nothing graded is left out")
        << 0u << Course{eightAndFive, {0.0, 0, {{-1, 50}}}} << 0.65;
    QTest::newRow("by type: weights 1 and 3")
        << 1u << Course{{1.0, 0, {{8, 10}}}, {3.0, 0, {{5, 10}}}} << 0.575;
    QTest::newRow("by type: drop inside the type")
        << 1u << Course{{1.0, 1, {{8, 10}, {5, 10}}}} << 0.8;
    QTest::newRow("by type: every weight 0 gives 0.0")
        << 1u << Course{{0.0, 0, {{8, 10}}}, {0.0, 0, {{5, 10}}}} << 0.0;
    QTest::newRow("per item: weights 1 and 3")
        << 2u << Course{{0.0, 0, {{8, 10, 1}, {5, 10, 3}}}} << 0.575;
    // W counts the ungraded item's weight; the type's weight only the graded.
    QTest::newRow("per item: ungraded weight still divides")
        << 2u << Course{{0.0, 0, {{8, 10, 1}, {-1, 10, 1}}}} << 0.4;
    // Drop-one would take the 0.1/0.5 item here (leaving 0.5); Per Item never drops.
    QTest::newRow("per item: drops drop nothing")
        << 2u << Course{{0.0, 1, {{0.1, 0.5, 1}, {0.5, 0.5, 1}}}} << 0.6;
    QTest::newRow("weighting outside 0..2 gives 0.0") << 3u << Course{eightAndFive} << 0.0;
}

void TestGradeCalculation::courseFraction()
{
    QFETCH(quint32, weighting);
    QFETCH(Course, course);
    QFETCH(double, expected);

    const quint32 courseId = MakeCourse(weighting, course);
    RecomputeCourseGrade(courseId);
    QCOMPARE(StoredGrade(courseId), expected);
    QCOMPARE(GetCourseGrade(courseId), expected);
}

void TestGradeCalculation::nonFiniteFractionIsStoredAsItIs()
{
    // By Type: graded items whose possible total is 0.0.
    const quint32 courseId = MakeCourse(1, {{1.0, 0, {{5, -1}}}});
    RecomputeCourseGrade(courseId);
    QVERIFY(std::isinf(StoredGrade(courseId)));
}

void TestGradeCalculation::typeSummaryCountsAndDrops()
{
    const quint32 courseId = Records::Course(QStringLiteral("Course"));
    const quint32 typeId = Records::CwType(courseId, QStringLiteral("Quiz"), 2.5, 2);
    Records::Coursework(courseId, typeId, QStringLiteral("a"), 8, 10, 0, 100);
    Records::Coursework(courseId, typeId, QStringLiteral("b"), 8, 10, 0, 150);
    Records::Coursework(courseId, typeId, QStringLiteral("c"), 2, 10, 0, 99);
    Records::Coursework(courseId, typeId, QStringLiteral("d"), -1, 10, 0, 0);

    const TypeSummary byType = SummarizeType(typeId, CGradingPolicyTable::WeightByType);
    QCOMPARE(byType.cwTypeId, typeId);
    QCOMPARE(byType.name, QStringLiteral("Quiz"));
    QCOMPARE(byType.weight, 2.5);
    QCOMPARE(byType.drops, quint16(2));
    QCOMPARE(byType.courseworkCount, quint16(4));
    QCOMPARE(byType.completedCount, quint16(2));
    QCOMPARE(byType.scoreTotal, 16.0);
    QCOMPARE(byType.possibleTotal, 20.0);

    QCOMPARE(SummarizeType(typeId, CGradingPolicyTable::WeightNone).weight, 0.0);
    const TypeSummary missing = SummarizeType(courseId, CGradingPolicyTable::WeightNone);
    QCOMPARE(missing.scoreTotal, -1.0);
    QCOMPARE(missing.courseworkCount, quint16(0));
}

void TestGradeCalculation::typeOrderIsStableByPosition()
{
    const quint32 courseId = Records::Course(QStringLiteral("Course"));
    const quint32 a = Records::CwType(courseId, QStringLiteral("a"), 0, 0, 2);
    const quint32 b = Records::CwType(courseId, QStringLiteral("b"), 0, 0, 0);
    const quint32 c = Records::CwType(courseId, QStringLiteral("c"), 0, 0, 2);
    const quint32 d = Records::CwType(courseId, QStringLiteral("d"), 0, 0, 1);
    Records::CwType(Records::Course(QStringLiteral("Other")), QStringLiteral("x"), 0, 0, 0);

    CourseTypeList list{{99, 99}}; // replaced, not appended to
    LoadCourseTypes(courseId, list);
    const CourseTypeList expected{{b, 0}, {d, 1}, {a, 2}, {c, 2}};
    QCOMPARE(list, expected);
}

void TestGradeCalculation::gradeIndex_data()
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

void TestGradeCalculation::gradeIndex()
{
    QFETCH(QList<double>, minima);
    QFETCH(double, fraction);
    QFETCH(int, expected);

    const quint32 courseId = Records::Course(QStringLiteral("Course"));
    const quint32 otherId = Records::Course(QStringLiteral("Other"));
    Records::MinimumPercent(otherId, 0, 0.0);
    // Stored out of grade order: the array is indexed by the grade number.
    for (qsizetype g = minima.size() - 1; g >= 0; --g) {
        if (!std::isnan(minima[g]))
            Records::MinimumPercent(courseId, static_cast<quint16>(g), minima[g]);
    }
    QCOMPARE(int(GetGradeIndex(courseId, fraction)), expected);
}

void TestGradeCalculation::defaultPolicy_data()
{
    QTest::addColumn<int>("gradeCount");
    QTest::addColumn<QList<double>>("minima");

    QTest::newRow("4 grades") << 4 << QList<double>{90, 80, 70, 60};
    QTest::newRow("3 grades: truncated, not rounded") << 3 << QList<double>{86, 73, 60};
    QTest::newRow("5 grades") << 5 << QList<double>{92, 84, 76, 68, 60};
    QTest::newRow("empty scale") << 0 << QList<double>{};
}

void TestGradeCalculation::defaultPolicy()
{
    QFETCH(int, gradeCount);
    QFETCH(QList<double>, minima);

    SetScale(gradeCount);
    const quint32 courseId = Records::Course(QStringLiteral("Course"));
    CreateDefaultGradingPolicy(courseId);

    CourseTypeList types;
    LoadCourseTypes(courseId, types);
    QCOMPARE(types.size(), size_t(1));
    QCOMPARE(types[0].second, qint16(0));
    CCwTypeTable type;
    QVERIFY(type.Open() && type.MoveToRecord(types[0].first));
    QCOMPARE(type.GetCourseID(), courseId);
    QCOMPARE(type.GetCwTypeName(), QStringLiteral("Homework"));
    QCOMPARE(type.GetWeight(), 0.0);
    QCOMPARE(type.GetDrops(), quint16(0));
    QCOMPARE(Records::Count("GradingPolicy"), 1);
    QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(courseId),
             CGradingPolicyTable::WeightNone);

    QList<double> stored(minima.size(), -1.0);
    CGradingPolicyGradeTable rows;
    rows.Open();
    for (int ok = rows.MoveFirst(1); ok; ok = rows.MoveNext(1)) {
        QCOMPARE(rows.GetCourseID(), courseId);
        QVERIFY(rows.GetGrade() < stored.size());
        stored[rows.GetGrade()] = rows.GetMinimumPercent();
    }
    QCOMPARE(Records::Count("GradingPolicyGrade"), int(minima.size()));
    QCOMPARE(stored, minima);
}

void TestGradeCalculation::predictionGoesToTheStoreAndLeavesWithTheMode()
{
    const quint32 courseId = MakeCourse(0, {{0.0, 0, {{8, 10}}}});
    RecomputeCourseGrade(courseId);
    QCOMPARE(GetCourseGrade(courseId), 0.8);

    CCourseworkTable coursework;
    coursework.Open();
    QVERIFY(coursework.MoveFirst(1));
    const quint32 itemId = coursework.GetRecordID();

    CPredictionStore& store = CPredictionStore::Instance();
    store.SetActive(true);
    QCOMPARE(GetCourseGrade(courseId), 0.8); // nothing recomputed yet
    store.SetOverride(itemId, {5.0, 10.0, EffectiveScore::Overridden});
    const EffectiveScore e = GetEffectiveScore(coursework);
    QCOMPARE(e.score, 5.0);
    QCOMPARE(e.source, int(EffectiveScore::Overridden));
    RecomputeCourseGrade(courseId);
    QCOMPARE(GetCourseGrade(courseId), 0.5);
    QCOMPARE(StoredGrade(courseId), 0.8); // the database never sees it

    store.Toggle();
    QCOMPARE(GetCourseGrade(courseId), 0.8);
    QCOMPARE(GetEffectiveScore(coursework).score, 8.0);
    QCOMPARE(GetEffectiveScore(coursework).source, int(EffectiveScore::Recorded));
    QVERIFY(!store.Override(itemId) && !store.PredictedGrade(courseId));
}

void TestGradeCalculation::scoreToGive_data()
{
    QTest::addColumn<double>("score");
    QTest::addColumn<double>("possible");
    QTest::addColumn<bool>("active");
    QTest::addColumn<double>("effectiveScore");
    QTest::addColumn<int>("source");

    QTest::newRow("80 % of an ungraded 20-point item") << -1.0 << 20.0 << true << 16.0 << 1;
    QTest::newRow("a 0-possible item gets nothing") << -1.0 << 0.0 << true << -1.0 << 0;
    QTest::newRow("a graded item keeps its score") << 7.0 << 20.0 << true << 7.0 << 0;
    QTest::newRow("mode off: nothing given") << -1.0 << 20.0 << false << -1.0 << 0;
}

void TestGradeCalculation::scoreToGive()
{
    QFETCH(double, score);
    QFETCH(double, possible);
    QFETCH(bool, active);
    QFETCH(double, effectiveScore);
    QFETCH(int, source);

    const quint32 courseId = MakeCourse(0, {{0.0, 0, {{score, possible}}}});
    CourseTypeList types;
    LoadCourseTypes(courseId, types);
    CPredictionStore::Instance().SetActive(true);
    CPredictionStore::Instance().SetScoreToGive(types[0].first, 0.8);
    CPredictionStore::Instance().SetActive(active);
    if (!active) // switching off empties the store; give it again to prove the mode matters
        CPredictionStore::Instance().SetScoreToGive(types[0].first, 0.8);

    CCourseworkTable coursework;
    coursework.Open();
    QVERIFY(coursework.MoveFirst(1));
    const EffectiveScore e = GetEffectiveScore(coursework);
    QCOMPARE(e.score, effectiveScore);
    QCOMPARE(e.possible, possible);
    QCOMPARE(e.source, source);
    CPredictionStore::Instance().Clear();
}

void TestGradeCalculation::displayedPercent_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<QString>("text");

    QTest::newRow("rounded up to the next hundredth") << 0.87341 << QStringLiteral("87.35");
    QTest::newRow("0.87654") << 0.87654 << QStringLiteral("87.66");
    QTest::newRow("0.57 stays 57") << 0.57 << QStringLiteral("57");
    QTest::newRow("above 100 cut to its whole part") << 1.05 << QStringLiteral("105");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0");
}

void TestGradeCalculation::displayedPercent()
{
    QFETCH(double, fraction);
    QFETCH(QString, text);
    QCOMPARE(GradeText::NumberToText(GradeText::PercentOfCut(fraction)), text);
}

void TestGradeCalculation::numberToText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("0") << 0.0 << QStringLiteral("0");
    QTest::newRow("whole") << 3.0 << QStringLiteral("3");
    QTest::newRow("fraction") << 87.5 << QStringLiteral("87.5");
    QTest::newRow("six places at most") << 1.0 / 3.0 << QStringLiteral("0.333333");
}

void TestGradeCalculation::numberToText()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(GradeText::NumberToText(value), text);
}

QTEST_GUILESS_MAIN(TestGradeCalculation)
#include "tst_gradecalculation.moc"
