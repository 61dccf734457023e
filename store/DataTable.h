#pragma once

#include "CeDBProp.h"
#include "TableSchema.h"

#include <QString>
#include <QVariant>

#include <vector>

class CCeMount;

// The base of every record table. A table object lives for one operation:
// construct, Open (with a sort order when seeking), optionally SetSeekValue
// and SetFilter, walk with MoveFirst / MoveNext, read or write the current
// record, Close. A walk goes over a snapshot of the matching records taken by
// MoveFirst, so deleting the current record and then calling MoveNext goes
// on with the record that followed it.
class CDataTable
{
public:
    enum SeekType { SeekValueEqual = 0 };

    explicit CDataTable(const TableDef& definition);
    virtual ~CDataTable();
    CDataTable(const CDataTable&) = delete;
    CDataTable& operator=(const CDataTable&) = delete;

    int Open();
    int Open(const quint16& index);
    void Close();
    bool IsOpen() const { return m_open; }

    void SetSeekValue(const CCeDBProp* value, const SeekType& type);

    // Reads only the listed property positions from now on; the others keep
    // their default values.
    template <typename... Positions> void SetFilter(qint16 count, Positions... positions)
    {
        std::vector<int> list{static_cast<int>(positions)...};
        list.resize(static_cast<size_t>(std::max<qint16>(count, 0)), 0);
        ApplyFilter(list);
    }
    void ClearFilter();

    int MoveFirst(int read = 1);
    int MoveNext(int read = 1);
    int MoveToRecord(const quint32& id);

    int NewRecord(quint32 id = 0);
    int UpdateRecord();
    int DeleteRecord(int flag = 0);

    quint32 GetRecordID() const { return m_recordId; }
    quint16 GetRecordCount() const;

    // True when the last read (MoveFirst, MoveToRecord, GetRecordCount) hit
    // an SQLite error rather than finding nothing; the error is logged, and
    // dooms the transaction it happened in.
    bool ReadFailed() const { return m_readFailed; }
    // Reads the current record again, dropping whatever was set and not
    // written (after a rolled-back transaction, say).
    int Reload();

    static CCeMount* GetMount();

protected:
    // Supplies the value of every property of a record that NewRecord starts.
    virtual void InitializeNewRecordPropArray();

    quint32 UInt32At(int position) const { return m_values[position].toUInt(); }
    quint16 UInt16At(int position) const
    {
        return static_cast<quint16>(m_values[position].toUInt());
    }
    qint16 Int16At(int position) const { return static_cast<qint16>(m_values[position].toInt()); }
    int BoolAt(int position) const { return m_values[position].toInt(); }
    double DoubleAt(int position) const { return m_values[position].toDouble(); }
    QString StringAt(int position) const { return m_values[position].toString(); }

    void SetValue(int position, const QVariant& value);
    void SetDefault(int position, const QVariant& value) { m_values[position] = value; }

    const TableDef& Definition() const { return m_def; }

private:
    void ApplyFilter(const std::vector<int>& positions);
    void ResetValues();
    void LoadRow(size_t row);
    int LoadSnapshot();
    bool ReadRecord(quint32 id);
    int Insert(CCeMount* mount);
    int Update(CCeMount* mount);
    QByteArray ColumnList() const;

    const TableDef& m_def;
    bool m_open = false;
    int m_sortKey = RecordIdKey;
    bool m_seeking = false;
    QVariant m_seekValue;
    std::vector<int> m_readPositions; // empty: every property

    std::vector<QVariant> m_values;
    // Set since the record was read: only these are written back, so that a
    // long-lived or filtered table object never writes stale or unread values.
    std::vector<bool> m_dirty;
    // The properties a filtered walk does not read hold their defaults.
    bool m_unreadAreDefaults = true;
    quint32 m_recordId = 0;
    bool m_isNew = false;
    mutable bool m_readFailed = false;

    // The snapshot of the current walk: record ids and their property values.
    std::vector<quint32> m_snapshotIds;
    std::vector<std::vector<QVariant>> m_snapshotValues;
    size_t m_cursor = 0;
};
