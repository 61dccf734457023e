#pragma once

#include <QDate>
#include <QDateTime>

// The one source of "now" for the views: the list's date windows, overdue
// marks, new demo data. Tests fix it to a known moment.
namespace BrindleClock {

QDateTime Now();
QDate Today();

// Fixes the clock at a moment; an invalid QDateTime lets it run again.
void SetNow(const QDateTime& moment);

} // namespace BrindleClock
