#pragma once

#include <QString>

namespace BrindleDate {

// The locale's short time format in hours and minutes (time slots are whole
// minutes, so the seconds some locales show are left out).
QString ShortTimeFormat();

} // namespace BrindleDate
