#include "DateEncoding.h"

#include <cmath>

namespace {
// Julian day number of 30 December 1899, day zero of the encoding.
const qint64 EpochJulianDay = QDate(1899, 12, 30).toJulianDay();
constexpr double MillisecondsPerDay = 86400000.0;

// Only values of the encoding's window convert: NaN, an infinity or a day
// outside years 1 to 9999 gives an invalid date or time, never a cast of a
// number that no integer holds.
bool InWindow(double value)
{
    return std::isfinite(value) && value >= BrindleDate::MinDate() &&
           value < BrindleDate::MaxDate() + 1.0;
}
} // namespace

namespace BrindleDate {

double MinDate()
{
    return FromDate(QDate(1, 1, 1));
}

double MaxDate()
{
    return FromDate(QDate(9999, 12, 31));
}

double FromDate(QDate date)
{
    return static_cast<double>(date.toJulianDay() - EpochJulianDay);
}

double FromTime(QTime time)
{
    return time.msecsSinceStartOfDay() / MillisecondsPerDay;
}

double FromDateTime(const QDateTime& dateTime)
{
    return FromDate(dateTime.date()) + FromTime(dateTime.time());
}

double WholeDays(double value)
{
    return std::floor(value);
}

QDate ToDate(double value)
{
    if (!InWindow(value))
        return {};
    return QDate::fromJulianDay(EpochJulianDay + static_cast<qint64>(std::floor(value)));
}

QTime ToTime(double value)
{
    if (!InWindow(value))
        return {};
    const double fraction = value - std::floor(value);
    // Round to the millisecond so that 10:50 stored as a double reads back as 10:50.
    auto ms = static_cast<int>(std::llround(fraction * MillisecondsPerDay));
    ms = std::min(ms, static_cast<int>(MillisecondsPerDay) - 1);
    return QTime::fromMSecsSinceStartOfDay(ms);
}

QDateTime ToDateTime(double value)
{
    if (!InWindow(value))
        return {};
    return QDateTime(ToDate(value), ToTime(value));
}

} // namespace BrindleDate
