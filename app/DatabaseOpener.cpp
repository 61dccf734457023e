#include "DatabaseOpener.h"

#include "BrindleData.h"
#include "PrivateFiles.h"
#include "controls/MessageBox.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>

namespace {

// What SQLite keeps beside a database file; each belongs to that file alone.
const char* const CompanionSuffixes[] = {"-journal", "-wal", "-shm"};

bool NamesItsOwner(const QLockFile& lock)
{
    qint64 pid = 0;
    QString host;
    QString application;
    return lock.getLockInfo(&pid, &host, &application);
}

// A start killed between making the lock file and writing its process id into
// it leaves a lock that names no owner, which no age would ever free. A live
// owner writes its id at once; one that has not after a moment never will.
bool TakeOverOwnerlessLock(QLockFile& lock)
{
    const QDeadlineTimer patience(500);
    for (;;) {
        if (lock.tryLock(0))
            return true; // its owner has just let go
        if (lock.error() != QLockFile::LockFailedError || NamesItsOwner(lock))
            return false;
        if (patience.hasExpired())
            return lock.removeStaleLockFile() && lock.tryLock(0);
        QThread::msleep(20);
    }
}

} // namespace

CDatabaseOpener::CDatabaseOpener(bool interactive) : m_interactive(interactive) {}

CDatabaseOpener::~CDatabaseOpener() = default;

bool CDatabaseOpener::Fail(const QString& text)
{
    m_error = text;
    if (m_interactive)
        BrindleMessageBox::Warn(nullptr, AppStrings::DatabaseSetAside(text));
    return false;
}

// Two windows on one file would each keep a state record the other
// overwrites; the second one says so and stops. The lock is a file beside
// the database that the system lets go of when the process ends, however
// (even one killed while it was making the lock).
bool CDatabaseOpener::LockAgainstSecondWindow(const QString& path)
{
    if (!BrindleFiles::MakePrivateFolder(QFileInfo(path).absolutePath()))
        return true; // the mount reports the folder
    m_lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    // A lock of a process that is gone is taken over; a live one never ages.
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock(0) || TakeOverOwnerlessLock(*m_lock))
        return true;
    const bool held = m_lock->error() == QLockFile::LockFailedError;
    m_lock.reset();
    // A folder that takes no lock file is for the mount to judge.
    return !held;
}

bool CDatabaseOpener::SetAside(const QString& path)
{
    const QString target = path + QStringLiteral(".unusable-") +
                           QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    // The journal files go first: one left behind would be taken for the
    // new database's own and played into it.
    QStringList moved;
    QStringList suffixes;
    for (const char* suffix : CompanionSuffixes)
        suffixes << QString::fromLatin1(suffix);
    suffixes << QString();
    for (const QString& suffix : std::as_const(suffixes)) {
        if (!QFileInfo::exists(path + suffix))
            continue;
        if (!QFile::rename(path + suffix, target + suffix)) {
            for (const QString& back : std::as_const(moved))
                QFile::rename(target + back, path + back);
            return false;
        }
        moved << suffix;
    }
    m_setAside = target;
    return true;
}

bool CDatabaseOpener::Open()
{
    const QString path = GetDatabasePath();
    m_error.clear();
    if (!LockAgainstSecondWindow(path))
        return Fail(StoreStrings::DatabaseOpenElsewhere(path));

    CCeMount* mount = CDataTable::GetMount();
    if (!mount->MountPath(path)) {
        if (mount->GetProblem() != CCeMount::Problem::Unusable)
            return Fail(mount->GetLastError());
        m_error = mount->GetLastError();
        if (!m_interactive ||
            BrindleMessageBox::Show(nullptr, AppStrings::DatabaseUnusable(m_error),
                                    QMessageBox::Warning,
                                    QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
            return false;
        if (!SetAside(path))
            return Fail(AppStrings::DatabaseCannotMoveAside(path));
        if (!mount->MountPath(path))
            return Fail(mount->GetLastError());
    }
    if (!CreateDatabase()) {
        const QString reason = mount->GetFailure();
        mount->Unmount();
        return Fail(StoreStrings::CannotCreateTables(path, reason));
    }
    if (!CAppStateTable::Instance().OpenState()) {
        const QString reason = mount->GetFailure();
        mount->Unmount();
        return Fail(StoreStrings::CannotReadState(
            path, reason.isEmpty() ? StoreStrings::StateRecordMissing() : reason));
    }
    return true;
}
