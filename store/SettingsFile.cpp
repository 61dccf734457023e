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
    // The same file as the Today switch's (CTodaySwitch::DefaultFile), in a
    // fixed folder that the companion program finds too.
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Brindle/Brindle.ini");
}
