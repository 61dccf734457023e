#pragma once

#include <QLineEdit>

// The numeric field of every numeric value Brindle edits. It takes digits, a
// leading minus, (unless whole numbers only) one decimal separator, the
// user's locale's or a point, and an exponent ("1e5" is 100000, as numbers
// too large for plain digits are shown). Other characters are refused with a
// short hint beside the field. An empty field reads as EmptyValue. Ranges are
// the dialogs' business: they say what is wrong.
class CNumericEdit : public QLineEdit
{
    Q_OBJECT

public:
    static constexpr double EmptyValue = -999.0;

    explicit CNumericEdit(QWidget* parent = nullptr);

    void SetWholeNumbers(bool wholeNumbers);
    bool WholeNumbers() const { return m_wholeNumbers; }

    bool IsEmpty() const { return text().trimmed().isEmpty(); }
    // The number shown; EmptyValue when the field is empty.
    double Value() const;
    // Shows the number in the user's locale, without needless zeros;
    // EmptyValue empties the field.
    void SetValue(double value);

signals:
    // A typed character was refused; the hint is shown beside the field.
    void HintShown(const QString& hint);

private:
    void UpdateValidator();
    void ShowHint();

    bool m_wholeNumbers = false;
};
