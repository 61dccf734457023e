#include "GradingPolicyGradeTable.h"

#include "Schema.h"

CGradingPolicyGradeTable::CGradingPolicyGradeTable() : CDataTable(BrindleSchema::GradingPolicyGrade)
{
}
