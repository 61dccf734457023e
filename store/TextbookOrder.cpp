#include "TextbookOrder.h"

#include "TableWalk.h"
#include "TextbookOrderTable.h"

#include <algorithm>
#include <utility>

std::vector<quint32> GetTextbookIDsInOrder(quint32 courseId)
{
    std::vector<std::pair<quint16, quint32>> rows; // (position, textbook id)
    ForEachRow<CTextbookOrderTable>(1, courseId, [&](CTextbookOrderTable& order) {
        rows.emplace_back(order.GetTextbookPosition(), order.GetTextbookID());
    });
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<quint32> ids;
    ids.reserve(rows.size());
    for (const auto& row : rows)
        ids.push_back(row.second);
    return ids;
}
