#pragma once

#include "DatabaseSession.h"

#include <QDialog>

class QPushButton;

// "Database Options": backs the database up to a dated file, restores it from
// a chosen file, or clears every course from it. While the dialog is open the
// database is let go of (and the Today companion switched off); closing the
// dialog takes it back. Each command is a method a test can call; the file
// dialogs and message boxes go through their wrappers.
class DatabaseOptionsDlg : public QDialog
{
    Q_OBJECT

public:
    // Lets go of the database at once: the dialog is to be shown next.
    explicit DatabaseOptionsDlg(QWidget* parent = nullptr);
    ~DatabaseOptionsDlg() override;

    // Each false when cancelled or failed (after telling the user why).
    bool OnBackup();
    bool OnRestore();
    bool OnClear();

    // The closing steps: the database mounted again with the application
    // state on its first record, the Today companion as it was. Runs when the
    // dialog closes; later calls return the first result.
    MaintenanceResult Finish();

    // A restore or a clear changed what the database holds.
    bool DatabaseChanged() const { return m_changed; }

    void done(int result) override;

private:
    CDatabaseSession m_session;
    bool m_changed = false;
};
