#pragma once

#include <QString>

// A group of writes that lands whole or not at all. Construct it before the
// first write and Commit() after the last; leaving the scope without Commit()
// (an early return, a failed step) rolls every write of the group back.
//
// Scopes nest; an inner one commits into the outer one. Whatever fails inside
// (an SQLite error, an inner scope left without Commit) fails the whole: the
// store writes nothing more until the outermost scope ends, and its Commit()
// rolls everything back and returns 0. A failed COMMIT (another process
// reading, a full disk) rolls back too. After any rollback the program-wide
// application state is read again, so memory never keeps what the file lost.
class CTransaction
{
public:
    CTransaction();
    ~CTransaction();
    CTransaction(const CTransaction&) = delete;
    CTransaction& operator=(const CTransaction&) = delete;

    // Nonzero when the writes of the group were committed (for an inner
    // scope: kept for the outer one's commit). 0 when nothing of the whole
    // transaction was kept; LastFailure() says why.
    int Commit();
    void Rollback();

    // Why the last transaction failed, in a form fit for a message: SQLite's
    // own words ("database is locked", "disk I/O error") or the store's.
    static QString LastFailure();

private:
    int End(bool commit);

    bool m_open = false;
};
