#include "GPAInfoTable.h"

#include "Schema.h"

CGPAInfoTable::CGPAInfoTable() : CDataTable(BrindleSchema::GPAInfo) {}
