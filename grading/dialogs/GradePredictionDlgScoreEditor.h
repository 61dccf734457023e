#pragma once

#include <QDialog>

class CNumericEdit;

// The value editor of "Edit Percent": one percent, 0 to 100. An empty field
// or a value out of range is refused with a message and the editor stays open.
class GradePredictionDlgScoreEditor : public QDialog
{
    Q_OBJECT

public:
    explicit GradePredictionDlgScoreEditor(QWidget* parent = nullptr);

    // -1.0 (none) shows an empty field.
    void SetPercent(double percent);
    double Percent() const;
    CNumericEdit* Field() const { return m_field; }

    // True when the field holds a percent from 0 to 100.
    bool IsValid() const;

    void accept() override;

private:
    CNumericEdit* m_field;
};
