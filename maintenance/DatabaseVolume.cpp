#include "DatabaseVolume.h"

#include "BrindleData.h"
#include "res/strings/DatabaseStrings.h"
#include "res/strings/StoreStrings.h"

namespace DatabaseVolume {

void Release()
{
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();
}

MaintenanceResult Mount()
{
    const QString path = GetDatabasePath();
    CCeMount* mount = CDataTable::GetMount();
    // Every file mounted here was proven page by page before: when Brindle
    // opened it, or as the restore's copy. Since then only SQLite wrote it.
    if (!mount->IsMounted() && !mount->MountPath(path, CCeMount::ContentCheck::Readable))
        return MaintenanceResult::Failed(mount->GetLastError());
    if (!CreateDatabase()) {
        const QString reason = mount->GetFailure();
        mount->Unmount();
        return MaintenanceResult::Failed(StoreStrings::CannotCreateTables(path, reason));
    }
    return MaintenanceResult::Done();
}

MaintenanceResult Reopen()
{
    const MaintenanceResult mounted = Mount();
    if (!mounted.ok)
        return mounted;
    if (!CAppStateTable::Instance().OpenState()) {
        Release();
        return MaintenanceResult::Failed(DatabaseStrings::StateUnreadable(GetDatabasePath()));
    }
    return MaintenanceResult::Done();
}

} // namespace DatabaseVolume
