#include "SemesterTable.h"

#include "Schema.h"

CSemesterTable::CSemesterTable() : CDataTable(BrindleSchema::Semester) {}
