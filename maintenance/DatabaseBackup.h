#pragma once

#include "MaintenanceResult.h"

#include <QString>

class QDate;

namespace DatabaseBackup {

// "Brindle %d-%d-%d.db" from the date's month, day and year, without leading
// zeros: Brindle 1-1-2006.db on 1 January 2006.
QString SuggestedName(const QDate& date);

// Copies the database file (unmounted) to target: first to a temporary file
// beside target, which is then checked as a Brindle database (read-only,
// quick_check) and only then renamed into place, replacing a file there. The
// backup can be read and written by the user alone. A failure leaves target as
// it was and says why.
MaintenanceResult Backup(const QString& databasePath, const QString& target);

} // namespace DatabaseBackup
