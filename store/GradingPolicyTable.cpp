#include "GradingPolicyTable.h"

#include "Schema.h"

CGradingPolicyTable::CGradingPolicyTable() : CDataTable(BrindleSchema::GradingPolicy) {}

#include "CeDBProp.h"

CGradingPolicyTable::Weighting CGradingPolicyTable::GetWeightingFromCourseID(quint32 courseId)
{
    CGradingPolicyTable table;
    if (!table.Open(0))
        return WeightNone;
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, SeekValueEqual);
    return table.MoveFirst(1) ? table.GetWeightType() : WeightNone;
}
