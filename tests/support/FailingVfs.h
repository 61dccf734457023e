#pragma once

#include <sqlite3.h>

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

namespace detail {

struct State
{
    bool armed = false;
    Operation operation = Operation::Write;
    Mode mode = Mode::Once;
    int after = 0;
    int calls = 0;
    bool triggered = false;
};
inline State g_state;

inline sqlite3_vfs* g_real = nullptr;
inline sqlite3_vfs g_vfs;
inline sqlite3_io_methods g_methods;

// The real file lives right behind the wrapper, in the memory SQLite gives.
struct WrappedFile
{
    sqlite3_file base;
    sqlite3_file* real;
};

inline bool ShouldFail(Operation operation)
{
    if (!g_state.armed || g_state.operation != operation)
        return false;
    const int call = g_state.calls++;
    const bool fail = g_state.mode == Mode::Once ? call == g_state.after : call >= g_state.after;
    g_state.triggered |= fail;
    return fail;
}

// A file method that passes the call on to the real file.
template <auto Method, typename... Args> auto Forward(sqlite3_file* file, Args... args)
{
    sqlite3_file* real = reinterpret_cast<WrappedFile*>(file)->real;
    return (real->pMethods->*Method)(real, args...);
}

// A file method that fails with `error` when the armed fault is due.
template <auto Method, Operation operation, int error, typename... Args>
int FailOr(sqlite3_file* file, Args... args)
{
    return ShouldFail(operation) ? error : Forward<Method>(file, args...);
}

// A VFS method that passes the call on to the system's own VFS.
template <auto Method, typename... Args> int ForwardVfs(sqlite3_vfs*, Args... args)
{
    return (g_real->*Method)(g_real, args...);
}

inline int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* wrapped = reinterpret_cast<WrappedFile*>(file);
    wrapped->real = reinterpret_cast<sqlite3_file*>(wrapped + 1);
    const int resultCode = g_real->xOpen(g_real, name, wrapped->real, flags, outFlags);
    // SQLite closes a file whose methods are set, even after a failed open.
    wrapped->base.pMethods = wrapped->real->pMethods ? &g_methods : nullptr;
    return resultCode;
}

} // namespace detail

// Registers the VFS as SQLite's default; done once, before a database opens.
inline void Install()
{
    using namespace detail;
    if (g_real)
        return;
    g_real = sqlite3_vfs_find(nullptr);
    using M = sqlite3_io_methods;
    g_methods = {};
    g_methods.iVersion = 2; // with shared memory, without memory mapping
    g_methods.xClose = Forward<&M::xClose>;
    g_methods.xRead = Forward<&M::xRead>;
    g_methods.xWrite = FailOr<&M::xWrite, Operation::Write, SQLITE_FULL>;
    g_methods.xTruncate = FailOr<&M::xTruncate, Operation::Truncate, SQLITE_IOERR_TRUNCATE>;
    g_methods.xSync = FailOr<&M::xSync, Operation::Sync, SQLITE_IOERR_FSYNC>;
    g_methods.xFileSize = Forward<&M::xFileSize>;
    g_methods.xLock = Forward<&M::xLock>;
    g_methods.xUnlock = Forward<&M::xUnlock>;
    g_methods.xCheckReservedLock = Forward<&M::xCheckReservedLock>;
    g_methods.xFileControl = Forward<&M::xFileControl>;
    g_methods.xSectorSize = Forward<&M::xSectorSize>;
    g_methods.xDeviceCharacteristics = Forward<&M::xDeviceCharacteristics>;
    g_methods.xShmMap = Forward<&M::xShmMap>;
    g_methods.xShmLock = Forward<&M::xShmLock>;
    g_methods.xShmBarrier = Forward<&M::xShmBarrier>;
    g_methods.xShmUnmap = Forward<&M::xShmUnmap>;

    g_vfs = {};
    g_vfs.iVersion = 2;
    g_vfs.szOsFile = static_cast<int>(sizeof(WrappedFile)) + g_real->szOsFile;
    g_vfs.mxPathname = g_real->mxPathname;
    g_vfs.zName = "brindle-failing";
    g_vfs.xOpen = Open;
    g_vfs.xDelete = ForwardVfs<&sqlite3_vfs::xDelete>;
    g_vfs.xAccess = ForwardVfs<&sqlite3_vfs::xAccess>;
    g_vfs.xFullPathname = ForwardVfs<&sqlite3_vfs::xFullPathname>;
    g_vfs.xRandomness = ForwardVfs<&sqlite3_vfs::xRandomness>;
    g_vfs.xSleep = ForwardVfs<&sqlite3_vfs::xSleep>;
    g_vfs.xCurrentTime = ForwardVfs<&sqlite3_vfs::xCurrentTime>;
    g_vfs.xGetLastError = ForwardVfs<&sqlite3_vfs::xGetLastError>;
    g_vfs.xCurrentTimeInt64 = ForwardVfs<&sqlite3_vfs::xCurrentTimeInt64>;
    sqlite3_vfs_register(&g_vfs, 1);
}

// Counts calls of the operation from 0; call number `after` fails first.
inline void Arm(Operation operation, int after, Mode mode)
{
    detail::g_state = detail::State{true, operation, mode, after, 0, false};
}

inline void Disarm()
{
    detail::g_state.armed = false;
}

// Whether an armed fault was hit since the last Arm.
inline bool Triggered()
{
    return detail::g_state.triggered;
}

} // namespace FailingVfs
