#pragma once

#include <QString>

// The companion's way into Brindle's database: the record store's volume,
// mounted only when the file exists and is a Brindle database, and switched
// to SQLite's query-only mode at once, so that nothing the companion does
// can write it.
namespace ReadOnlyDatabase {

// Nonzero on success; otherwise nothing is mounted and `error` says why.
int Mount(const QString& path, QString* error);
void Unmount();

} // namespace ReadOnlyDatabase
