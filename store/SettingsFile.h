#pragma once

#include <QString>

// Brindle's own settings file (INI): the path given with SetSettingsPath, else
// the environment's BRINDLE_SETTINGS, else Brindle/Brindle.ini in the user's
// configuration folder (~/.config). Open it with QSettings(path, QSettings::IniFormat).
QString GetSettingsPath();
void SetSettingsPath(const QString& path);
