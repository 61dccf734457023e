#include "CourseRemoval.h"

#include "BrindleData.h"
#include "CourseList.h"
#include "TableWalk.h"
#include "Transaction.h"

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
