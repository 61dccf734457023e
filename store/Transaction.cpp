#include "Transaction.h"

#include "CeMount.h"
#include "DataTable.h"

namespace {
int g_depth = 0;
}

CTransaction::CTransaction()
{
    // Savepoints rather than BEGIN so that scopes can nest.
    m_name = "brindle_" + QByteArray::number(++g_depth);
    m_active = CDataTable::GetMount()->Execute("SAVEPOINT " + m_name) != 0;
    if (!m_active)
        --g_depth;
}

CTransaction::~CTransaction()
{
    Rollback();
}

int CTransaction::Commit()
{
    if (!m_active)
        return 0;
    m_active = false;
    --g_depth;
    return CDataTable::GetMount()->Execute("RELEASE " + m_name);
}

void CTransaction::Rollback()
{
    if (!m_active)
        return;
    m_active = false;
    --g_depth;
    CCeMount* mount = CDataTable::GetMount();
    mount->Execute("ROLLBACK TO " + m_name);
    mount->Execute("RELEASE " + m_name);
}
