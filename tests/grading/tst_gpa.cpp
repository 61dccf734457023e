// Grade points and the semester, in-major and cumulative GPAs: the -1.0
// sentinel, hours weighting, past hours and points, failing courses, archived
// semesters and predicted grades.
//
// Faults tried and caught: a course with no score (-1.0) counted as 0 points
// ("only ungraded courses", "archived courses count only cumulatively").
#include "GradingFixtures.h"
#include "grading/Grading.h"
#include "support/TestDatabase.h"

#include <QtTest>

#include <memory>

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

class TestGpa : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_db;

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

    void gradePoints_data()
    {
        QTest::addColumn<int>("grade");
        QTest::addColumn<double>("points");

        QTest::newRow("best grade") << 0 << 4.0;
        QTest::newRow("last grade") << 3 << 1.0;
        QTest::newRow("one past the scale") << 4 << 0.0;
        QTest::newRow("grade 11 is looked up") << 11 << 0.5;
        QTest::newRow("grade 12 earns 0 though the scale has it") << 12 << 0.0;
    }
    void gradePoints()
    {
        QFETCH(int, grade);
        QFETCH(double, points);

        CGradeScaleTable scale;
        scale.Open();
        for (quint16 g : {quint16(11), quint16(12)}) {
            scale.NewRecord(0);
            scale.SetGrade(g);
            scale.SetGradeName(QStringLiteral("X"));
            scale.SetGradePoints(0.5);
            scale.UpdateRecord();
        }
        QCOMPARE(GetGradePoints(static_cast<quint16>(grade)), points);
    }

    void gpa_data()
    {
        QTest::addColumn<GpaCourses>("courses");
        QTest::addColumn<double>("pastHours");
        QTest::addColumn<double>("pastPoints");
        QTest::addColumn<bool>("weighted");
        QTest::addColumn<double>("semester");
        QTest::addColumn<double>("inMajor");
        QTest::addColumn<double>("cumulative");

        const GpaCourses zeroHours{{0.95, 0}, {0.85, 0}};
        const GpaCourses aAndC{{0.95, 3}, {0.75, 1}};
        QTest::newRow("nothing at all")
            << GpaCourses{} << 0.0 << 0.0 << false << -1.0 << -1.0 << -1.0;
        QTest::newRow("only ungraded courses")
            << GpaCourses{{-1.0, 3}} << 0.0 << 0.0 << true << -1.0 << -1.0 << -1.0;
        QTest::newRow("ungraded courses beside graded ones")
            << GpaCourses{{-1.0, 3}, {0.85, 1}, {-1.0, 1, true, true}} << 0.0 << 0.0 << false << 3.0
            << 3.0 << 3.0;
        QTest::newRow("zero-hour courses, weighted")
            << zeroHours << 0.0 << 0.0 << true << -1.0 << -1.0 << -1.0;
        QTest::newRow("zero-hour courses, unweighted: the average")
            << zeroHours << 0.0 << 0.0 << false << 3.5 << 3.5 << 3.5;
        QTest::newRow("weighted by hours") << aAndC << 0.0 << 0.0 << true << 3.5 << 3.5 << 3.5;
        QTest::newRow("unweighted") << aAndC << 0.0 << 0.0 << false << 3.0 << 3.0 << 3.0;
        QTest::newRow("a failing course counts with 0 points")
            << GpaCourses{{0.95, 3}, {0.10, 1}} << 0.0 << 0.0 << true << 3.0 << 3.0 << 3.0;
        QTest::newRow("0 % counts")
            << GpaCourses{{0.95, 3}, {0.0, 1}} << 0.0 << 0.0 << false << 2.0 << 2.0 << 2.0;
        QTest::newRow("hours left empty count 0 when weighted")
            << GpaCourses{{0.95, -999.0}, {0.85, 2}} << 0.0 << 0.0 << true << 3.0 << 3.0 << 3.0;
        QTest::newRow("in major only") << GpaCourses{{0.95, 3, true}, {0.75, 3, false}} << 0.0
                                       << 0.0 << true << 3.0 << 4.0 << 3.0;
        QTest::newRow("past hours and points, weighted")
            << GpaCourses{{0.95, 2}} << 10.0 << 30.0 << true << 4.0 << 4.0 << 38.0 / 12.0;
        QTest::newRow("past hours and points, unweighted")
            << GpaCourses{{0.95, 2}} << 10.0 << 30.0 << false << 4.0 << 4.0 << 34.0 / 11.0;
        QTest::newRow("past points without past hours are ignored")
            << GpaCourses{{0.85, 2}} << 0.0 << 50.0 << true << 3.0 << 3.0 << 3.0;
        QTest::newRow("past alone") << GpaCourses{} << 4.0 << 14.0 << true << -1.0 << -1.0 << 3.5;
        QTest::newRow("archived courses count only cumulatively")
            << GpaCourses{{0.95, 1}, {0.65, 1, true, true}} << 0.0 << 0.0 << false << 4.0 << 4.0
            << 2.5;
    }
    void gpa()
    {
        QFETCH(GpaCourses, courses);
        QFETCH(double, pastHours);
        QFETCH(double, pastPoints);
        QFETCH(bool, weighted);
        QFETCH(double, semester);
        QFETCH(double, inMajor);
        QFETCH(double, cumulative);

        const quint32 archiveId = Records::Semester(QStringLiteral("Fall"));
        for (const GpaCourse& c : courses)
            Fixture::GradedCourse(QStringLiteral("Course"), c.grade, c.hours, c.inMajor,
                                  c.archived ? archiveId : WorkingSemesterID);
        CGPAInfoTable info;
        info.Open();
        if (!info.MoveFirst(1))
            info.NewRecord(0);
        info.SetTotalPastHours(pastHours);
        info.SetTotalPastPoints(pastPoints);
        info.UpdateRecord();

        QCOMPARE(GetSemesterGPA(weighted, false), semester);
        QCOMPARE(GetSemesterGPA(weighted, true), inMajor);
        QCOMPARE(GetCumulativeGPA(weighted), cumulative);
    }

    void semesterOnViewIsTheArchivedOne()
    {
        const quint32 archiveId = Records::Semester(QStringLiteral("Fall"));
        Fixture::GradedCourse(QStringLiteral("Now"), 0.95);
        Fixture::GradedCourse(QStringLiteral("Then"), 0.75, 3.0, true, archiveId);
        CAppStateTable::Instance().SetCurrentSemesterID(archiveId);
        QCOMPARE(GetSemesterGPA(true, false), 2.0);
        CAppStateTable::Instance().SetCurrentSemesterID(0);
        QCOMPARE(GetSemesterGPA(true, false), 4.0);
    }

    void predictedGradesCount()
    {
        const quint32 courseId = Fixture::GradedCourse(QStringLiteral("Course"), 0.95);
        CPredictionStore& store = CPredictionStore::Instance();
        store.SetActive(true);
        QCOMPARE(GetSemesterGPA(false, false), 4.0); // nothing predicted yet
        store.SetPredictedGrade(courseId, 0.72);
        QCOMPARE(GetSemesterGPA(false, false), 2.0);
        QCOMPARE(GetCumulativeGPA(false), 2.0);
        store.SetPredictedGrade(courseId, -1.0);
        QCOMPARE(GetCumulativeGPA(false), -1.0);
        store.SetActive(false);
        QCOMPARE(GetCumulativeGPA(false), 4.0);
    }
};

QTEST_GUILESS_MAIN(TestGpa)
#include "tst_gpa.moc"
