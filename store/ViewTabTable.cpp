#include "ViewTabTable.h"

#include "Schema.h"

CViewTabTable::CViewTabTable() : CDataTable(BrindleSchema::ViewTab) {}
