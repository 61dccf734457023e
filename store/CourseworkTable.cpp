#include "CourseworkTable.h"

#include "Schema.h"

CCourseworkTable::CCourseworkTable() : CDataTable(BrindleSchema::Coursework) {}

void CCourseworkTable::InitializeNewRecordPropArray()
{
    SetDefault(PropScore, -1.0);
    SetDefault(PropPossible, -1.0);
}
