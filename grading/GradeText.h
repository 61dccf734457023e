#pragma once

#include <QString>

// How grade fractions become the texts the user reads.
namespace GradeText {

// A fraction as a percent rounded up to the next hundredth:
// ceil(fraction x 10000) x 0.01.
double PercentOf(double fraction);

// The same, cut to its whole part when above 100 (as the grade bar shows it).
double PercentOfCut(double fraction);

// The number-to-text rule: 0 gives "0", a whole number "%d", any other value
// "%f" with its trailing zeros removed.
QString NumberToText(double value);

} // namespace GradeText
