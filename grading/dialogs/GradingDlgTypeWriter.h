#pragma once

#include "GradingDlgEntries.h"

#include <vector>

// Writes the grading policy dialog's type entries: deletes the removed types
// (their coursework goes to the course's first remaining type) and stores the
// entries in display order with positions 0, 1, 2, ... The caller holds the
// transaction; every write is checked, and false means one failed, so the
// caller rolls the whole OK back.
class GradingDlgTypeWriter
{
public:
    explicit GradingDlgTypeWriter(quint32 courseId);

    // New entries get the ids of their new records.
    bool Write(const std::vector<quint32>& deletedIds, std::vector<CwTypeEntry>& entries);

private:
    bool DeleteType(quint32 typeId);
    // The course's first type in the type table's own order; 0 when none.
    quint32 FirstRemainingType() const;
    bool MoveCoursework(quint32 fromType, quint32 toType);
    bool WriteEntry(CwTypeEntry& entry, qint16 position);

    quint32 m_courseId;
};
