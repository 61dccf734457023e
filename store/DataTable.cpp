#include "DataTable.h"

#include "CeMount.h"
#include "Schema.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace {

QVariant DefaultFor(FieldType type)
{
    switch (type) {
    case FieldType::Double:
        return 0.0;
    case FieldType::String:
        return QString();
    default:
        return 0;
    }
}

int Bind(sqlite3_stmt* stmt, int index, FieldType type, const QVariant& value)
{
    switch (type) {
    case FieldType::UInt32:
        return sqlite3_bind_int64(stmt, index, value.toUInt());
    case FieldType::UInt16:
        return sqlite3_bind_int64(stmt, index, static_cast<quint16>(value.toUInt()));
    case FieldType::Int16:
        return sqlite3_bind_int64(stmt, index, static_cast<qint16>(value.toInt()));
    case FieldType::Bool:
        return sqlite3_bind_int64(stmt, index, value.toInt());
    case FieldType::Double:
        return sqlite3_bind_double(stmt, index, value.toDouble());
    case FieldType::String:
        break;
    }
    const QByteArray utf8 = value.toString().toUtf8();
    return sqlite3_bind_text(stmt, index, utf8.constData(), static_cast<int>(utf8.size()),
                             SQLITE_TRANSIENT);
}

QVariant FoldedKey(const QVariant& value)
{
    return value.toString().toCaseFolded();
}

// Runs a statement that returns no rows and resets it; nonzero when it ran.
int StepToEnd(CCeMount* mount, sqlite3_stmt* stmt)
{
    const int resultCode = sqlite3_step(stmt);
    const int ok = mount->Check(resultCode, stmt);
    sqlite3_reset(stmt);
    return ok && resultCode == SQLITE_DONE;
}

QVariant Column(sqlite3_stmt* stmt, int column, FieldType type)
{
    switch (type) {
    case FieldType::UInt32:
        return static_cast<uint>(sqlite3_column_int64(stmt, column));
    case FieldType::UInt16:
        return static_cast<uint>(static_cast<quint16>(sqlite3_column_int64(stmt, column)));
    case FieldType::Int16:
        return static_cast<int>(static_cast<qint16>(sqlite3_column_int64(stmt, column)));
    case FieldType::Bool:
        return static_cast<int>(sqlite3_column_int64(stmt, column));
    case FieldType::Double:
        // SQLite stores a NaN as NULL; it reads back as the NaN it was.
        if (sqlite3_column_type(stmt, column) == SQLITE_NULL)
            return std::numeric_limits<double>::quiet_NaN();
        return sqlite3_column_double(stmt, column);
    case FieldType::String: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(stmt, column));
    }
    }
    return {};
}

} // namespace

CDataTable::CDataTable(const TableDef& definition) : m_def(definition)
{
    ResetValues();
}

CDataTable::~CDataTable()
{
    Close();
}

CCeMount* CDataTable::GetMount()
{
    static CCeMount mount;
    return &mount;
}

int CDataTable::Open()
{
    return Open(0);
}

int CDataTable::Open(const quint16& index)
{
    Close();
    if (!GetMount()->IsMounted() || index >= m_def.sortOrders.size())
        return 0;
    m_sortKey = m_def.sortOrders[index];
    m_open = true;
    return 1;
}

void CDataTable::Close()
{
    m_open = false;
    m_seeking = false;
    m_seekValue.clear();
    m_readPositions.clear();
    m_snapshotIds.clear();
    m_snapshotValues.clear();
    m_cursor = 0;
}

void CDataTable::SetSeekValue(const CCeDBProp* value, const SeekType&)
{
    m_seeking = value && value->GetKind() != CCeDBProp::Empty;
    m_seekValue = m_seeking ? value->GetValue() : QVariant();
}

void CDataTable::ApplyFilter(const std::vector<int>& positions)
{
    m_readPositions.clear();
    for (int position : positions)
        if (position >= 0 && position < static_cast<int>(m_def.fields.size()))
            m_readPositions.push_back(position);
}

void CDataTable::ClearFilter()
{
    m_readPositions.clear();
}

void CDataTable::ResetValues()
{
    m_values.assign(m_def.fields.size(), QVariant());
    for (size_t i = 0; i < m_def.fields.size(); ++i)
        m_values[i] = DefaultFor(m_def.fields[i].type);
    m_dirty.assign(m_def.fields.size(), false);
    m_unreadAreDefaults = true;
}

void CDataTable::InitializeNewRecordPropArray() {}

void CDataTable::SetValue(int position, const QVariant& value)
{
    m_values[position] = value;
    m_dirty[position] = true;
    m_unreadAreDefaults = false;
}

QByteArray CDataTable::ColumnList() const
{
    QByteArray list = "id";
    auto append = [&](int position) {
        list += ", ";
        list += m_def.fields[position].name;
    };
    if (m_readPositions.empty()) {
        for (size_t i = 0; i < m_def.fields.size(); ++i)
            append(static_cast<int>(i));
    } else {
        for (int position : m_readPositions)
            append(position);
    }
    return list;
}

