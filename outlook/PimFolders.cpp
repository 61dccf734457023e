#include "PimFolders.h"

#include "store/SettingsFile.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace {

const QString TasksKey = QStringLiteral("Export/TasksFolder");
const QString CalendarKey = QStringLiteral("Export/CalendarFolder");
const QString ContactsKey = QStringLiteral("Export/ContactsFolder");

QString Root()
{
    const QString fromEnvironment = qEnvironmentVariable("BRINDLE_PIM_DIR");
    if (!fromEnvironment.isEmpty())
        return QDir::cleanPath(fromEnvironment);
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/pim");
}

void StoreKey(QSettings& settings, const QString& key, const QString& folder,
              const QString& defaultFolder)
{
    const QString clean = PimFolders::Normalize(folder);
    if (clean.isEmpty() || clean == defaultFolder)
        settings.remove(key);
    else
        settings.setValue(key, clean);
}

} // namespace

PimFolders PimFolders::Defaults()
{
    const QString root = Root();
    return {root + QStringLiteral("/tasks"), root + QStringLiteral("/calendar"),
            root + QStringLiteral("/contacts")};
}

PimFolders PimFolders::Load()
{
    const PimFolders defaults = Defaults();
    const QSettings settings(GetSettingsPath(), QSettings::IniFormat);
    auto folder = [&](const QString& key, const QString& defaultFolder) {
        const QString value = Normalize(settings.value(key).toString());
        return value.isEmpty() ? defaultFolder : value;
    };
    return {folder(TasksKey, defaults.tasks), folder(CalendarKey, defaults.calendar),
            folder(ContactsKey, defaults.contacts)};
}

int PimFolders::Store(const PimFolders& folders)
{
    const PimFolders defaults = Defaults();
    QSettings settings(GetSettingsPath(), QSettings::IniFormat);
    StoreKey(settings, TasksKey, folders.tasks, defaults.tasks);
    StoreKey(settings, CalendarKey, folders.calendar, defaults.calendar);
    StoreKey(settings, ContactsKey, folders.contacts, defaults.contacts);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString PimFolders::Normalize(const QString& folder)
{
    QString path = QDir::fromNativeSeparators(folder.trimmed());
    if (path.isEmpty())
        return path;
    if (path == QStringLiteral("~") || path.startsWith(QStringLiteral("~/")))
        path.replace(0, 1, QDir::homePath());
    return QDir::cleanPath(QDir(path).absolutePath());
}

int PimFolders::IsUsable(const QString& folder)
{
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return 0;
    // Permissions say little (an administrator may write anywhere, a full
    // disk refuses everyone): try it.
    QTemporaryFile probe(folder + QStringLiteral("/.brindle-probe-XXXXXX"));
    return probe.open() && probe.write("1", 1) == 1 && probe.flush();
}
