#include "GradingDlgTypeWriter.h"

#include "store/BrindleData.h"

GradingDlgTypeWriter::GradingDlgTypeWriter(quint32 courseId) : m_courseId(courseId) {}

bool GradingDlgTypeWriter::Write(const std::vector<quint32>& deletedIds,
                                 std::vector<CwTypeEntry>& entries)
{
    // Coursework of a deleted type waits here when no stored type remains to
    // take it (every old type deleted, only new ones left): it goes to the
    // first type once the new ones are stored.
    std::vector<quint32> orphaned;
    for (quint32 typeId : deletedIds) {
        if (!DeleteType(typeId))
            return false;
        if (const quint32 target = FirstRemainingType()) {
            if (!MoveCoursework(typeId, target))
                return false;
        } else {
            orphaned.push_back(typeId);
        }
    }

    qint16 position = 0;
    for (CwTypeEntry& entry : entries) {
        if (!WriteEntry(entry, position++))
            return false;
    }

    if (!orphaned.empty()) {
        if (const quint32 target = FirstRemainingType()) {
            for (quint32 typeId : orphaned) {
                if (!MoveCoursework(typeId, target))
                    return false;
            }
        }
    }
    return true;
}

bool GradingDlgTypeWriter::DeleteType(quint32 typeId)
{
    CCwTypeTable type;
    if (!type.Open())
        return false;
    if (type.MoveToRecord(typeId) && !type.DeleteRecord(0))
        return false;

    CCwTypeOrderTable order;
    if (!order.Open(0))
        return false;
    const CCeDBProp key(typeId);
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1)) {
        if (!order.DeleteRecord(0))
            return false;
    }
    return true;
}

quint32 GradingDlgTypeWriter::FirstRemainingType() const
{
    CCwTypeTable type;
    if (!type.Open(0))
        return 0;
    const CCeDBProp key(m_courseId);
    type.SetSeekValue(&key, CDataTable::SeekValueEqual);
    return type.MoveFirst(1) ? type.GetRecordID() : 0;
}

bool GradingDlgTypeWriter::MoveCoursework(quint32 fromType, quint32 toType)
{
    CCourseworkTable coursework;
    if (!coursework.Open(7))
        return false;
    const CCeDBProp key(fromType);
    coursework.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
        if (coursework.GetCourseID() != m_courseId)
            continue;
        coursework.SetCwTypeID(toType);
        if (!coursework.UpdateRecord())
            return false;
    }
    return true;
}

bool GradingDlgTypeWriter::WriteEntry(CwTypeEntry& entry, qint16 position)
{
    CCwTypeTable type;
    CCwTypeOrderTable order;
    if (!type.Open() || !order.Open(0))
        return false;
    bool haveOrder = false;
    quint32 typeId = entry.id;
    if (typeId != 0) {
        // A stored type whose record has gone is skipped.
        if (!type.MoveToRecord(typeId))
            return true;
        const CCeDBProp key(typeId);
        order.SetSeekValue(&key, CDataTable::SeekValueEqual);
        haveOrder = order.MoveFirst(1) != 0;
    } else {
        if (!type.NewRecord(0))
            return false;
        type.SetCourseID(m_courseId);
        if (!type.UpdateRecord())
            return false;
        typeId = type.GetRecordID();
        if (!order.NewRecord(0))
            return false;
        order.SetCwTypeID(typeId);
        order.SetCourseID(m_courseId);
        haveOrder = true;
    }
    type.SetCwTypeName(entry.name);
    type.SetDrops(entry.drops);
    type.SetWeight(entry.weight);
    if (!type.UpdateRecord())
        return false;
    if (haveOrder) {
        order.SetCwTypePosition(position);
        if (!order.UpdateRecord())
            return false;
    }
    // The entry takes its new id only once everything of it is stored.
    entry.id = typeId;
    return true;
}
