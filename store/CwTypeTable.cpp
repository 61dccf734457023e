#include "CwTypeTable.h"

#include "Schema.h"

CCwTypeTable::CCwTypeTable() : CDataTable(BrindleSchema::CwType) {}

QString CCwTypeTable::GetCwTypeNameFromID(quint32 id)
{
    CCwTypeTable table;
    if (!table.Open())
        return {};
    table.SetFilter(1, PropCwTypeName);
    return table.MoveToRecord(id) ? table.GetCwTypeName() : QString();
}
