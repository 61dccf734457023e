#pragma once

#include "DataTable.h"

// Building names; courses and instructors refer to them by id.
//
// Sort orders: 0 record id, 1 BuildingName.
class CBuildingTable : public CDataTable
{
public:
    enum Property {
        PropBuildingName = 0,
    };

    CBuildingTable();

    QString GetBuildingName() const { return StringAt(PropBuildingName); }
    void SetBuildingName(const QString& value) { SetValue(PropBuildingName, value); }

    static QString GetBuildingNameFromID(quint32 id);
    static quint32 GetBuildingIDFromName(const QString& name);
};
