#pragma once

#include <QDialog>

class CNumericEdit;
class QLineEdit;

// "New Grade Point" / "Edit Grade Point": one grade of the institution's scale,
// its name and its grade points (0 up). Refuses an empty name or negative
// points with a message and stays open.
class GradePointDlg : public QDialog
{
    Q_OBJECT

public:
    enum Mode { NewGradePoint, EditGradePoint };

    explicit GradePointDlg(Mode mode, QWidget* parent = nullptr);

    void SetGradePoint(const QString& name, double points);
    QString Name() const;
    double Points() const;

    QLineEdit* NameField() const { return m_nameEdit; }
    CNumericEdit* PointsField() const { return m_pointsEdit; }

    void accept() override;

private:
    QLineEdit* m_nameEdit;
    CNumericEdit* m_pointsEdit;
};