int CDataTable::LoadSnapshot()
{
    m_snapshotIds.clear();
    m_snapshotValues.clear();
    m_cursor = 0;
    m_readFailed = false;

    const bool foldedKey = HasFoldedKey(m_def, m_sortKey);
    QByteArray key = m_sortKey == RecordIdKey ? QByteArray("id")
                     : foldedKey              ? FoldedKeyColumn(m_def.fields[m_sortKey])
                                              : QByteArray(m_def.fields[m_sortKey].name);

    QByteArray sql = "SELECT " + ColumnList() + " FROM " + m_def.name;
    if (m_seeking)
        sql += " WHERE " + key + " = ?1";
    sql += " ORDER BY " + key;
    if (m_sortKey != RecordIdKey)
        sql += ", id";

    CCeMount* mount = GetMount();
    sqlite3_stmt* stmt = mount->Statement(sql);
    if (!stmt) {
        m_readFailed = true;
        return 0;
    }
    if (m_seeking) {
        const FieldType keyType =
            m_sortKey == RecordIdKey ? FieldType::UInt32 : m_def.fields[m_sortKey].type;
        if (!mount->Check(Bind(stmt, 1, keyType, foldedKey ? FoldedKey(m_seekValue) : m_seekValue),
                          stmt)) {
            m_readFailed = true;
            return 0;
        }
    }

    std::vector<int> positions = m_readPositions;
    if (positions.empty())
        for (size_t i = 0; i < m_def.fields.size(); ++i)
            positions.push_back(static_cast<int>(i));

    int resultCode = SQLITE_ROW;
    while ((resultCode = sqlite3_step(stmt)) == SQLITE_ROW) {
        m_snapshotIds.push_back(static_cast<quint32>(sqlite3_column_int64(stmt, 0)));
        std::vector<QVariant> row(positions.size());
        for (size_t c = 0; c < positions.size(); ++c)
            row[c] = Column(stmt, static_cast<int>(c) + 1, m_def.fields[positions[c]].type);
        m_snapshotValues.push_back(std::move(row));
    }
    // A read that fails is not an empty range: nothing of it is walked.
    m_readFailed = !mount->Check(resultCode, stmt);
    sqlite3_reset(stmt);
    if (m_readFailed) {
        m_snapshotIds.clear();
        m_snapshotValues.clear();
        return 0;
    }
    return 1;
}

void CDataTable::LoadRow(size_t row)
{
    m_isNew = false;
    m_recordId = m_snapshotIds[row];
    auto& values = m_snapshotValues[row];
    if (m_readPositions.empty()) {
        // Every property was read: the snapshot row becomes the record as it is.
        m_values = std::move(values);
        m_unreadAreDefaults = false;
    } else {
        if (!m_unreadAreDefaults)
            ResetValues();
        for (size_t c = 0; c < values.size(); ++c)
            m_values[m_readPositions[c]] = std::move(values[c]);
    }
    std::fill(m_dirty.begin(), m_dirty.end(), false);
}

int CDataTable::MoveFirst(int)
{
    if (!m_open || !LoadSnapshot() || m_snapshotIds.empty())
        return 0;
    LoadRow(0);
    return 1;
}

int CDataTable::MoveNext(int)
{
    if (!m_open || m_cursor + 1 >= m_snapshotIds.size())
        return 0;
    ++m_cursor;
    LoadRow(m_cursor);
    return 1;
}

bool CDataTable::ReadRecord(quint32 id)
{
    m_readFailed = false;
    CCeMount* mount = GetMount();
    sqlite3_stmt* stmt =
        mount->Statement("SELECT " + ColumnList() + " FROM " + m_def.name + " WHERE id = ?1");
    if (!stmt) {
        m_readFailed = true;
        return false;
    }
    sqlite3_bind_int64(stmt, 1, id);
    const int resultCode = sqlite3_step(stmt);
    const bool found = resultCode == SQLITE_ROW;
    if (found) {
        ResetValues();
        m_isNew = false;
        m_recordId = id;
        const int columns = sqlite3_column_count(stmt) - 1;
        for (int c = 0; c < columns; ++c) {
            const int position = m_readPositions.empty() ? c : m_readPositions[c];
            m_values[position] = Column(stmt, c + 1, m_def.fields[position].type);
        }
        m_unreadAreDefaults = !m_readPositions.empty();
    }
    m_readFailed = !mount->Check(resultCode, stmt);
    sqlite3_reset(stmt);
    return found;
}

int CDataTable::MoveToRecord(const quint32& id)
{
    if (!m_open || id == 0)
        return 0;
    return ReadRecord(id) ? 1 : 0;
}

int CDataTable::NewRecord(quint32)
{
    if (!m_open)
        return 0;
    ResetValues();
    InitializeNewRecordPropArray();
    m_unreadAreDefaults = false;
    m_dirty.assign(m_def.fields.size(), true);
    m_recordId = 0;
    m_isNew = true;
    return 1;
}

