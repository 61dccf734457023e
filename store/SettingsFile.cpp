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
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
           QStringLiteral("/Brindle.ini");
}
