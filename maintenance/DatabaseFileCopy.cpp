#include "DatabaseFileCopy.h"

#include "res/strings/DatabaseStrings.h"
#include "res/strings/StoreStrings.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace DatabaseFileCopy {

namespace {

constexpr qint64 ChunkSize = 4 * 1024 * 1024;

QString SystemError(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

std::filesystem::path NativePath(const QString& path)
{
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

// Copies the bytes and syncs; the caller removes the copy on failure.
MaintenanceResult WriteCopy(QFile& in, QFile& out)
{
    QByteArray buffer;
    for (;;) {
        buffer = in.read(ChunkSize);
        if (buffer.isEmpty()) {
            if (in.error() != QFileDevice::NoError)
                return MaintenanceResult::Failed(
                    StoreStrings::CannotReadFile(in.fileName(), in.errorString()));
            break;
        }
        if (out.write(buffer) != buffer.size())
            return MaintenanceResult::Failed(
                DatabaseStrings::CannotWriteFile(out.fileName(), out.errorString()));
    }
    if (!out.flush())
        return MaintenanceResult::Failed(
            DatabaseStrings::CannotWriteFile(out.fileName(), out.errorString()));
    // A backup that sits only in the page cache is lost with the power.
    if (::fsync(out.handle()) != 0)
        return MaintenanceResult::Failed(
            DatabaseStrings::CannotWriteFile(out.fileName(), SystemError(errno)));
    return MaintenanceResult::Done();
}

} // namespace

QString TemporaryPathFor(const QString& path)
{
    return path + QStringLiteral(".tmp");
}

MaintenanceResult CopyToNewFile(const QString& source, const QString& destination)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return MaintenanceResult::Failed(StoreStrings::CannotReadFile(source, in.errorString()));
    if (QFileInfo::exists(destination) || QFileInfo(destination).isSymLink())
        return MaintenanceResult::Failed(DatabaseStrings::FileInTheWay(destination));

    QFile out(destination);
    // NewOnly: a file that appeared since the look above is still not ours.
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                  QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        if (QFileInfo::exists(destination))
            return MaintenanceResult::Failed(DatabaseStrings::FileInTheWay(destination));
        return MaintenanceResult::Failed(
            DatabaseStrings::CannotWriteFile(destination, out.errorString()));
    }
    const MaintenanceResult result = WriteCopy(in, out);
    out.close();
    if (!result.ok)
        out.remove();
    return result;
}

MaintenanceResult ReplaceFile(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(NativePath(from), NativePath(to), error);
    if (error)
        return MaintenanceResult::Failed(DatabaseStrings::CannotRename(
            from, to, QString::fromLocal8Bit(error.message().c_str())));
    return MaintenanceResult::Done();
}

MaintenanceResult MoveFile(const QString& from, const QString& to)
{
    if (QFileInfo::exists(to) || QFileInfo(to).isSymLink())
        return MaintenanceResult::Failed(DatabaseStrings::FileInTheWay(to));
    QFile file(from);
    if (!file.rename(to))
        return MaintenanceResult::Failed(
            DatabaseStrings::CannotRename(from, to, file.errorString()));
    return MaintenanceResult::Done();
}

void SyncFolderOf(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace DatabaseFileCopy
