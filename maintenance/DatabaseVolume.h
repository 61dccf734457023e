#pragma once

#include "MaintenanceResult.h"

// The one place where database maintenance lets go of the database and takes
// it back: the program-wide application state and the mounted volume. Every
// mount here makes whatever tables the file lacks.
namespace DatabaseVolume {

// Closes the application state and unmounts, so that the file alone holds
// every record and can be copied or replaced.
void Release();

// Mounts the database at GetDatabasePath() and makes what it lacks. The file
// must have been proven before (quick_check); the mount proves only that
// SQLite reads it.
MaintenanceResult Mount();

// Mounts, reopens the application state and moves it to its first record.
MaintenanceResult Reopen();

} // namespace DatabaseVolume
