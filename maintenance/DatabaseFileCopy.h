#pragma once

#include "MaintenanceResult.h"

#include <QString>

#include <functional>

// File steps of backup and restore, each reporting the truth.
namespace DatabaseFileCopy {

// Reads a fresh copy and says why it is refused; empty when it is good.
using CopyProof = std::function<QString()>;

// Copies source into a new file at destination that only the user can read
// and write (0600), and waits until it is on the disk, while `prove` (if
// given) reads the copy. A file already at destination is never touched:
// that is a failure ("in the way"). A refused proof is the failure's reason.
// After a failure nothing of the copy is left behind.
MaintenanceResult CopyToNewFile(const QString& source, const QString& destination,
                                const CopyProof& prove = {});

// Renames from to to, replacing a file at to in one step.
MaintenanceResult ReplaceFile(const QString& from, const QString& to);
// Renames from to to; fails when anything stands at to.
MaintenanceResult MoveFile(const QString& from, const QString& to);

// Makes the renames of a folder's entries durable.
void SyncFolderOf(const QString& path);

// The temporary name a copy is written under before it takes its place.
QString TemporaryPathFor(const QString& path);

} // namespace DatabaseFileCopy
