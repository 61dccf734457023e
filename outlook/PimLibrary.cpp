#include "PimLibrary.h"

#include "VdirStore.h"

namespace PimLibrary {

namespace {
bool g_initialized = false;
}

bool Initialize()
{
    g_initialized = true;
    return true;
}

void Release()
{
    g_initialized = false;
}

bool IsInitialized()
{
    return g_initialized;
}

std::unique_ptr<IPOutlookApp> OpenConnection()
{
    if (!g_initialized)
        return nullptr;
    auto store = std::make_unique<CVdirStore>(PimFolders::Load());
    if (!store->Logon())
        return nullptr;
    return store;
}

} // namespace PimLibrary
