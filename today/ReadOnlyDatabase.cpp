#include "ReadOnlyDatabase.h"

#include "BrindleData.h"
#include "res/strings/TodayStrings.h"

#include <QFileInfo>

namespace ReadOnlyDatabase {

int Mount(const QString& path, QString* error)
{
    CCeMount* mount = CDataTable::GetMount();
    mount->Unmount();
    // Mounting would make a missing or empty file a new database: the
    // companion must never be the one to create it.
    const QFileInfo info(path);
    if (!info.exists() || info.size() == 0) {
        *error = TodayStrings::DatabaseMissing(path);
        return 0;
    }
    // Opened again on every refresh: proving every page each minute would
    // cost more than the list itself. Brindle checks the file when it opens it.
    if (!mount->MountPath(path, CCeMount::ContentCheck::Readable)) {
        *error = mount->GetLastError();
        return 0;
    }
    if (!mount->Execute("PRAGMA query_only = 1")) {
        mount->Unmount();
        *error = TodayStrings::DatabaseNotProtected(path);
        return 0;
    }
    return 1;
}

void Unmount()
{
    CDataTable::GetMount()->Unmount();
}

} // namespace ReadOnlyDatabase
