#include "DueList.h"

#include "BrindleData.h"
#include "res/strings/TodayStrings.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

// The table walk answers "no record" both for an empty result and for a
// failed read; the connection's last result tells the two apart.
bool LastReadFailed()
{
    sqlite3* db = CDataTable::GetMount()->Handle();
    const int code = sqlite3_errcode(db);
    return code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW;
}

} // namespace

int CDueList::Read(const QDateTime& now, int days)
{
    m_items.clear();
    m_error.clear();
    if (!CDataTable::GetMount()->IsMounted()) {
        m_error = TodayStrings::NoDatabase();
        return 0;
    }
    const double nowValue = BrindleDate::FromDateTime(now);
    // The window ends with the last day it names, not 24 hours times `days`
    // after this moment: "due this week" includes all of the seventh day.
    const double end = BrindleDate::FromDate(now.date().addDays(std::max(days, 0) + 1));

    const std::vector<quint32> courses = GetSemesterCourses(WorkingSemesterID);
    if (courses.empty() && LastReadFailed()) {
        m_error = TodayStrings::ReadFailed();
        return 0;
    }
    for (const quint32 courseId : courses) {
        const QString courseName = CCourseTable::GetCourseNameFromID(courseId);
        CCourseworkTable table;
        if (!table.Open(0)) {
            m_error = TodayStrings::ReadFailed();
            return 0;
        }
        table.SetFilter(4, CCourseworkTable::PropCourseworkName, CCourseworkTable::PropDueDate,
                        CCourseworkTable::PropCompleted, CCourseworkTable::PropCourseID);
        const CCeDBProp key(courseId);
        table.SetSeekValue(&key, CDataTable::SeekValueEqual);
        int more = table.MoveFirst(1);
        if (!more && LastReadFailed()) {
            m_error = TodayStrings::ReadFailed();
            return 0;
        }
        for (; more; more = table.MoveNext(1)) {
            const double due = table.GetDueDate();
            if (table.GetCompleted() >= 100 || due >= end)
                continue;
            DueItem item;
            item.courseworkId = table.GetRecordID();
            item.name = table.GetCourseworkName();
            item.course = courseName;
            item.dueValue = due;
            item.due = BrindleDate::ToDateTime(due);
            item.completed = table.GetCompleted();
            item.pastDue = due < nowValue;
            m_items.push_back(std::move(item));
        }
        table.Close();
    }
    // Earliest first puts past due in front; equal times keep course order.
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const DueItem& a, const DueItem& b) { return a.dueValue < b.dueValue; });
    return 1;
}
