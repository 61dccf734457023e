#pragma once

#include <QString>

// Mounts the database at GetDatabasePath() and makes whatever it lacks. A file
// that cannot be used (not a Brindle database, damaged, from a newer Brindle)
// is never overwritten: when interactive, the user is told why and may start
// on a fresh database while the old file is kept, unchanged, under a new name
// beside it; otherwise the reason goes to the caller and nothing changes.
class CDatabaseOpener
{
public:
    explicit CDatabaseOpener(bool interactive)
        : m_interactive(interactive)
    {
    }

    bool Open();

    QString ErrorText() const { return m_error; }
    // Where the unusable file was kept, when it was set aside.
    QString SetAsidePath() const { return m_setAside; }

private:
    bool m_interactive;
    QString m_error;
    QString m_setAside;
};
