#include "TextbookTable.h"

#include "Schema.h"

CTextbookTable::CTextbookTable() : CDataTable(BrindleSchema::Textbook) {}
