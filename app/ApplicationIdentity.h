#pragma once

#include <QString>

// How the running program names itself to the desktop: the application name
// (the X11 window class, matching the desktop entry's StartupWMClass), the
// desktop file name (the Wayland app id and the entry's file name) and the
// window icon, which is the icon the entry shows.
namespace ApplicationIdentity {

QString DesktopFileName();

// Call once after the QApplication exists, before any window is shown.
void Apply();

} // namespace ApplicationIdentity
