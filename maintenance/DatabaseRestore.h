#pragma once

#include "MaintenanceResult.h"

#include <QString>

namespace DatabaseRestore {

// The name the database is kept under while a restore replaces it: ".db"
// replaced by ".db2".
QString AsidePath(const QString& databasePath);

// Replaces the database at GetDatabasePath() (unmounted) by a copy of the
// chosen file. The copy is written beside the database and checked before
// anything moves; one that is not a Brindle database this Brindle reads is
// refused and nothing changes. Then the database is set aside as ".db2", the
// copy takes its name, is mounted and given the tables it lacks, and only then
// is ".db2" deleted. Any failure puts ".db2" back, so a working database is
// always left at the database path. Leaves the database unmounted.
MaintenanceResult Restore(const QString& chosenFile);

} // namespace DatabaseRestore
