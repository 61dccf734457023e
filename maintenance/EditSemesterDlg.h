#pragma once

#include <QDialog>

class QLineEdit;

// "Edit Semester": a new name for one row of the semester dialog. A name
// that is empty once trimmed is refused with "Semester Name Required".
class EditSemesterDlg : public QDialog
{
    Q_OBJECT

public:
    explicit EditSemesterDlg(const QString& name, QWidget* parent = nullptr);

    // The name as typed, trimmed at both ends.
    QString Name() const;
    QLineEdit* NameField() const { return m_nameEdit; }

    void accept() override;

private:
    QLineEdit* m_nameEdit;
};
