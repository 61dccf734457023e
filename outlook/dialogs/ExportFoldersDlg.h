#pragma once

#include "outlook/PimFolders.h"

#include <QDialog>

class QLineEdit;

// "Export Folders": where exported tasks, appointments and contacts go. An
// empty field means Brindle's own folder (shown greyed in the field). OK
// refuses a folder that cannot be made or written, and saves the folders in
// the settings file; editors opened afterwards use them.
class ExportFoldersDlg : public QDialog
{
    Q_OBJECT

public:
    explicit ExportFoldersDlg(QWidget* parent = nullptr);

    // The opening (run by the constructor) and OK steps; Cancel writes nothing.
    void OnInitDialog();
    bool OnOK();

    // The folders as the fields give them, an empty field as the default.
    PimFolders Folders() const;

    QLineEdit* TasksEdit() const { return m_edits[0]; }
    QLineEdit* CalendarEdit() const { return m_edits[1]; }
    QLineEdit* ContactsEdit() const { return m_edits[2]; }

public slots:
    void accept() override;

private:
    void Browse(QLineEdit* edit);

    PimFolders m_defaults;
    QLineEdit* m_edits[3];
};
