#pragma once

#include "POutlookApp.h"

#include <memory>

// The personal-information store library: initialised once at start-up and
// released at exit. While it is initialised, each editor that exports opens
// its own connection for as long as it lives.
namespace PimLibrary {

bool Initialize();
void Release();
bool IsInitialized();

// A logged-on connection to the store in the folders of the settings file,
// or null (library not initialised, or a folder that cannot be made or
// written): exports then do nothing.
std::unique_ptr<IPOutlookApp> OpenConnection();

} // namespace PimLibrary
