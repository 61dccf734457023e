#pragma once

#include "DataTable.h"

#include <type_traits>

// Visits every row of Table whose key in the sort order equals `key`. A visit
// that returns bool stops the walk with false. The result is false when the
// table could not be opened, a read failed or a visit said stop, so that a
// failed read is never taken for "no rows".
template <typename Table, typename Visit>
bool ForEachRow(quint16 sortOrder, quint32 key, Visit visit)
{
    Table table;
    if (!table.Open(sortOrder))
        return false;
    const CCeDBProp value(key);
    table.SetSeekValue(&value, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
        if constexpr (std::is_same_v<std::invoke_result_t<Visit, Table&>, bool>) {
            if (!visit(table))
                return false;
        } else {
            visit(table);
        }
    }
    return !table.ReadFailed();
}

// Deletes every row of Table whose key in the sort order equals `key`.
template <typename Table> bool DeleteRows(quint16 sortOrder, quint32 key)
{
    return ForEachRow<Table>(sortOrder, key,
                             [](Table& table) { return table.DeleteRecord(0) != 0; });
}
