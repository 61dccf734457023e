#pragma once

#include "GradingDlgEntries.h"

#include <vector>

// Writes the grading policy dialog's type entries: deletes the removed types
// (their coursework goes to the course's first remaining type) and stores the
// entries in display order with positions 0, 1, 2, ... The caller holds the
// transaction.
class GradingDlgTypeWriter
{
public:
    explicit GradingDlgTypeWriter(quint32 courseId);

    // New entries get the ids of their new records.
    void Write(const std::vector<quint32>& deletedIds, std::vector<CwTypeEntry>& entries);

private:
    void DeleteType(quint32 typeId);
    // The course's first type in the type table's own order; 0 when none.
    quint32 FirstRemainingType() const;
    void MoveCoursework(quint32 fromType, quint32 toType);
    void WriteEntry(CwTypeEntry& entry, qint16 position);

    quint32 m_courseId;
};
