#include "TextbookOrderTable.h"

#include "Schema.h"

CTextbookOrderTable::CTextbookOrderTable() : CDataTable(BrindleSchema::TextbookOrder) {}
