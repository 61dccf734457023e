#include "CourseInstructorTable.h"

#include "Schema.h"

CCourseInstructorTable::CCourseInstructorTable() : CDataTable(BrindleSchema::CourseInstructor) {}
