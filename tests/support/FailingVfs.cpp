#include "FailingVfs.h"

#include <sqlite3.h>

namespace FailingVfs {

namespace {

struct State
{
    bool armed = false;
    Operation operation = Operation::Write;
    Mode mode = Mode::Once;
    int after = 0;
    int calls = 0;
    bool triggered = false;
};
State g_state;

sqlite3_vfs* g_real = nullptr;
sqlite3_vfs g_vfs;
sqlite3_io_methods g_methods;

// The real file lives right behind the wrapper, in the memory SQLite gives.
struct WrappedFile
{
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* Real(sqlite3_file* file)
{
    return reinterpret_cast<WrappedFile*>(file)->real;
}

bool ShouldFail(Operation operation)
{
    if (!g_state.armed || g_state.operation != operation)
        return false;
    const int call = g_state.calls++;
    const bool fail = g_state.mode == Mode::Once ? call == g_state.after : call >= g_state.after;
    g_state.triggered |= fail;
    return fail;
}

int Close(sqlite3_file* file)
{
    return Real(file)->pMethods->xClose(Real(file));
}
int Read(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset)
{
    return Real(file)->pMethods->xRead(Real(file), buffer, amount, offset);
}
int Write(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset)
{
    if (ShouldFail(Operation::Write))
        return SQLITE_FULL;
    return Real(file)->pMethods->xWrite(Real(file), buffer, amount, offset);
}
int Truncate(sqlite3_file* file, sqlite3_int64 size)
{
    if (ShouldFail(Operation::Truncate))
        return SQLITE_IOERR_TRUNCATE;
    return Real(file)->pMethods->xTruncate(Real(file), size);
}
int Sync(sqlite3_file* file, int flags)
{
    if (ShouldFail(Operation::Sync))
        return SQLITE_IOERR_FSYNC;
    return Real(file)->pMethods->xSync(Real(file), flags);
}
int FileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return Real(file)->pMethods->xFileSize(Real(file), size);
}
int Lock(sqlite3_file* file, int level)
{
    return Real(file)->pMethods->xLock(Real(file), level);
}
int Unlock(sqlite3_file* file, int level)
{
    return Real(file)->pMethods->xUnlock(Real(file), level);
}
int CheckReservedLock(sqlite3_file* file, int* result)
{
    return Real(file)->pMethods->xCheckReservedLock(Real(file), result);
}
int FileControl(sqlite3_file* file, int op, void* argument)
{
    return Real(file)->pMethods->xFileControl(Real(file), op, argument);
}
int SectorSize(sqlite3_file* file)
{
    return Real(file)->pMethods->xSectorSize(Real(file));
}
int DeviceCharacteristics(sqlite3_file* file)
{
    return Real(file)->pMethods->xDeviceCharacteristics(Real(file));
}
int ShmMap(sqlite3_file* file, int region, int size, int extend, void volatile** memory)
{
    return Real(file)->pMethods->xShmMap(Real(file), region, size, extend, memory);
}
int ShmLock(sqlite3_file* file, int offset, int n, int flags)
{
    return Real(file)->pMethods->xShmLock(Real(file), offset, n, flags);
}
void ShmBarrier(sqlite3_file* file)
{
    Real(file)->pMethods->xShmBarrier(Real(file));
}
int ShmUnmap(sqlite3_file* file, int deleteFlag)
{
    return Real(file)->pMethods->xShmUnmap(Real(file), deleteFlag);
}

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* wrapped = reinterpret_cast<WrappedFile*>(file);
    wrapped->real = reinterpret_cast<sqlite3_file*>(wrapped + 1);
    const int resultCode = g_real->xOpen(g_real, name, wrapped->real, flags, outFlags);
    // SQLite closes a file whose methods are set, even after a failed open.
    wrapped->base.pMethods = wrapped->real->pMethods ? &g_methods : nullptr;
    return resultCode;
}
int Delete(sqlite3_vfs*, const char* name, int syncDir)
{
    return g_real->xDelete(g_real, name, syncDir);
}
int Access(sqlite3_vfs*, const char* name, int flags, int* result)
{
    return g_real->xAccess(g_real, name, flags, result);
}
int FullPathname(sqlite3_vfs*, const char* name, int size, char* out)
{
    return g_real->xFullPathname(g_real, name, size, out);
}
int Randomness(sqlite3_vfs*, int size, char* out)
{
    return g_real->xRandomness(g_real, size, out);
}
int Sleep(sqlite3_vfs*, int microseconds)
{
    return g_real->xSleep(g_real, microseconds);
}
int CurrentTime(sqlite3_vfs*, double* now)
{
    return g_real->xCurrentTime(g_real, now);
}
int GetLastError(sqlite3_vfs*, int size, char* out)
{
    return g_real->xGetLastError(g_real, size, out);
}
int CurrentTimeInt64(sqlite3_vfs*, sqlite3_int64* now)
{
    return g_real->xCurrentTimeInt64(g_real, now);
}

} // namespace

void Install()
{
    if (g_real)
        return;
    g_real = sqlite3_vfs_find(nullptr);
    g_methods = {};
    g_methods.iVersion = 2; // with shared memory, without memory mapping
    g_methods.xClose = Close;
    g_methods.xRead = Read;
    g_methods.xWrite = Write;
    g_methods.xTruncate = Truncate;
    g_methods.xSync = Sync;
    g_methods.xFileSize = FileSize;
    g_methods.xLock = Lock;
    g_methods.xUnlock = Unlock;
    g_methods.xCheckReservedLock = CheckReservedLock;
    g_methods.xFileControl = FileControl;
    g_methods.xSectorSize = SectorSize;
    g_methods.xDeviceCharacteristics = DeviceCharacteristics;
    g_methods.xShmMap = ShmMap;
    g_methods.xShmLock = ShmLock;
    g_methods.xShmBarrier = ShmBarrier;
    g_methods.xShmUnmap = ShmUnmap;

    g_vfs = {};
    g_vfs.iVersion = 2;
    g_vfs.szOsFile = static_cast<int>(sizeof(WrappedFile)) + g_real->szOsFile;
    g_vfs.mxPathname = g_real->mxPathname;
    g_vfs.zName = "brindle-failing";
    g_vfs.xOpen = Open;
    g_vfs.xDelete = Delete;
    g_vfs.xAccess = Access;
    g_vfs.xFullPathname = FullPathname;
    g_vfs.xRandomness = Randomness;
    g_vfs.xSleep = Sleep;
    g_vfs.xCurrentTime = CurrentTime;
    g_vfs.xGetLastError = GetLastError;
    g_vfs.xCurrentTimeInt64 = CurrentTimeInt64;
    sqlite3_vfs_register(&g_vfs, 1);
}

void Arm(Operation operation, int after, Mode mode)
{
    g_state = State{true, operation, mode, after, 0, false};
}

void Disarm()
{
    g_state.armed = false;
}

bool Triggered()
{
    return g_state.triggered;
}

} // namespace FailingVfs
