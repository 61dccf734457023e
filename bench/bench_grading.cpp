// Times the grade of a large course and the cumulative GPA of many courses,
// each on a temporary database the benchmark fills itself. Prints medians.
#include "BenchSupport.h"
#include "grading/Grading.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

quint32 NewCourse(quint32 semesterId, quint16 position, double grade, double hours)
{
    CCourseTable course;
    course.Open();
    course.NewRecord(0);
    course.SetCourseName(QStringLiteral("Course %1").arg(position));
    course.SetCurrentGrade(grade);
    course.SetCourseHours(hours);
    course.SetInMajor(position % 2);
    course.UpdateRecord();
    const quint32 id = course.GetRecordID();
    CCourseOrderTable order;
    order.Open();
    order.NewRecord(0);
    order.SetSemesterID(semesterId);
    order.SetCourseID(id);
    order.SetCoursePosition(position);
    order.UpdateRecord();
    return id;
}

// 200 coursework in 8 types with drops, By Type weighting.
quint32 FillLargeCourse()
{
    CTransaction transaction;
    const quint32 courseId = NewCourse(0, 0, -1.0, 3.0);
    CreateDefaultGradingPolicy(courseId);
    {
        CGradingPolicyTable policy;
        policy.Open(0);
        const CCeDBProp key(courseId);
        policy.SetSeekValue(&key, CDataTable::SeekValueEqual);
        if (policy.MoveFirst(1)) {
            policy.SetWeightType(CGradingPolicyTable::WeightByType);
            policy.UpdateRecord();
        }
    }
    CCwTypeTable type;
    type.Open();
    CCwTypeOrderTable order;
    order.Open();
    CCourseworkTable coursework;
    coursework.Open();
    for (qint16 t = 0; t < 8; ++t) {
        type.NewRecord(0);
        type.SetCourseID(courseId);
        type.SetCwTypeName(QStringLiteral("Type %1").arg(t));
        type.SetWeight(1.0 + t);
        type.SetDrops(static_cast<quint16>(1 + t % 3));
        type.UpdateRecord();
        order.NewRecord(0);
        order.SetCourseID(courseId);
        order.SetCwTypeID(type.GetRecordID());
        order.SetCwTypePosition(static_cast<qint16>(t + 1));
        order.UpdateRecord();
        for (int i = 0; i < 25; ++i) {
            coursework.NewRecord(0);
            coursework.SetCourseID(courseId);
            coursework.SetCwTypeID(type.GetRecordID());
            coursework.SetCourseworkName(QStringLiteral("Item %1").arg(i));
            coursework.SetScore(i % 5 == 4 ? -1.0 : (i * 37 % 11) + 1.0);
            coursework.SetPossible(12.0);
            coursework.SetWeight(1.0);
            coursework.UpdateRecord();
        }
    }
    transaction.Commit();
    return courseId;
}

// 320 courses over 8 semesters, each with its default minima.
void FillManyCourses()
{
    CTransaction transaction;
    std::vector<quint32> semesters{0};
    for (int s = 1; s < 8; ++s) {
        CSemesterTable semester;
        semester.Open();
        semester.NewRecord(0);
        semester.SetSemesterName(QStringLiteral("Semester %1").arg(s));
        semester.UpdateRecord();
        semesters.push_back(semester.GetRecordID());
    }
    CGradingPolicyGradeTable minimum;
    minimum.Open();
    for (quint16 c = 0; c < 320; ++c) {
        const quint32 id = NewCourse(semesters[c % 8], c, (c * 7 % 50 + 50) / 100.0, 1.0 + c % 4);
        for (quint16 g = 0; g < 4; ++g) {
            minimum.NewRecord(0);
            minimum.SetCourseID(id);
            minimum.SetGrade(g);
            minimum.SetMinimumPercent(90.0 - 10.0 * g);
            minimum.UpdateRecord();
        }
    }
    transaction.Commit();
}

bool MountFresh(const QString& path)
{
    CAppStateTable::Instance().Close();
    CCeMount* mount = CDataTable::GetMount();
    mount->Unmount();
    SetDatabasePath(path);
    return mount->MountPath(path) && CreateDatabase() && CAppStateTable::Instance().OpenState();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    if (!dir.isValid())
        return 1;

    if (!MountFresh(dir.filePath(QStringLiteral("course.db"))))
        return 1;
    const quint32 courseId = FillLargeCourse();
    const double recompute = BenchSupport::MedianMs(21, [&] { RecomputeCourseGrade(courseId); });
    std::printf(
        "recompute_course_grade: median_ms=%.3f (200 coursework, 8 types with drops; grade %.4f)\n",
        recompute, GetCourseGrade(courseId));

    if (!MountFresh(dir.filePath(QStringLiteral("gpa.db"))))
        return 1;
    FillManyCourses();
    double gpa = 0.0;
    const double cumulative = BenchSupport::MedianMs(21, [&] { gpa = GetCumulativeGPA(true); });
    std::printf("cumulative_gpa: median_ms=%.3f (320 courses; GPA %.4f)\n", cumulative, gpa);

    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    return 0;
}
