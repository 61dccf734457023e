#include "Transaction.h"

#include "AppStateTable.h"
#include "CeMount.h"
#include "DataTable.h"

CTransaction::CTransaction()
{
    CCeMount* mount = CDataTable::GetMount();
    // A scope that could not begin still counts as open, so that the writes
    // made under it are refused rather than landing one by one.
    m_open = mount->IsMounted();
    mount->BeginScope();
}

CTransaction::~CTransaction()
{
    Rollback();
}

int CTransaction::End(bool commit)
{
    if (!m_open)
        return 0;
    m_open = false;
    CCeMount* mount = CDataTable::GetMount();
    const int landed = mount->EndScope(commit);
    if (!landed && mount->ScopeDepth() == 0) {
        // The state object may hold values the rollback took back.
        CAppStateTable& state = CAppStateTable::Instance();
        if (state.IsOpen())
            state.Reload();
    }
    return landed;
}

int CTransaction::Commit()
{
    return End(true);
}

void CTransaction::Rollback()
{
    End(false);
}

QString CTransaction::LastFailure()
{
    return CDataTable::GetMount()->GetFailure();
}
