#include "NumericEdit.h"

#include "res/strings/ControlStrings.h"

#include <QLocale>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QToolTip>

CNumericEdit::CNumericEdit(QWidget* parent) : QLineEdit(parent)
{
    setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    UpdateValidator();
    connect(this, &QLineEdit::inputRejected, this, &CNumericEdit::ShowHint);
}

void CNumericEdit::ShowHint()
{
    const QString hint = ControlStrings::NumbersOnly();
    QToolTip::showText(mapToGlobal(QPoint(0, height())), hint, this);
    emit HintShown(hint);
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
        pattern += QStringLiteral("([eE][-+]?\\d*)?");
    } else {
        // A whole number's exponent is never negative.
        pattern += QStringLiteral("([eE]\\d*)?");
    }
    setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), this));
}

double CNumericEdit::Value() const
{
    QString shown = text().trimmed();
    // An exponent still being typed ("1e", "2e-") counts as not there yet.
    static const QRegularExpression openExponent(QStringLiteral("[eE][-+]?$"));
    shown.remove(openExponent);
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
