#include "GradingDlgTypeWriter.h"

#include "store/BrindleData.h"

GradingDlgTypeWriter::GradingDlgTypeWriter(quint32 courseId) : m_courseId(courseId) {}

void GradingDlgTypeWriter::Write(const std::vector<quint32>& deletedIds,
                                 std::vector<CwTypeEntry>& entries)
{
    // Coursework of a deleted type waits here when no stored type remains to
    // take it (every old type deleted, only new ones left): it goes to the
    // first type once the new ones are stored.
    std::vector<quint32> orphaned;
    for (quint32 typeId : deletedIds) {
        DeleteType(typeId);
        if (const quint32 target = FirstRemainingType())
            MoveCoursework(typeId, target);
        else
            orphaned.push_back(typeId);
    }

    qint16 position = 0;
    for (CwTypeEntry& entry : entries)
        WriteEntry(entry, position++);

    if (!orphaned.empty()) {
        if (const quint32 target = FirstRemainingType())
            for (quint32 typeId : orphaned)
                MoveCoursework(typeId, target);
    }
}

void GradingDlgTypeWriter::DeleteType(quint32 typeId)
{
    CCwTypeTable type;
    if (type.Open() && type.MoveToRecord(typeId))
        type.DeleteRecord(0);

    CCwTypeOrderTable order;
    if (!order.Open(0))
        return;
    const CCeDBProp key(typeId);
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
        order.DeleteRecord(0);
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

void GradingDlgTypeWriter::MoveCoursework(quint32 fromType, quint32 toType)
{
    CCourseworkTable coursework;
    if (!coursework.Open(7))
        return;
    const CCeDBProp key(fromType);
    coursework.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
        if (coursework.GetCourseID() != m_courseId)
            continue;
        coursework.SetCwTypeID(toType);
        coursework.UpdateRecord();
    }
}

void GradingDlgTypeWriter::WriteEntry(CwTypeEntry& entry, qint16 position)
{
    CCwTypeTable type;
    CCwTypeOrderTable order;
    if (!type.Open() || !order.Open(0))
        return;
    bool haveOrder = false;
    if (entry.id != 0) {
        // A stored type whose record has gone is skipped.
        if (!type.MoveToRecord(entry.id))
            return;
        const CCeDBProp key(entry.id);
        order.SetSeekValue(&key, CDataTable::SeekValueEqual);
        haveOrder = order.MoveFirst(1) != 0;
    } else {
        type.NewRecord(0);
        type.SetCourseID(m_courseId);
        type.UpdateRecord();
        entry.id = type.GetRecordID();
        order.NewRecord(0);
        order.SetCwTypeID(entry.id);
        order.SetCourseID(m_courseId);
        haveOrder = true;
    }
    type.SetCwTypeName(entry.name);
    type.SetDrops(entry.drops);
    type.SetWeight(entry.weight);
    type.UpdateRecord();
    if (haveOrder) {
        order.SetCwTypePosition(position);
        order.UpdateRecord();
    }
}
