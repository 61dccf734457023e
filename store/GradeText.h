#pragma once

#include <QString>

// How grade fractions become the texts the user reads. Every text here uses a
// point as its decimal separator, whatever the user's locale, as the grade,
// percent and GPA formats have always printed them.
namespace GradeText {

// Whether a grade fraction stands for a score: not the -1.0 marker and a
// finite number (a 0/0 under Per Item with no weights is stored as computed
// but is no score to show or to count in a GPA).
bool HasScore(double fraction);

// A fraction as a percent rounded up to the next hundredth:
// ceil(fraction x 10000) x 0.01 of the true value. Binary noise (an excess
// below 1e-9 of a hundredth, as in 0.56 x 10000 = 5600.000000000001) does
// not round up, so exact percents stay exact.
double PercentOf(double fraction);

// The same, cut to its whole part when above 100 (as the grade bar shows it).
double PercentOfCut(double fraction);

// The number-to-text rule: 0 gives "0", a whole number its digits ("%d", of
// any size), any other value "%f" with its trailing zeros removed.
QString NumberToText(double value);

// A value with a fixed number of decimals ("%.2f"), with a point.
QString FixedText(double value, int decimals);

} // namespace GradeText
