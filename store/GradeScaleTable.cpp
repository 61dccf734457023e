#include "GradeScaleTable.h"

#include "Schema.h"

CGradeScaleTable::CGradeScaleTable() : CDataTable(BrindleSchema::GradeScale) {}

QString CGradeScaleTable::GetGradeNameFromGrade(quint16 grade)
{
    CGradeScaleTable table;
    if (!table.Open(0))
        return {};
    CCeDBProp key;
    key.SetUInt16(grade);
    table.SetSeekValue(&key, SeekValueEqual);
    return table.MoveFirst(1) ? table.GetGradeName() : QString();
}
