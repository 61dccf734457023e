#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

// The database volume: one SQLite file. Mounting opens the connection;
// unmounting closes it so that the file alone holds every record and can be
// copied or replaced.
//
// Every SQLite error on the connection is logged (result code, SQLite's
// message and the statement) and kept as the reason of the current failure.
// An error inside a transaction dooms it: the store refuses further writes
// until the outermost scope ends, and that scope rolls everything back.
class CCeMount
{
public:
    // Why a file could not be mounted; it decides what the user is offered.
    enum class Problem {
        None,
        Unusable,    // not a database, another program's, damaged or newer: may be set aside
        InUse,       // locked by another process: wait and try again, never set aside
        NotWritable, // a read-only file or folder: Brindle could not save anything
        CannotOpen,  // a folder at the path, no permission, no such folder
    };

    CCeMount() = default;
    ~CCeMount();
    CCeMount(const CCeMount&) = delete;
    CCeMount& operator=(const CCeMount&) = delete;

    // Opens (creating when missing) the file at path. Returns nonzero on
    // success; on failure GetLastError() says why and GetProblem() what kind.
    // A hot journal left by a crash is rolled back, as SQLite intends. A file
    // that exists but is not a Brindle database, or is damaged, is refused and
    // left untouched.
    // How much of the file is proven on mounting: every page (quick_check),
    // or only that SQLite reads it, for a reader that opens it every minute.
    enum class ContentCheck { EveryPage, Readable };
    int MountPath(const QString& path, ContentCheck contents = ContentCheck::EveryPage);
    void Unmount();

    bool IsMounted() const { return m_db != nullptr; }
    QString GetPath() const { return m_path; }
    QString GetLastError() const { return m_lastError; }
    Problem GetProblem() const { return m_problem; }

    sqlite3* Handle() const { return m_db; }

    // A prepared statement kept for the life of the connection, reset and
    // with its bindings cleared; nullptr (logged) when the SQL does not compile.
    sqlite3_stmt* Statement(const QByteArray& sql);

    // Runs SQL that returns no rows; nonzero on success.
    int Execute(const QByteArray& sql);
    // The first column of the first row of a query; ok says whether it ran.
    qint64 Scalar(const QByteArray& sql, bool* ok = nullptr);

    // Checks a result code of a statement on this connection: nonzero when it
    // is one of the expected ones (SQLITE_OK, SQLITE_ROW, SQLITE_DONE); else the
    // error is logged and reported, and an open transaction is doomed.
    int Check(int resultCode, sqlite3_stmt* statement);
    void ReportError(int resultCode, const QByteArray& sql);

    // The next record id: unique across all tables, never 0 or 0xFFFFFFFF,
    // never handed out twice, also when the transaction that used it is rolled
    // back and after a restart. 0 when none can be had.
    quint32 AllocateRecordId();

    // Transactions, used through CTransaction.
    int BeginScope();
    int EndScope(bool commit);
    int ScopeDepth() const { return m_depth; }
    // False while a failed transaction waits for its outermost scope to end.
    bool WritesAllowed();
    // Why the last transaction (or write) failed, in SQLite's words.
    QString GetFailure() const { return m_failure; }

    // Milliseconds every connection waits for another process's lock.
    static void SetBusyTimeout(int milliseconds);
    static int BusyTimeout();

private:
    bool CheckExistingFile(const QString& path);
    bool CheckHeader(const QString& path);
    bool CheckContents(const QString& path, ContentCheck contents);
    bool Fail(Problem problem, const QString& text);
    bool ReserveIds();
    void KeepReservedIds();
    void FinalizeStatements();
    void Doom(const QString& reason);

    sqlite3* m_db = nullptr;
    QString m_path;
    QString m_lastError;
    Problem m_problem = Problem::None;
    QHash<QByteArray, sqlite3_stmt*> m_statements;

    // Open CTransaction scopes; 0 outside any transaction.
    int m_depth = 0;
    bool m_doomed = false;
    QString m_failure;

    // Record ids reserved, durably, ahead of use: next to hand out and last.
    quint32 m_nextId = 0;
    quint32 m_lastReservedId = 0;
    // Set when ids had to be reserved inside a transaction, whose rollback
    // would give them back: they are then kept with a write of their own.
    bool m_reservedInTransaction = false;
};
