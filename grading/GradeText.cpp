#include "GradeText.h"

#include <cmath>
#include <cstdio>

namespace GradeText {

double PercentOf(double fraction)
{
    return std::ceil(fraction * 10000.0) * 0.01;
}

double PercentOfCut(double fraction)
{
    const double percent = PercentOf(fraction);
    return percent > 100.0 ? std::trunc(percent) : percent;
}

QString NumberToText(double value)
{
    if (value == 0.0)
        return QStringLiteral("0");
    if (value == std::trunc(value) && std::fabs(value) < 2147483648.0)
        return QString::number(static_cast<int>(value));
    // "%f" as C formats it, whatever the user's locale; then trailing zeros go.
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%f", value);
    QString text = QString::fromLatin1(buffer);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    return text;
}

} // namespace GradeText
