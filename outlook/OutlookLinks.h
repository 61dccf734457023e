#pragma once

#include "store/OutlookTable.h"

#include <vector>

// The link table's three uses: the links of a record, deleting a link by the
// store item's id, adding a link. Writes need the caller's transaction.
namespace OutlookLinks {

struct Link
{
    quint32 outlookItemId;
    COutlookTable::OlItemType type;
};

// Every link of the record, in store order; false on a read error.
bool FindLinks(quint32 brindleItemId, std::vector<Link>* links);
// Deletes the first link with the item id only. Nonzero when one was deleted.
int DeleteLink(quint32 outlookItemId);
int AddLink(quint32 brindleItemId, quint32 outlookItemId, COutlookTable::OlItemType type);

} // namespace OutlookLinks
