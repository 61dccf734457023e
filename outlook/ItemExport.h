#pragma once

#include "POutlookApp.h"

#include <functional>

// What exporting one record did.
enum class ExportResult {
    NoStore,      // no connection: nothing done
    Created,      // a new item, linked unless the link could not be written
    Updated,      // the linked item, rewritten
    LinkDropped,  // the linked item is gone: its link was deleted, nothing created
    CreateFailed, // no item could be made
    UpdateFailed, // the linked item could not be written
};

// The steps every export shares: with a link (*itemId not 0) fetch the item,
// or drop the link when the store has no such item of the kind; without one,
// create an item and link it to the record. The properties are set by
// `setProperties`, then the item is saved. *itemId follows the link.
ExportResult ExportItem(IPOutlookApp* app, quint32 brindleItemId, COutlookTable::OlItemType type,
                        quint32* itemId,
                        const std::function<void(IPOutlookItem& item)>& setProperties);

// True when the store holds the item, as an item of the kind.
bool IsItemInStore(IPOutlookApp* app, quint32 itemId, COutlookTable::OlItemType type);
