#include "PimClients.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

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
    const QString config = m_home.path() + u"/.config"_s;
    // Fixed formats, so that tests read dates and times whatever the locale.
    m_ready =
        m_home.isValid() &&
        WriteFile(config + u"/todoman/config.py"_s,
                  u"path = \"%1\"\ndate_format = \"%Y-%m-%d\"\ntime_format = \"%H:%M\"\n"_s.arg(
                      folders.tasks)) &&
        WriteFile(config + u"/khal/config"_s,
                  u"[calendars]\n[[brindle]]\npath = %1\n[locale]\ntimeformat = %H:%M\n"
                  u"dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\n"
                  u"datetimeformat = %Y-%m-%d %H:%M\nlongdatetimeformat = %Y-%m-%d %H:%M\n"_s.arg(
                      folders.calendar)) &&
        WriteFile(config + u"/khard/khard.conf"_s,
                  u"[addressbooks]\n[[brindle]]\npath = %1\n[general]\n"
                  u"default_action = list\neditor = /bin/true\nmerge_editor = /bin/true\n"_s.arg(
                      folders.contacts));
}

QString PimClients::Find(const QString& program)
{
    const QString path = QStandardPaths::findExecutable(program);
    return path.isEmpty() && program == u"todoman"_s ? QStandardPaths::findExecutable(u"todo"_s)
                                                     : path;
}

QProcessEnvironment PimClients::Environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_home.path());
    // Unset, each of these defaults to a folder under the home above.
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "XDG_CONFIG_DIRS"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(u"LANG"_s, u"C.UTF-8"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    return environment;
}

QString PimClients::Run(const QString& program, const QStringList& arguments,
                        const QByteArray& input, QString* error, const QString& timeZone) const
{
    QProcess process;
    QProcessEnvironment environment = Environment();
    if (!timeZone.isEmpty())
        environment.insert(u"TZ"_s, timeZone);
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
        *error = u"%1 %2 failed (%3): %4"_s.arg(
            program, arguments.join(u' '), QString::number(process.exitCode()),
            QString::fromUtf8(process.readAllStandardError() + process.readAllStandardOutput()));
    return QString();
}