int CDataTable::Insert(CCeMount* mount)
{
    const quint32 id = mount->AllocateRecordId();
    if (id == 0)
        return 0;
    QByteArray columns = "id";
    QByteArray params = "?1";
    int parameter = 1;
    auto addColumn = [&](const QByteArray& name) {
        columns += ", " + name;
        params += ", ?" + QByteArray::number(++parameter);
    };
    for (size_t i = 0; i < m_def.fields.size(); ++i)
        addColumn(m_def.fields[i].name);
    for (size_t i = 0; i < m_def.fields.size(); ++i)
        if (HasFoldedKey(m_def, static_cast<int>(i)))
            addColumn(FoldedKeyColumn(m_def.fields[i]));
    sqlite3_stmt* stmt = mount->Statement("INSERT INTO " + QByteArray(m_def.name) + " (" + columns +
                                          ") VALUES (" + params + ")");
    if (!stmt)
        return 0;
    int bound = sqlite3_bind_int64(stmt, 1, id);
    parameter = 1;
    for (size_t i = 0; i < m_def.fields.size() && bound == SQLITE_OK; ++i)
        bound = Bind(stmt, ++parameter, m_def.fields[i].type, m_values[i]);
    for (size_t i = 0; i < m_def.fields.size() && bound == SQLITE_OK; ++i)
        if (HasFoldedKey(m_def, static_cast<int>(i)))
            bound = Bind(stmt, ++parameter, FieldType::String, FoldedKey(m_values[i]));
    if (!mount->Check(bound, stmt) || !StepToEnd(mount, stmt))
        return 0;
    m_recordId = id;
    m_isNew = false;
    return 1;
}

int CDataTable::Update(CCeMount* mount)
{
    if (m_recordId == 0)
        return 0;
    QByteArray assignments;
    // (column, type, value) of each written column: the set properties and
    // the folded keys of those that have one.
    std::vector<std::tuple<QByteArray, FieldType, QVariant>> written;
    for (size_t i = 0; i < m_def.fields.size(); ++i) {
        if (!m_dirty[i])
            continue;
        const FieldDef& field = m_def.fields[i];
        written.emplace_back(field.name, field.type, m_values[i]);
        if (HasFoldedKey(m_def, static_cast<int>(i)))
            written.emplace_back(FoldedKeyColumn(field), FieldType::String, FoldedKey(m_values[i]));
    }
    if (written.empty())
        return 1;
    for (size_t w = 0; w < written.size(); ++w) {
        if (w > 0)
            assignments += ", ";
        assignments += std::get<0>(written[w]) + " = ?" + QByteArray::number(int(w) + 2);
    }
    sqlite3_stmt* stmt = mount->Statement("UPDATE " + QByteArray(m_def.name) + " SET " +
                                          assignments + " WHERE id = ?1");
    if (!stmt)
        return 0;
    int bound = sqlite3_bind_int64(stmt, 1, m_recordId);
    for (size_t w = 0; w < written.size() && bound == SQLITE_OK; ++w)
        bound = Bind(stmt, int(w) + 2, std::get<1>(written[w]), std::get<2>(written[w]));
    if (!mount->Check(bound, stmt) || !StepToEnd(mount, stmt))
        return 0;
    // A record that is gone is not written (and not an error of SQLite's).
    return sqlite3_changes(mount->Handle()) > 0 ? 1 : 0;
}

int CDataTable::UpdateRecord()
{
    CCeMount* mount = GetMount();
    if (!m_open || !mount->WritesAllowed())
        return 0;
    if (!(m_isNew ? Insert(mount) : Update(mount)))
        return 0;
    // Written: from now on only what is set again is written again, so that
    // a long-lived object never undoes another writer's change.
    std::fill(m_dirty.begin(), m_dirty.end(), false);
    return 1;
}

int CDataTable::DeleteRecord(int)
{
    CCeMount* mount = GetMount();
    if (!m_open || m_isNew || m_recordId == 0 || !mount->WritesAllowed())
        return 0;
    sqlite3_stmt* stmt =
        mount->Statement("DELETE FROM " + QByteArray(m_def.name) + " WHERE id = ?1");
    if (!stmt)
        return 0;
    sqlite3_bind_int64(stmt, 1, m_recordId);
    return StepToEnd(mount, stmt) && sqlite3_changes(mount->Handle()) > 0 ? 1 : 0;
}

quint16 CDataTable::GetRecordCount() const
{
    m_readFailed = false;
    bool ok = false;
    const qint64 count = GetMount()->Scalar("SELECT count(*) FROM " + QByteArray(m_def.name), &ok);
    m_readFailed = !ok;
    return ok ? static_cast<quint16>(std::clamp<qint64>(count, 0, 0xFFFF)) : 0;
}

int CDataTable::Reload()
{
    return m_open && m_recordId != 0 && !m_isNew && ReadRecord(m_recordId) ? 1 : 0;
}
