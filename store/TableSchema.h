#pragma once

#include <QByteArray>

#include <algorithm>
#include <span>

// How one record table is laid out in the database file: its SQL name, its
// properties in property order, and its numbered sort orders.
enum class FieldType { UInt32, UInt16, Int16, Bool, Double, String };

struct FieldDef
{
    const char* name;
    FieldType type;
};

// A sort order: the property it is keyed on, or RecordIdKey for the record id.
// Records with equal keys always come out in record-id order.
constexpr int RecordIdKey = -1;

struct TableDef
{
    const char* name;
    std::span<const FieldDef> fields;
    std::span<const int> sortOrders;
};

// A string property that a sort order is keyed on is stored twice: as typed,
// and case-folded in a key column beside it ("CourseNameKey"). The sort
// order's index, every seek and every ordering use the key column, so that
// names compare without regard to case in every script, while the file needs
// nothing but SQLite's built-in collation (the stock sqlite3 tool can check it).
inline bool HasFoldedKey(const TableDef& def, int position)
{
    return position >= 0 && def.fields[static_cast<size_t>(position)].type == FieldType::String &&
           std::find(def.sortOrders.begin(), def.sortOrders.end(), position) !=
               def.sortOrders.end();
}

inline QByteArray FoldedKeyColumn(const FieldDef& field)
{
    return QByteArray(field.name).append("Key");
}
