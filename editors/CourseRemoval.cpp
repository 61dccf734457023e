#include "CourseRemoval.h"

#include "BrindleData.h"
#include "CourseList.h"
#include "Transaction.h"

namespace {

// Deletes every row of the table whose key in the sort order is the course id.
void DeleteRows(CDataTable& table, quint16 sortOrder, quint32 courseId)
{
    if (!table.Open(sortOrder))
        return;
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        table.DeleteRecord(0);
    table.Close();
}

} // namespace

void RemoveCourse(quint32 courseId)
{
    CTransaction transaction;

    {
        CCourseTable course;
        if (course.Open() && course.MoveToRecord(courseId))
            course.DeleteRecord(0);
    }

    // In this order; each by its course-id sort order.
    {
        CTimeTable table;
        DeleteRows(table, 0, courseId);
    }
    {
        CTextbookTable table;
        DeleteRows(table, 0, courseId);
    }
    {
        CTextbookOrderTable table;
        DeleteRows(table, 1, courseId);
    }
    {
        CCourseInstructorTable table;
        DeleteRows(table, 1, courseId);
    }
    {
        CCourseworkTable table;
        DeleteRows(table, 1, courseId);
    }
    {
        CCwTypeTable table;
        DeleteRows(table, 0, courseId);
    }
    {
        CCwTypeOrderTable table;
        DeleteRows(table, 1, courseId);
    }
    {
        CGradingPolicyGradeTable table;
        DeleteRows(table, 0, courseId);
    }
    {
        CGradingPolicyTable table;
        DeleteRows(table, 0, courseId);
    }
    {
        CCourseOrderTable table;
        DeleteRows(table, 1, courseId);
    }

    CAppStateTable& state = CAppStateTable::Instance();
    if (state.GetCurrentCourseID() == courseId) {
        state.SetCurrentCourseID(AllCoursesID);
        state.UpdateRecord();
    }
    transaction.Commit();
}
