#include "OutlookLinks.h"

namespace OutlookLinks {

bool FindLinks(quint32 brindleItemId, std::vector<Link>* links)
{
    links->clear();
    COutlookTable table;
    if (!table.Open(1))
        return false;
    const CCeDBProp key(brindleItemId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        links->push_back({table.GetOutlookItemID(), table.GetItemType()});
    return true;
}

int DeleteLink(quint32 outlookItemId)
{
    COutlookTable table;
    if (!table.Open(0))
        return 0;
    const CCeDBProp key(outlookItemId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    return table.MoveFirst(1) && table.DeleteRecord(0);
}

int AddLink(quint32 brindleItemId, quint32 outlookItemId, COutlookTable::OlItemType type)
{
    COutlookTable table;
    if (!table.Open())
        return 0;
    table.NewRecord(0);
    table.SetBrindleItemID(brindleItemId);
    table.SetOutlookItemID(outlookItemId);
    table.SetItemType(type);
    return table.UpdateRecord();
}

} // namespace OutlookLinks
