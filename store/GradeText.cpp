#include "GradeText.h"

#include <cmath>

namespace GradeText {

namespace {
// The share of a hundredth below which an excess is taken as binary noise.
constexpr double NoiseShare = 1e-9;
} // namespace

bool HasScore(double fraction)
{
    return fraction != -1.0 && std::isfinite(fraction);
}

double PercentOf(double fraction)
{
    const double hundredths = fraction * 10000.0;
    const double below = std::floor(hundredths);
    const double rounded = hundredths - below < NoiseShare ? below : std::ceil(hundredths);
    return rounded * 0.01;
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
    // QString::number formats as C does, whatever the user's locale.
    if (std::isfinite(value) && value == std::trunc(value))
        return QString::number(value, 'f', 0);
    QString text = QString::number(value, 'f', 6);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    // A value a hair below a whole number prints as that number, not "100.".
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

QString FixedText(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

} // namespace GradeText
