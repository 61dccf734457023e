#pragma once

#include <QString>

#include <memory>

class QLockFile;

// Mounts the database at GetDatabasePath() and makes whatever it lacks.
//
// - A file that cannot be used (not a Brindle database, damaged after SQLite
//   tried to recover it, from a newer Brindle) is never overwritten: when
//   interactive, the user is told why and may start on a fresh database while
//   the old file, with its journal files, is kept unchanged under a new name
//   beside it.
// - A file locked by another program, a read-only one, a folder at the path
//   and any failure after the check (the tables, the state record) are
//   reported and nothing changes; such a file is never set aside.
// - One Brindle per database file: a second one is told the file is open in
//   another window, and stops.
// When not interactive, the reason goes to the caller and no box is shown.
class CDatabaseOpener
{
public:
    explicit CDatabaseOpener(bool interactive);
    // Lets go of the one-window lock; the program keeps its opener to the end.
    ~CDatabaseOpener();
    CDatabaseOpener(const CDatabaseOpener&) = delete;
    CDatabaseOpener& operator=(const CDatabaseOpener&) = delete;

    bool Open();

    QString ErrorText() const { return m_error; }
    // Where the unusable file was kept, when it was set aside.
    QString SetAsidePath() const { return m_setAside; }

private:
    bool LockAgainstSecondWindow(const QString& path);
    bool SetAside(const QString& path);
    bool Fail(const QString& text);

    bool m_interactive;
    QString m_error;
    QString m_setAside;
    std::unique_ptr<QLockFile> m_lock;
};
