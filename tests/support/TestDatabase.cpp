#include "TestDatabase.h"

#include "BrindleData.h"
#include "res/Resources.h"

TestDatabase::TestDatabase()
{
    InitBrindleResources();
    m_path = m_dir.filePath(QStringLiteral("Brindle.db"));
    SetDatabasePath(m_path);
    m_ready = m_dir.isValid() && Reopen();
}

TestDatabase::~TestDatabase()
{
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
    SetDatabasePath(QString());
}

bool TestDatabase::Reopen()
{
    CAppStateTable::Instance().Close();
    CCeMount* mount = CDataTable::GetMount();
    mount->Unmount();
    return mount->MountPath(m_path) && CreateDatabase() && CAppStateTable::Instance().OpenState();
}
