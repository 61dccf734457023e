#pragma once

#include <QByteArray>

// A group of writes that lands whole or not at all. Construct it before the
// first write and Commit() after the last; leaving the scope without Commit()
// (an early return, a failed step) rolls every write of the group back.
// Scopes nest: an inner one commits into the outer one.
class CTransaction
{
public:
    CTransaction();
    ~CTransaction();
    CTransaction(const CTransaction&) = delete;
    CTransaction& operator=(const CTransaction&) = delete;

    // Nonzero when the writes of the group were committed.
    int Commit();
    void Rollback();

private:
    QByteArray m_name;
    bool m_active = false;
};
