#include "CourseRemoval.h"

#include "BrindleData.h"
#include "CourseList.h"
#include "Transaction.h"

namespace {

// Deletes every row of the table whose key in the sort order is the course
// id; false when a read or a delete failed.
template <typename Table> bool DeleteRows(quint16 sortOrder, quint32 courseId)
{
    Table table;
    if (!table.Open(sortOrder))
        return false;
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        if (!table.DeleteRecord(0))
            return false;
    return !table.ReadFailed();
}

} // namespace

bool RemoveCourse(quint32 courseId)
{
    CTransaction transaction;

    {
        CCourseTable course;
        if (!course.Open())
            return false;
        if (course.MoveToRecord(courseId) && !course.DeleteRecord(0))
            return false;
        if (course.ReadFailed())
            return false;
    }

    // In this order; each by its course-id sort order. One failed step and
    // the whole removal is rolled back.
    if (!DeleteRows<CTimeTable>(0, courseId) || !DeleteRows<CTextbookTable>(0, courseId) ||
        !DeleteRows<CTextbookOrderTable>(1, courseId) ||
        !DeleteRows<CCourseInstructorTable>(1, courseId) ||
        !DeleteRows<CCourseworkTable>(1, courseId) || !DeleteRows<CCwTypeTable>(0, courseId) ||
        !DeleteRows<CCwTypeOrderTable>(1, courseId) ||
        !DeleteRows<CGradingPolicyGradeTable>(0, courseId) ||
        !DeleteRows<CGradingPolicyTable>(0, courseId) ||
        !DeleteRows<CCourseOrderTable>(1, courseId))
        return false;

    // Changed in memory here, and read back from the file should the
    // transaction not land (the transaction scope does that).
    CAppStateTable& state = CAppStateTable::Instance();
    if (state.GetCurrentCourseID() == courseId) {
        state.SetCurrentCourseID(AllCoursesID);
        if (!state.UpdateRecord())
            return false;
    }
    return transaction.Commit() != 0;
}
