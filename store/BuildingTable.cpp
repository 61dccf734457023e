#include "BuildingTable.h"

#include "Schema.h"

CBuildingTable::CBuildingTable() : CDataTable(BrindleSchema::Building) {}

QString CBuildingTable::GetBuildingNameFromID(quint32 id)
{
    CBuildingTable table;
    if (!table.Open())
        return {};
    return table.MoveToRecord(id) ? table.GetBuildingName() : QString();
}

quint32 CBuildingTable::GetBuildingIDFromName(const QString& name)
{
    CBuildingTable table;
    if (!table.Open(1))
        return 0;
    const CCeDBProp key(name);
    table.SetSeekValue(&key, SeekValueEqual);
    return table.MoveFirst(1) ? table.GetRecordID() : 0;
}
