#pragma once

#include <QWidget>

class CNumericEdit;
class QCheckBox;
class QLabel;

// The "GPA" page of InstitutionDlg: "Show GPA With Hours", the past hours and
// points, and the past GPA they give (hidden while past hours are not above 0).
class InstitutionDlgGpaPage : public QWidget
{
    Q_OBJECT

public:
    explicit InstitutionDlgGpaPage(QWidget* parent = nullptr);

    void Show(bool showWithHours, double pastHours, double pastPoints);
    bool ShowWithHours() const;
    // An empty field reads as 0: no past hours or points.
    double PastHours() const;
    double PastPoints() const;

    bool IsPastGpaShown() const;
    QString PastGpaText() const;

    CNumericEdit* HoursField() const { return m_hoursEdit; }
    CNumericEdit* PointsField() const { return m_pointsEdit; }
    QCheckBox* ShowWithHoursBox() const { return m_showWithHours; }

private:
    void UpdatePastGpa();

    QCheckBox* m_showWithHours;
    CNumericEdit* m_hoursEdit;
    CNumericEdit* m_pointsEdit;
    QLabel* m_pastGpaLabel;
    QLabel* m_pastGpaValue;
};
