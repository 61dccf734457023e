#include "TodayAutostart.h"

#include "BrindleData.h"
#include "res/strings/TodayStrings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace TodayAutostart {

QString InstalledEntry()
{
    return GetInstallationPath() + QStringLiteral("/brindle-today.desktop");
}

QString UserEntry()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/brindle-today.desktop");
}

bool IsOn()
{
    return QFileInfo::exists(UserEntry());
}

bool SetOn(bool on, QString* error)
{
    const QString target = UserEntry();
    if (!on) {
        if (QFile::exists(target) && !QFile::remove(target)) {
            *error = TodayStrings::AutostartNotRemoved(target);
            return false;
        }
        return true;
    }
    QFile source(InstalledEntry());
    if (!source.open(QIODevice::ReadOnly)) {
        *error = TodayStrings::AutostartNotFound(InstalledEntry());
        return false;
    }
    const QByteArray entry = source.readAll();
    // Written whole or not at all: a half entry would start nothing.
    QDir().mkpath(QFileInfo(target).absolutePath());
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(entry) != entry.size() || !file.commit()) {
        *error = TodayStrings::AutostartNotWritten(target);
        return false;
    }
    return true;
}

} // namespace TodayAutostart
