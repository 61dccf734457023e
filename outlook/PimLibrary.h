#pragma once

#include <QString>

// The personal-information store that coursework and instructors are exported
// to: one vdir folder per kind (tasks, calendar, contacts) under the user's
// data folder, or under BRINDLE_PIM_DIR when that is set. Initialised once at
// start-up and released at exit.
namespace PimLibrary {

bool Initialize();
void Release();
bool IsInitialized();

// The folder that holds the kinds' folders; empty before Initialize.
QString RootFolder();

} // namespace PimLibrary
