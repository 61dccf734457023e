#pragma once

#include "DueItem.h"

#include <QByteArray>
#include <QString>

#include <vector>

// The terminal forms of the Today list, for scripts and status bars.
namespace DueListFormat {

// One line per item: due time, course, coursework, a past-due mark, in
// columns padded to the widest entry.
QString Text(const std::vector<DueItem>& items);

// A JSON array of objects: id, name, course, due (ISO 8601 local time),
// pastDue, completed.
QByteArray Json(const std::vector<DueItem>& items);

QString DueText(const QDateTime& due);

} // namespace DueListFormat
