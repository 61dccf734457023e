#pragma once

// A thin SQLite VFS over the system's own, registered as the default, that
// makes one kind of file operation fail once its calls reach a count: a full
// disk on write, an I/O error on sync or truncate. Every file SQLite opens
// through the default VFS (the database and its journal) goes through it.
namespace FailingVfs {

enum class Operation { Write, Sync, Truncate };
enum class Mode {
    Once,      // only the call numbered `after` fails (a passing fault)
    FromThenOn // that call and every later one fail (a full disk, a dead drive)
};

// Registers the VFS as SQLite's default; done once, before a database opens.
void Install();

// Counts calls of the operation from 0; call number `after` fails first.
void Arm(Operation operation, int after, Mode mode);
void Disarm();
// Whether an armed fault was hit since the last Arm.
bool Triggered();

} // namespace FailingVfs
