// The demo database: the sizes the benchmark asks for, and that the default
// one looks like a real student's (graded, open, done and overdue items,
// grades computed, what the editors show).
#include "BrindleData.h"
#include "app/CourseworkListFill.h"
#include "app/DemoDatabase.h"
#include "support/DatabaseTest.h"
#include "support/Records.h"

#include <QtTest>

class TestDemo : public DatabaseTest
{
    Q_OBJECT

private slots:
    void sizes_data()
    {
        QTest::addColumn<DemoSize>("size");
        QTest::newRow("default") << DemoSize();
        QTest::newRow("uneven split") << DemoSize{4, 11, 301, 3, 40};
        QTest::newRow("no archive") << DemoSize{1, 2, 10, 2, 10};
    }
    void sizes()
    {
        QFETCH(DemoSize, size);
        const QDate today(2024, 10, 9);
        QVERIFY(BuildDemoDatabase(today, size));
        QCOMPARE(CAppStateTable::Instance().GetCurrentSemesterID(), WorkingSemesterID);
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), AllCoursesID);
        QCOMPARE(Records::Count("Semester"), size.semesters - 1);
        QCOMPARE(Records::Count("Course"), size.courses);
        QCOMPARE(Records::Count("Coursework"), size.coursework);
        const std::vector<quint32> working = GetSemesterCourses(WorkingSemesterID);
        QCOMPARE(working.size(), size_t(size.workingCourses));

        CourseworkFilter filter;
        filter.courseId = AllCoursesID;
        filter.showDone = true;
        filter.now = QDateTime(today, QTime(12, 0));
        int items = 0, graded = 0, overdue = 0, done = 0;
        for (const CourseworkRow& row : FillCourseworkRows(filter)) {
            items += !row.isHeader;
            graded += !row.isHeader && row.score >= 0.0;
            overdue += row.overdue;
            done += !row.isHeader && row.completed >= 100;
        }
        QCOMPARE(items, size.workingCoursework);
        if (QTest::currentDataTag() != QByteArrayLiteral("default"))
            return;
        QVERIFY(graded > 5 && items - graded > 5 && done > 5 && overdue >= 1);
        // Every working course graded between 50 and 100 %, in a building, with hours.
        QCOMPARE(CDataTable::GetMount()->Scalar(
                     "SELECT count(*) FROM Course JOIN CourseOrder ON CourseID = Course.id "
                     "WHERE SemesterID = 0 AND CurrentGrade > 0.5 AND CurrentGrade <= 1.0 AND "
                     "BuildingID <> 0 AND CourseHours > 0"),
                 qint64(working.size()));
        QVERIFY(Records::Count("CourseInstructor") >= 9);
        QVERIFY(Records::Count("Textbook") >= 9);
        QVERIFY(Records::Count("Time") >= 9 + 5); // meeting times and office hours
    }
};

QTEST_GUILESS_MAIN(TestDemo)
#include "tst_demo.moc"
