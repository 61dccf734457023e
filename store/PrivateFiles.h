#pragma once

#include <QString>

// A student's records are theirs alone: the files and folders Brindle makes
// for them are readable by their owner only, whatever the umask says.
namespace BrindleFiles {

// Makes the folder and any missing parents, each new one 0700. True when the
// folder exists afterwards; reason says why not.
bool MakePrivateFolder(const QString& folder, QString* reason = nullptr);

// Creates an empty file, 0600; fails when something is already at the path.
bool CreatePrivateFile(const QString& path, QString* reason = nullptr);

// Whether Brindle may write to the file or folder: the system allows it and
// its mode is not read-only (a mode that root could ignore still counts).
bool IsWritable(const QString& path);

} // namespace BrindleFiles
