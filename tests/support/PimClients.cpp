#include "PimClients.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace {

bool WriteFile(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

} // namespace

PimClients::PimClients(const PimFolders& folders)
{
    const QString config = m_home.path() + QStringLiteral("/.config");
    // Fixed formats, so that tests read dates and times whatever the locale.
    m_ready =
        m_home.isValid() &&
        WriteFile(config + QStringLiteral("/todoman/config.py"),
                  QStringLiteral("path = \"%1\"\ndate_format = \"%Y-%m-%d\"\n"
                                 "time_format = \"%H:%M\"\n")
                      .arg(folders.tasks)) &&
        WriteFile(config + QStringLiteral("/khal/config"),
                  QStringLiteral("[calendars]\n[[brindle]]\npath = %1\n[locale]\n"
                                 "timeformat = %H:%M\ndateformat = %Y-%m-%d\n"
                                 "longdateformat = %Y-%m-%d\ndatetimeformat = %Y-%m-%d %H:%M\n"
                                 "longdatetimeformat = %Y-%m-%d %H:%M\n")
                      .arg(folders.calendar)) &&
        WriteFile(config + QStringLiteral("/khard/khard.conf"),
                  QStringLiteral("[addressbooks]\n[[brindle]]\npath = %1\n[general]\n"
                                 "default_action = list\neditor = /bin/true\n"
                                 "merge_editor = /bin/true\n")
                      .arg(folders.contacts));
}

QString PimClients::Find(const QString& program)
{
    QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty() && program == QStringLiteral("todoman"))
        path = QStandardPaths::findExecutable(QStringLiteral("todo"));
    return path;
}

QProcessEnvironment PimClients::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_home.path());
    // Unset, each of these defaults to a folder under the home above.
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "XDG_CONFIG_DIRS"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

QString PimClients::Run(const QString& program, const QStringList& arguments,
                        const QByteArray& input, QString* error, const QString& timeZone) const
{
    QProcess process;
    QProcessEnvironment environment = Environment();
    if (!timeZone.isEmpty())
        environment.insert(QStringLiteral("TZ"), timeZone);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_home.path());
    process.start(Find(program), arguments);
    if (process.waitForStarted(10000))
        process.write(input);
    process.closeWriteChannel();
    // A process still running is killed with the QProcess.
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return QString::fromUtf8(process.readAllStandardOutput());
    if (error)
        *error =
            QStringLiteral("%1 %2 failed (%3): %4")
                .arg(program, arguments.join(QLatin1Char(' ')), QString::number(process.exitCode()),
                     QString::fromUtf8(process.readAllStandardError() +
                                       process.readAllStandardOutput()));
    return QString();
}
