#include "GpaCalculation.h"

#include "AppStateTable.h"
#include "CeDBProp.h"
#include "CourseList.h"
#include "CourseOrderTable.h"
#include "CourseTable.h"
#include "GPAInfoTable.h"
#include "GradeCalculation.h"
#include "GradeScaleTable.h"
#include "PredictionStore.h"
#include "store/GradeText.h"

#include <array>
#include <optional>

namespace {

// Grades above this number are never looked up; they earn nothing.
constexpr quint16 HighestScoredGrade = 11;

// Adds up grade points and hours course by course, as both GPA routines do.
class CGpaSum
{
public:
    explicit CGpaSum(bool weighted) : m_weighted(weighted)
    {
        m_course.Open();
        m_course.SetFilter(3, CCourseTable::PropCurrentGrade, CCourseTable::PropCourseHours,
                           CCourseTable::PropInMajor);
    }

    void Start(double points, double hours)
    {
        m_points = points;
        m_hours = hours;
    }

    void Add(quint32 courseId, bool inMajorOnly)
    {
        if (!m_course.MoveToRecord(courseId))
            return; // a dangling order row: nothing to count
        if (inMajorOnly && m_course.GetInMajor() == 0)
            return;
        // No grade yet, or one that is not a number (0/0): nothing to count.
        const double fraction = Grade(courseId);
        if (fraction < 0.0 || !GradeText::HasScore(fraction))
            return;
        const double points = Points(GetGradeIndex(courseId, fraction));
        if (!m_weighted) {
            m_points += points;
            m_hours += 1.0;
            return;
        }
        // Hours left empty (the no-value marker) count as none.
        const double hours = m_course.GetCourseHours() < 0.0 ? 0.0 : m_course.GetCourseHours();
        m_points += points * hours;
        m_hours += hours;
    }

    double Result() const { return m_hours == 0.0 ? -1.0 : m_points / m_hours; }

private:
    // GetCourseGrade, from the record already read.
    double Grade(quint32 courseId) const
    {
        const CPredictionStore& store = CPredictionStore::Instance();
        if (store.IsActive()) {
            if (const auto predicted = store.PredictedGrade(courseId))
                return *predicted;
        }
        return m_course.GetCurrentGrade();
    }

    // GetGradePoints, remembered for the length of one GPA.
    double Points(quint16 grade)
    {
        if (grade > HighestScoredGrade)
            return 0.0;
        auto& cached = m_points12[grade];
        if (!cached)
            cached = GetGradePoints(grade);
        return *cached;
    }

    bool m_weighted;
    CCourseTable m_course;
    std::array<std::optional<double>, HighestScoredGrade + 1> m_points12;
    double m_points = 0.0;
    double m_hours = 0.0;
};

} // namespace

double GetGradePoints(quint16 grade)
{
    if (grade > HighestScoredGrade)
        return 0.0;
    CGradeScaleTable scale;
    if (!scale.Open(0))
        return 0.0;
    CCeDBProp key;
    key.SetUInt16(grade);
    scale.SetSeekValue(&key, CDataTable::SeekValueEqual);
    scale.SetFilter(1, CGradeScaleTable::PropGradePoints);
    return scale.MoveFirst(1) ? scale.GetGradePoints() : 0.0;
}

double GetSemesterGPA(bool weightedByCourseHours, bool inMajorOnly)
{
    const quint32 semesterId = CAppStateTable::Instance().GetCurrentSemesterID();
    CGpaSum sum(weightedByCourseHours);
    for (quint32 courseId : GetSemesterCourses(semesterId))
        sum.Add(courseId, inMajorOnly);
    return sum.Result();
}

double GetCumulativeGPA(bool weightedByCourseHours)
{
    CGpaSum sum(weightedByCourseHours);
    {
        CGPAInfoTable info;
        if (info.Open() && info.MoveFirst(1) && info.GetTotalPastHours() > 0.0)
            sum.Start(info.GetTotalPastPoints(), info.GetTotalPastHours());
    }
    // Every course of every semester, archived ones included, in store order.
    CCourseOrderTable order;
    if (order.Open()) {
        order.SetFilter(1, CCourseOrderTable::PropCourseID);
        for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
            sum.Add(order.GetCourseID(), false);
    }
    return sum.Result();
}
