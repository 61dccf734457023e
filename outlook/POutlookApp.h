#pragma once

#include "PimItem.h"

#include <memory>

// A connection to a personal-information store: log on, create an item of a
// kind, fetch an item by its numeric id. The caller owns what it gets; an
// item is released by destroying it.
class IPOutlookApp
{
public:
    virtual ~IPOutlookApp() = default;

    // Nonzero when the store can be read and written.
    virtual int Logon() = 0;
    virtual void Logoff() = 0;
    // A new, not yet saved item of the kind, with its id; null on failure.
    virtual std::unique_ptr<IPOutlookItem> CreateItem(COutlookTable::OlItemType type) = 0;
    // The stored item with the id; null when there is none (deleted by the user).
    virtual std::unique_ptr<IPOutlookItem> GetItemFromOid(quint32 oid) = 0;
};
