#include "OutlookTable.h"

#include "Schema.h"

COutlookTable::COutlookTable() : CDataTable(BrindleSchema::OutlookLink) {}
