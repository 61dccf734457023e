#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

// The database volume: one SQLite file. Mounting opens the connection;
// unmounting checkpoints and closes it so that the file alone holds every
// record and can be copied or replaced.
class CCeMount
{
public:
    CCeMount() = default;
    ~CCeMount();
    CCeMount(const CCeMount&) = delete;
    CCeMount& operator=(const CCeMount&) = delete;

    // Opens (creating when missing) the file at path. Returns nonzero on
    // success; on failure GetLastError() says why. A file that exists but is
    // not a Brindle database, or is damaged, is refused and left untouched.
    int MountPath(const QString& path);
    void Unmount();

    bool IsMounted() const { return m_db != nullptr; }
    QString GetPath() const { return m_path; }
    QString GetLastError() const { return m_lastError; }

    sqlite3* Handle() const { return m_db; }

    // A prepared statement kept for the life of the connection, reset and
    // with its bindings cleared; nullptr when the SQL does not compile.
    sqlite3_stmt* Statement(const QByteArray& sql);

    // Runs SQL that returns no rows; nonzero on success.
    int Execute(const QByteArray& sql);

    // The next record id: unique across all tables, never 0 or 0xFFFFFFFF,
    // never handed out twice. 0 when the sequence is exhausted or missing.
    quint32 AllocateRecordId();

private:
    bool CheckExistingFile(const QString& path);
    void FinalizeStatements();

    sqlite3* m_db = nullptr;
    QString m_path;
    QString m_lastError;
    QHash<QByteArray, sqlite3_stmt*> m_statements;
};
