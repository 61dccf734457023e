// How fast the grade planner answers on the largest course of the generated
// database (the one bench_mainview uses): every grade's "what do I need",
// the best and the worst case. Goal: under 5 ms. Prints medians; build it in
// Release.
#include "BenchSupport.h"
#include "grading/GradePlanner.h"

#include <QHash>

namespace {

// The course with the most coursework.
std::pair<quint32, int> LargestCourse()
{
    QHash<quint32, int> counts;
    CCourseworkTable coursework;
    if (coursework.Open()) {
        coursework.SetFilter(1, CCourseworkTable::PropCourseID);
        for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1))
            ++counts[coursework.GetCourseID()];
    }
    std::pair<quint32, int> largest{0, 0};
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > largest.second)
            largest = {it.key(), it.value()};
    }
    return largest;
}

// Answers what the planner dialog shows for a course.
int Plan(quint32 courseId)
{
    CGradePlanner planner(courseId);
    int answered = 0;
    for (const CGradePlanner::Need& need : planner.Needs())
        answered += need.status == CGradePlanner::Need::Reachable;
    return answered + (planner.BestCase() > planner.WorstCase());
}

} // namespace

int main(int argc, char* argv[])
{
    const BenchSupport::GeneratedApp generated(argc, argv);
    if (!generated.Ok())
        return 1;

    const auto [courseId, count] = LargestCourse();
    int answered = Plan(courseId); // warms the statement and page caches
    const double plan = BenchSupport::MedianMs(41, [&] { answered = Plan(courseId); });
    std::printf("grade_planner_largest_course: median_ms=%.3f goal_ms=5 (%d coursework, %d "
                "grades to work for)\n",
                plan, count, answered);

    // The same course with a drop per type: the grade can then fall where
    // the percent rises, and the planner tries every percent.
    {
        CTransaction transaction;
        CourseTypeList types;
        LoadCourseTypes(courseId, types);
        CCwTypeTable type;
        type.Open();
        for (const auto& entry : types) {
            if (type.MoveToRecord(entry.first)) {
                type.SetDrops(1);
                type.UpdateRecord();
            }
        }
        transaction.Commit();
    }
    const double withDrops = BenchSupport::MedianMs(11, [&] { answered = Plan(courseId); });
    std::printf("grade_planner_largest_course_with_drops: median_ms=%.3f (every percent tried)\n",
                withDrops);

    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    return 0;
}
