#pragma once

#include "DataTable.h"

// Links between Brindle's records and the items exported to the personal-information store.
//
// Sort orders: 0 OutlookItemID, 1 BrindleItemID, 2 record id.
class COutlookTable : public CDataTable
{
public:
    enum OlItemType : quint32 { olAppointmentItem = 1, olContactItem = 2, olTaskItem = 3 };

    enum Property {
        PropBrindleItemID = 0,
        PropOutlookItemID = 1,
        PropItemType = 2,
    };

    COutlookTable();

    quint32 GetBrindleItemID() const { return UInt32At(PropBrindleItemID); }
    void SetBrindleItemID(quint32 value) { SetValue(PropBrindleItemID, static_cast<uint>(value)); }
    quint32 GetOutlookItemID() const { return UInt32At(PropOutlookItemID); }
    void SetOutlookItemID(quint32 value) { SetValue(PropOutlookItemID, static_cast<uint>(value)); }
    OlItemType GetItemType() const { return static_cast<OlItemType>(UInt32At(PropItemType)); }
    void SetItemType(OlItemType value) { SetValue(PropItemType, static_cast<uint>(value)); }
};
