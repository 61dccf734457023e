#include "CwTypeOrderTable.h"

#include "Schema.h"

CCwTypeOrderTable::CCwTypeOrderTable() : CDataTable(BrindleSchema::CwTypeOrder) {}
