#include "GradeScalesFile.h"

#include "Database.h"

#include <QFile>
#include <QStringList>

#include <cmath>

namespace {

// The program's own integer routine: a leading "-" negates the value of the
// rest; otherwise every character adds (code - '0') times its place value,
// nothing validated. Done in double so that no digit string can overflow into
// undefined behaviour: a long one simply reaches infinity.
double ParseInteger(QStringView field)
{
    bool negative = false;
    while (field.startsWith(QLatin1Char('-'))) { // iterative, so no input can exhaust the stack
        negative = !negative;
        field = field.mid(1);
    }
    double value = 0.0;
    const qsizetype length = field.size();
    for (qsizetype i = 0; i < length; ++i) {
        const int digit = int(field[i].unicode()) - '0';
        if (digit == 0)
            continue; // adds exactly 0, even where the place value is out of range
        const double place = std::pow(10.0, double(length - i - 1));
        value += std::trunc(digit * place);
    }
    return negative ? -value : value;
}

// Decimal fields: the parts left and right of the first "." as integers A and
// B (B of length L); A + B / 10^L, or A - B / 10^L when A is negative. "-0.5"
// thus reads 0.5, as the original program read it.
double ParseDecimal(QStringView field)
{
    const qsizetype dot = field.indexOf(QLatin1Char('.'));
    if (dot < 0)
        return ParseInteger(field);
    const double whole = ParseInteger(field.left(dot));
    const QStringView right = field.mid(dot + 1);
    const double part = ParseInteger(right) / std::pow(10.0, double(right.size()));
    return whole < 0.0 ? whole - part : whole + part;
}

// Each byte becomes one character as a signed 8-bit value: 0x80..0xFF turn
// into U+FF80..U+FFFF.
QString Widen(const QByteArray& bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (qsizetype i = 0; i < bytes.size(); ++i)
        out[i] =
            QChar(static_cast<char16_t>(static_cast<qint16>(static_cast<signed char>(bytes[i]))));
    return text;
}

} // namespace

std::vector<GradeScale> ParseGradeScales(const QByteArray& bytes)
{
    // Text editors end the last line with a line feed (or CR LF); it is not
    // part of the last grade's points. Line breaks inside the stream stay.
    QByteArray content = bytes;
    while (content.endsWith('\n') || content.endsWith('\r'))
        content.chop(1);
    const QString text = Widen(content);
    // Only "," separates; line breaks stay inside the field that follows them.
    const QList<QStringView> fields = QStringView(text).split(QLatin1Char(','));
    qsizetype next = 0;
    const auto available = [&](qsizetype count) { return fields.size() - next >= count; };

    std::vector<GradeScale> scales;
    if (!available(1))
        return scales;
    // Counts stay doubles: every loop is bounded by the fields actually there,
    // so a huge or garbage count only ends the loop early.
    const double scaleCount = ParseInteger(fields[next++]);
    for (double s = 0; s < scaleCount && available(2); ++s) {
        GradeScale scale;
        scale.name = fields[next++].toString();
        const double gradeCount = ParseInteger(fields[next++]);
        for (double g = 0; g < gradeCount && available(2); ++g) {
            GradeScaleEntry entry;
            entry.name = fields[next++].toString();
            entry.points = ParseDecimal(fields[next++]);
            scale.grades.push_back(std::move(entry));
        }
        scales.push_back(std::move(scale));
    }
    return scales;
}

std::vector<GradeScale> LoadPredefinedGradeScales()
{
    QFile file(GetInstallationPath() + QStringLiteral("/GradeScales.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return ParseGradeScales(file.readAll());
}
