#include "EditorRecords.h"
#include "editors/CourseRemoval.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

using namespace EditorRecords;

// The course removal cascade: everything of the course goes, everything of
// other courses and every Outlook link stays.
class TestCourseRemoval : public QObject
{
    Q_OBJECT

private slots:
    void removesEveryRowOfTheCourseOnly();
    void currentCourse_data();
    void currentCourse();
    void missingCourseIsPassedOver();

private:
    // A course with a row in each of the ten tables; returns its coursework id.
    static quint32 FillCourse(quint32 courseId, quint32 instructorId);
};

quint32 TestCourseRemoval::FillCourse(quint32 courseId, quint32 instructorId)
{
    Time(courseId, CTimeTable::Monday | CTimeTable::Wednesday);
    Textbook(courseId, QStringLiteral("Reader"), 0);
    Link(courseId, instructorId);
    const quint32 type = Records::CwType(courseId, QStringLiteral("Homework"));
    Records::Policy(courseId, CGradingPolicyTable::WeightByType);
    Records::MinimumPercent(courseId, 0, 90.0);
    return Records::Coursework(courseId, type, QStringLiteral("Essay"));
}

void TestCourseRemoval::removesEveryRowOfTheCourseOnly()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 shared = Instructor(QStringLiteral("Dr. Vale"));
    const quint32 doomed = Records::Course(QStringLiteral("Botany"));
    const quint32 kept = Records::Course(QStringLiteral("Zoology"));
    const quint32 doomedWork = FillCourse(doomed, shared);
    const quint32 keptWork = FillCourse(kept, shared);
    OutlookLink(doomedWork, 501, COutlookTable::olTaskItem);
    OutlookLink(keptWork, 502, COutlookTable::olTaskItem);
    OutlookLink(shared, 503, COutlookTable::olContactItem);

    RemoveCourse(doomed);

    const struct
    {
        const char* table;
        const char* column;
    } perCourse[] = {
        {"Course", "id"},
        {"Time", "ForeignRecordID"},
        {"Textbook", "CourseID"},
        {"TextbookOrder", "CourseID"},
        {"CourseInstructor", "CourseID"},
        {"Coursework", "CourseID"},
        {"CwType", "CourseID"},
        {"CwTypeOrder", "CourseID"},
        {"GradingPolicyGrade", "CourseID"},
        {"GradingPolicy", "CourseID"},
        {"CourseOrder", "CourseID"},
    };
    for (const auto& rows : perCourse) {
        QVERIFY2(CountWhere(rows.table, rows.column, doomed) == 0, rows.table);
        QVERIFY2(CountWhere(rows.table, rows.column, kept) == 1, rows.table);
    }
    // The shared instructor and the other course's link stay; so do all links.
    QCOMPARE(Records::Count("Instructor"), 1);
    QCOMPARE(CountWhere("CourseInstructor", "InstructorID", shared), 1);
    QCOMPARE(Records::Count("OutlookLink"), 3);
    QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", doomedWork), 1);
}

void TestCourseRemoval::currentCourse_data()
{
    QTest::addColumn<bool>("removeCurrent");
    QTest::newRow("the current course goes: All Courses") << true;
    QTest::newRow("another course goes: current course kept") << false;
}

void TestCourseRemoval::currentCourse()
{
    QFETCH(bool, removeCurrent);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 first = Records::Course(QStringLiteral("Botany"));
    const quint32 second = Records::Course(QStringLiteral("Zoology"));
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentCourseID(first);
    state.UpdateRecord();

    RemoveCourse(removeCurrent ? first : second);

    const quint32 expected = removeCurrent ? AllCoursesID : first;
    QCOMPARE(state.GetCurrentCourseID(), expected);
    // Written, not only changed in memory.
    QVERIFY(db.Reopen());
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), expected);
}

void TestCourseRemoval::missingCourseIsPassedOver()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    Time(course, CTimeTable::Friday);
    const QStringList before = DumpAll();
    RemoveCourse(course + 1000);
    QCOMPARE(DumpAll(), before);

    // Rows left behind by a course already gone are still cleared.
    {
        CCourseTable table;
        table.Open();
        QVERIFY(table.MoveToRecord(course));
        table.DeleteRecord(0);
    }
    RemoveCourse(course);
    QCOMPARE(CountWhere("Time", "ForeignRecordID", course), 0);
    QCOMPARE(CountWhere("CourseOrder", "CourseID", course), 0);
}

QTEST_MAIN(TestCourseRemoval)
#include "tst_courseremoval.moc"
