#include "NumericEdit.h"

#include <QLocale>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

CNumericEdit::CNumericEdit(QWidget* parent) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    UpdateValidator();
}

void CNumericEdit::SetWholeNumbers(bool wholeNumbers)
{
    m_wholeNumbers = wholeNumbers;
    setInputMethodHints(wholeNumbers ? Qt::ImhDigitsOnly : Qt::ImhFormattedNumbersOnly);
    UpdateValidator();
}

void CNumericEdit::UpdateValidator()
{
    QString pattern = QStringLiteral("-?\\d*");
    if (!m_wholeNumbers) {
        const QString separator = QRegularExpression::escape(QLocale().decimalPoint());
        // An alternation, not a class: "[." would open a POSIX collating element.
        pattern += QStringLiteral("((?:\\.|%1)\\d*)?").arg(separator);
    }
    setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), this));
}

double CNumericEdit::Value() const
{
    const QString shown = text().trimmed();
    if (shown.isEmpty() || shown == QLatin1String("-"))
        return EmptyValue;
    // Group separators are never typed here: in a locale whose group
    // separator is the point, "1.500" is the point typed as a decimal.
    QLocale locale;
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    bool ok = false;
    double value = locale.toDouble(shown, &ok);
    if (!ok) {
        QLocale c = QLocale::c();
        c.setNumberOptions(QLocale::RejectGroupSeparator);
        value = c.toDouble(shown, &ok);
    }
    return ok ? value : EmptyValue;
}

void CNumericEdit::SetValue(double value)
{
    if (value == EmptyValue) {
        clear();
        return;
    }
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    setText(locale.toString(value, 'g', 15));
}
