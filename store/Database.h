#pragma once

#include <QString>

// The folder of Brindle's data files, without a trailing separator: the
// environment's BRINDLE_INSTALL_DIR, else share/brindle beside the program's
// bin folder (the install prefix, or the build tree's staged copy).
QString GetInstallationPath();

// The database file: the path given with SetDatabasePath (the --database
// option), else the environment's BRINDLE_DATABASE, else Brindle.db in the
// user's data folder.
QString GetDatabasePath();
void SetDatabasePath(const QString& path);

// Makes whatever tables, sort orders and default records the mounted database
// (or the one at GetDatabasePath() when none is mounted) lacks, keeping every
// existing record. A brand-new database also gets the default grade scale.
// Nonzero on success.
int CreateDatabase();
