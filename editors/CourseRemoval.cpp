#include "CourseRemoval.h"

#include "BrindleData.h"
#include "CourseList.h"
#include "Transaction.h"

namespace {

// Deletes every row of the table whose key in the sort order is the course id.
template <typename Table> void DeleteRows(quint16 sortOrder, quint32 courseId)
{
    Table table;
    if (!table.Open(sortOrder))
        return;
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        table.DeleteRecord(0);
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
    DeleteRows<CTimeTable>(0, courseId);
    DeleteRows<CTextbookTable>(0, courseId);
    DeleteRows<CTextbookOrderTable>(1, courseId);
    DeleteRows<CCourseInstructorTable>(1, courseId);
    DeleteRows<CCourseworkTable>(1, courseId);
    DeleteRows<CCwTypeTable>(0, courseId);
    DeleteRows<CCwTypeOrderTable>(1, courseId);
    DeleteRows<CGradingPolicyGradeTable>(0, courseId);
    DeleteRows<CGradingPolicyTable>(0, courseId);
    DeleteRows<CCourseOrderTable>(1, courseId);

    CAppStateTable& state = CAppStateTable::Instance();
    if (state.GetCurrentCourseID() == courseId) {
        state.SetCurrentCourseID(AllCoursesID);
        state.UpdateRecord();
    }
    transaction.Commit();
}
