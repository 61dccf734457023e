#include "CourseworkListFill.h"

#include "BrindleData.h"
#include "grading/GradeCalculation.h"

#include <algorithm>

CourseworkFilter CourseworkFilter::FromState(const QDateTime& now)
{
    const CAppStateTable& state = CAppStateTable::Instance();
    CourseworkFilter filter;
    filter.tab = state.GetCurrentTabID();
    filter.courseId = state.GetCurrentCourseID();
    filter.cwTypeId = state.GetViewTabCwType();
    filter.dueBy = state.GetViewTabDueBy();
    filter.showDone = state.GetShowDone() != 0;
    filter.now = now;
    return filter;
}

std::pair<double, double> DueWindow(CViewTabTable::ViewTabIDs tab, const QDate& today, double dueBy)
{
    const double first = BrindleDate::WholeDays(BrindleDate::MinDate());
    const double last = BrindleDate::WholeDays(BrindleDate::MaxDate());
    const double day = BrindleDate::FromDate(today);
    switch (tab) {
    case CViewTabTable::PastDueTab:
        return {first, day};
    case CViewTabTable::CourseWeekTab: {
        // Sunday is day 1: from this week's Sunday to the next one, eight days.
        const int dayOfWeek = today.dayOfWeek() % 7 + 1;
        return {day - (dayOfWeek - 1), day + (8 - dayOfWeek)};
    }
    case CViewTabTable::DueByTab:
        return {first, BrindleDate::WholeDays(dueBy)};
    default:
        return {first, last};
    }
}

namespace {

// Appends the rows of one course, sorted; false when it has none to list.
bool AddCourseRows(CCourseworkTable& table, quint32 courseId, const CourseworkFilter& filter,
                   const std::pair<double, double>& window, double now,
                   std::vector<CourseworkRow>& rows)
{
    const bool byType = filter.tab == CViewTabTable::CwTypeTab && filter.courseId != AllCoursesID;
    const size_t start = rows.size();

    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
        const quint16 completed = table.GetCompleted();
        if (!filter.showDone && completed >= 100)
            continue;
        if (byType && table.GetCwTypeID() != filter.cwTypeId)
            continue;
        const double due = table.GetDueDate();
        const double dueDay = BrindleDate::WholeDays(due);
        if (dueDay < window.first || dueDay > window.second)
            continue;

        const EffectiveScore score = GetEffectiveScore(table);
        CourseworkRow row;
        row.text = table.GetCourseworkName();
        row.dueDate = due;
        row.completed = completed;
        row.courseId = courseId;
        row.courseworkId = table.GetRecordID();
        row.score = score.score;
        row.possible = score.possible;
        row.scoreSource = score.source;
        row.overdue = completed < 100 && due < now;
        rows.push_back(std::move(row));
    }

    std::stable_sort(
        rows.begin() + static_cast<std::ptrdiff_t>(start), rows.end(),
        [](const CourseworkRow& a, const CourseworkRow& b) { return a.dueDate < b.dueDate; });
    return rows.size() > start;
}

} // namespace

std::vector<CourseworkRow> FillCourseworkRows(const CourseworkFilter& filter)
{
    std::vector<CourseworkRow> rows;
    CCourseworkTable table;
    if (!table.Open(0))
        return rows;
    // Only what a row shows and the score calculation reads.
    table.SetFilter(6, CCourseworkTable::PropCourseworkName, CCourseworkTable::PropCwTypeID,
                    CCourseworkTable::PropDueDate, CCourseworkTable::PropScore,
                    CCourseworkTable::PropPossible, CCourseworkTable::PropCompleted);

    const auto window = DueWindow(filter.tab, filter.now.date(), filter.dueBy);
    const double now = BrindleDate::FromDateTime(filter.now);

    if (filter.courseId != AllCoursesID) {
        AddCourseRows(table, filter.courseId, filter, window, now, rows);
        return rows;
    }

    CCourseTable courses;
    if (!courses.Open())
        return rows;
    courses.SetFilter(1, CCourseTable::PropCourseName);
    for (quint32 courseId : GetSemesterCourses()) {
        if (!courses.MoveToRecord(courseId))
            continue;
        CourseworkRow header;
        header.isHeader = true;
        header.text = courses.GetCourseName();
        header.courseId = courseId;
        rows.push_back(std::move(header));
        if (!AddCourseRows(table, courseId, filter, window, now, rows))
            rows.pop_back();
    }
    return rows;
}
