#include "BuildingLookup.h"

#include "BuildingTable.h"

quint32 GetOrAddBuildingID(const QString& name)
{
    if (name.isEmpty())
        return 0;
    if (const quint32 id = CBuildingTable::GetBuildingIDFromName(name))
        return id;
    CBuildingTable table;
    if (!table.Open())
        return 0;
    table.NewRecord(0);
    table.SetBuildingName(name);
    return table.UpdateRecord() ? table.GetRecordID() : 0;
}
