#include "CourseOrderTable.h"

#include "Schema.h"

CCourseOrderTable::CCourseOrderTable() : CDataTable(BrindleSchema::CourseOrder) {}
