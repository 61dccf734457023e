#include "Clock.h"

namespace BrindleClock {

namespace {
QDateTime& FixedMoment()
{
    static QDateTime moment;
    return moment;
}
} // namespace

QDateTime Now()
{
    const QDateTime& fixed = FixedMoment();
    return fixed.isValid() ? fixed : QDateTime::currentDateTime();
}

QDate Today()
{
    return Now().date();
}

void SetNow(const QDateTime& moment)
{
    FixedMoment() = moment;
}

} // namespace BrindleClock
