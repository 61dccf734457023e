// The demo database: what a new user sees, and the sizes the benchmark asks for.
#include "BrindleData.h"
#include "app/CourseworkListFill.h"
#include "app/DemoDatabase.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

    void demoLooksAlive();
    void sizes_data();
    void sizes();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestDemo::demoLooksAlive()
{
    const QDate today(2024, 10, 9);
    QVERIFY(BuildDemoDatabase(today));
    const CAppStateTable& state = CAppStateTable::Instance();
    QCOMPARE(state.GetCurrentSemesterID(), WorkingSemesterID);
    QCOMPARE(state.GetCurrentCourseID(), AllCoursesID);

    const std::vector<quint32> working = GetSemesterCourses(WorkingSemesterID);
    QCOMPARE(working.size(), size_t(5));
    QCOMPARE(Records::Count("Semester"), 1);

    int graded = 0, ungraded = 0, overdue = 0, done = 0;
    CourseworkFilter filter;
    filter.courseId = AllCoursesID;
    filter.showDone = true;
    filter.now = QDateTime(today, QTime(12, 0));
    for (const CourseworkRow& row : FillCourseworkRows(filter)) {
        if (row.isHeader)
            continue;
        graded += row.score >= 0.0;
        ungraded += row.score < 0.0;
        overdue += row.overdue;
        done += row.completed >= 100;
    }
    QVERIFY(graded > 5);
    QVERIFY(ungraded > 5);
    QVERIFY(overdue >= 1);
    QVERIFY(done > 5);

    // Grades are computed from the scores, and every course has what the editors show.
    CCourseTable course;
    QVERIFY(course.Open());
    for (quint32 id : working) {
        QVERIFY(course.MoveToRecord(id));
        QVERIFY2(course.GetCurrentGrade() > 0.5 && course.GetCurrentGrade() <= 1.0,
                 qPrintable(course.GetCourseName()));
        QVERIFY(course.GetBuildingID() != 0);
        QVERIFY(course.GetCourseHours() > 0.0);
    }
    QVERIFY(Records::Count("Instructor") >= 5);
    QVERIFY(Records::Count("CourseInstructor") >= 9);
    QVERIFY(Records::Count("Textbook") >= 9);
    // Meeting times of the courses and office hours of the instructors.
    QVERIFY(Records::Count("Time") >= 9 + 5);
    QVERIFY(Records::Count("CwType") >= 4 * 9);
}

void TestDemo::sizes_data()
{
    QTest::addColumn<int>("semesters");
    QTest::addColumn<int>("courses");
    QTest::addColumn<int>("coursework");
    QTest::addColumn<int>("workingCourses");
    QTest::addColumn<int>("workingCoursework");
    QTest::newRow("uneven split") << 4 << 11 << 301 << 3 << 40;
    QTest::newRow("no archive") << 1 << 2 << 10 << 2 << 10;
}

void TestDemo::sizes()
{
    QFETCH(int, semesters);
    QFETCH(int, courses);
    QFETCH(int, coursework);
    QFETCH(int, workingCourses);
    QFETCH(int, workingCoursework);
    QVERIFY(BuildDemoDatabase(QDate(2024, 10, 9), DemoSize{semesters, courses, coursework,
                                                           workingCourses, workingCoursework}));
    QCOMPARE(Records::Count("Semester"), semesters - 1);
    QCOMPARE(Records::Count("Course"), courses);
    QCOMPARE(Records::Count("Coursework"), coursework);
    QCOMPARE(GetSemesterCourses(WorkingSemesterID).size(), size_t(workingCourses));

    CourseworkFilter filter;
    filter.courseId = AllCoursesID;
    filter.showDone = true;
    filter.now = QDateTime(QDate(2024, 10, 9), QTime(12, 0));
    const auto rows = FillCourseworkRows(filter);
    const auto items =
        std::count_if(rows.begin(), rows.end(), [](const CourseworkRow& r) { return !r.isHeader; });
    QCOMPARE(static_cast<int>(items), workingCoursework);
}

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
