#include "DatabaseClear.h"

#include "BrindleData.h"
#include "DatabaseVolume.h"
#include "editors/CourseRemoval.h"
#include "res/strings/DatabaseStrings.h"

#include <sqlite3.h>

#include <vector>

namespace DatabaseClear {

namespace {

// The course of every course order record, read before any is removed.
std::vector<quint32> AllCourses()
{
    std::vector<quint32> courses;
    CCourseOrderTable order;
    if (!order.Open())
        return courses;
    order.SetFilter(1, CCourseOrderTable::PropCourseID);
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
        courses.push_back(order.GetCourseID());
    return courses;
}

// How many course order records are left; -1 when that cannot be read.
qint64 CourseOrderCount()
{
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement("SELECT count(*) FROM CourseOrder");
    if (!stmt)
        return -1;
    const qint64 count = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int64(stmt, 0) : -1;
    sqlite3_reset(stmt);
    return count;
}

MaintenanceResult RemoveEveryCourse()
{
    CTransaction transaction;
    bool removed = true;
    for (quint32 courseId : AllCourses()) {
        if (!RemoveCourse(courseId)) {
            removed = false;
            break;
        }
    }
    // A course left behind also means a removal failed; the scope then rolls back.
    if (removed && CourseOrderCount() == 0 && transaction.Commit())
        return MaintenanceResult::Done();
    QString reason = CTransaction::LastFailure();
    if (reason.isEmpty())
        reason = QString::fromUtf8(sqlite3_errmsg(CDataTable::GetMount()->Handle()));
    return MaintenanceResult::Failed(DatabaseStrings::CannotWriteFile(GetDatabasePath(), reason));
}

} // namespace

MaintenanceResult Clear()
{
    // The state is open during the work so that the removal of the current
    // course moves it to "All Courses", as it always does.
    MaintenanceResult result = DatabaseVolume::Reopen();
    if (!result.ok)
        return result;
    result = RemoveEveryCourse();
    DatabaseVolume::Release();
    return result;
}

} // namespace DatabaseClear
