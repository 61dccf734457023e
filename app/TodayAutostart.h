#pragma once

#include <QString>

// "Start the Today companion at log-in": the companion's desktop entry,
// installed with Brindle's data files, copied into the user's autostart
// folder (XDG: $XDG_CONFIG_HOME/autostart) or removed from it. Qt Core only.
namespace TodayAutostart {

QString InstalledEntry(); // brindle-today.desktop among Brindle's data files
QString UserEntry();      // the copy in the user's autostart folder

bool IsOn();
// Copies or removes the user's entry; false (the reason in `error`) when
// the file could not be written or removed.
bool SetOn(bool on, QString* error);

} // namespace TodayAutostart
