#include "CourseList.h"

#include "AppStateTable.h"
#include "CourseOrderTable.h"

#include <algorithm>

std::vector<quint32> GetSemesterCourses(qint64 semesterId)
{
    const quint32 semester = semesterId < 0 ? CAppStateTable::Instance().GetCurrentSemesterID()
                                            : static_cast<quint32>(semesterId);
    struct Entry
    {
        quint32 courseId;
        qint16 position;
    };
    std::vector<Entry> entries;

    CCourseOrderTable table;
    if (table.Open(2)) {
        const CCeDBProp key(semester);
        table.SetSeekValue(&key, CDataTable::SeekValueEqual);
        for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
            entries.push_back(
                {table.GetCourseID(), static_cast<qint16>(table.GetCoursePosition())});
        table.Close();
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.position < b.position; });

    std::vector<quint32> ids;
    ids.reserve(entries.size());
    for (const Entry& entry : entries)
        ids.push_back(entry.courseId);
    return ids;
}
