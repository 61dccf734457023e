#include "SettingsFile.h"

#include <QStandardPaths>

namespace {
QString g_settingsPath;
}

void SetSettingsPath(const QString& path)
{
    g_settingsPath = path;
}

QString GetSettingsPath()
{
    if (!g_settingsPath.isEmpty())
        return g_settingsPath;
    const QString fromEnvironment = qEnvironmentVariable("BRINDLE_SETTINGS");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    // A fixed folder, not the application's own: the Today companion is
    // another program with another name and must find the same file.
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Brindle/Brindle.ini");
}
