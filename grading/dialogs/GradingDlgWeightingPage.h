#pragma once

#include <QWidget>

class QButtonGroup;

// The "Weighting" page: None, By Type, Per Item, standing for the stored
// weighting values 0, 1 and 2.
class GradingDlgWeightingPage : public QWidget
{
    Q_OBJECT

public:
    explicit GradingDlgWeightingPage(QWidget* parent = nullptr);

    // Any value other than 0, 1 or 2 checks no button.
    void SetWeighting(int weighting);
    // -1 when no button is checked.
    int Weighting() const;

    QButtonGroup* Buttons() const { return m_buttons; }

private:
    QButtonGroup* m_buttons;
};
