#include "InstructorTable.h"

#include "Schema.h"

CInstructorTable::CInstructorTable() : CDataTable(BrindleSchema::Instructor) {}
