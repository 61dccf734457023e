#include "TimeTable.h"

#include "Schema.h"

CTimeTable::CTimeTable() : CDataTable(BrindleSchema::Time) {}
