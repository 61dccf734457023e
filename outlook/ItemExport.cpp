#include "ItemExport.h"

#include "OutlookLinks.h"

ExportResult ExportItem(IPOutlookApp* app, quint32 brindleItemId, COutlookTable::OlItemType type,
                        quint32* itemId,
                        const std::function<void(IPOutlookItem& item)>& setProperties)
{
    if (!app)
        return ExportResult::NoStore;
    if (*itemId != 0) {
        const std::unique_ptr<IPOutlookItem> item = app->GetItemFromOid(*itemId);
        if (!item || item->GetItemType() != type) {
            // The user deleted it; a new one comes only when asked for again.
            OutlookLinks::DeleteLink(*itemId);
            *itemId = 0;
            return ExportResult::LinkDropped;
        }
        setProperties(*item);
        return item->Save() ? ExportResult::Updated : ExportResult::UpdateFailed;
    }
    const std::unique_ptr<IPOutlookItem> item = app->CreateItem(type);
    if (!item)
        return ExportResult::CreateFailed;
    setProperties(*item);
    if (!item->Save())
        return ExportResult::CreateFailed;
    // Without its link the item still exists; it is only not updated later.
    if (OutlookLinks::AddLink(brindleItemId, item->get_Oid(), type))
        *itemId = item->get_Oid();
    return ExportResult::Created;
}

bool IsItemInStore(IPOutlookApp* app, quint32 itemId, COutlookTable::OlItemType type)
{
    const std::unique_ptr<IPOutlookItem> item = app ? app->GetItemFromOid(itemId) : nullptr;
    return item && item->GetItemType() == type;
}
