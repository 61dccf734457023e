#include "PrivateFiles.h"

#include "res/strings/StoreStrings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace BrindleFiles {

namespace {
constexpr QFile::Permissions OwnerOnlyFolder = QFile::ReadOwner | QFile::WriteOwner |
                                               QFile::ExeOwner | QFile::ReadUser |
                                               QFile::WriteUser | QFile::ExeUser;
constexpr QFile::Permissions OwnerOnlyFile =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
} // namespace

bool MakePrivateFolder(const QString& folder, QString* reason)
{
    QStringList missing;
    QString path = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    while (!QFileInfo::exists(path)) {
        missing.prepend(path);
        const QString parent = QFileInfo(path).path();
        if (parent == path)
            break;
        path = parent;
    }
    for (const QString& created : std::as_const(missing)) {
        // mkdir's mode passes through the umask; the explicit mode does not.
        if (!QDir().mkdir(created) || !QFile::setPermissions(created, OwnerOnlyFolder)) {
            if (reason)
                *reason = StoreStrings::FolderNotMade(QDir::toNativeSeparators(created));
            return false;
        }
    }
    if (!QFileInfo(folder).isDir()) {
        if (reason)
            *reason = StoreStrings::FolderNotMade(QDir::toNativeSeparators(folder));
        return false;
    }
    return true;
}

bool CreatePrivateFile(const QString& path, QString* reason)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        !file.setPermissions(OwnerOnlyFile)) {
        if (reason)
            *reason = file.errorString();
        return false;
    }
    return true;
}

bool IsWritable(const QString& path)
{
    const QFileInfo info(path);
    constexpr QFile::Permissions anyWrite =
        QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & anyWrite);
}

} // namespace BrindleFiles
