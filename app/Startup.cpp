#include "Startup.h"

#include "Database.h"

#include <QFile>
#include <QProcess>

CStartup::CStartup(ProcessStarter starter) : m_starter(std::move(starter))
{
    if (!m_starter)
        m_starter = [](const QString& program) { return QProcess::startDetached(program, {}); };
}

CStartup::Result CStartup::RunInstallationSteps()
{
    Result result;
    const QString folder = GetInstallationPath();

    QFile marker(folder + QStringLiteral("/BrindleUpgrade.dll"));
    if (marker.open(QIODevice::ReadOnly)) {
        marker.close();
        result.upgradeMarkerFound = true;
        result.databaseReady = CreateDatabase() != 0;
    }

    QFile helper(folder + QStringLiteral("/SetSecurity.exe"));
    if (helper.open(QIODevice::ReadOnly)) {
        helper.close();
        // Not waited for; a failed start is not reported and the file goes all the same.
        result.helperStarted = m_starter(helper.fileName());
        result.helperDeleted = helper.remove();
    }
    return result;
}
