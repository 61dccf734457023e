#pragma once

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
