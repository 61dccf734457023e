#include "CourseTable.h"

#include "Schema.h"

CCourseTable::CCourseTable() : CDataTable(BrindleSchema::Course) {}

void CCourseTable::InitializeNewRecordPropArray()
{
    // No grade yet, and no hours given (the value an empty numeric field reads as).
    SetDefault(PropCurrentGrade, -1.0);
    SetDefault(PropCourseHours, -999.0);
}

QString CCourseTable::GetCourseNameFromID(quint32 id)
{
    CCourseTable table;
    if (!table.Open())
        return {};
    table.SetFilter(1, PropCourseName);
    return table.MoveToRecord(id) ? table.GetCourseName() : QString();
}
