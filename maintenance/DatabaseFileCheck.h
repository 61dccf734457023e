#pragma once

#include <QString>

// Reads the file at path, read-only and without changing a byte, and says why
// it is not a Brindle database that this Brindle can open: not an SQLite
// file, another program's database, a newer Brindle's, damaged. Empty when it
// is one. Messages name shownPath (path when empty): a copy is checked under
// the name of the file the user chose. The file is mapped into memory while it
// is checked, so it must be one that no other program shortens meanwhile: a
// copy Brindle has just made.
QString CheckDatabaseFile(const QString& path, const QString& shownPath = QString());
