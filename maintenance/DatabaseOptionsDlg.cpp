#include "DatabaseOptionsDlg.h"

#include "BrindleData.h"
#include "DatabaseBackup.h"
#include "DatabaseClear.h"
#include "DatabaseRestore.h"
#include "controls/FileDialog.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/DatabaseStrings.h"
#include "store/Clock.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

DatabaseOptionsDlg::DatabaseOptionsDlg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("DatabaseOptionsDlg"));
    setWindowTitle(DatabaseStrings::DialogTitle());

    auto* description = new QLabel(DatabaseStrings::Description(), this);
    description->setObjectName(QStringLiteral("descriptionLabel"));
    description->setWordWrap(true);

    auto makeButton = [this](const QString& text, const char* name,
                             bool (DatabaseOptionsDlg::*command)()) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::clicked, this, [this, command] { (this->*command)(); });
        return button;
    };
    QPushButton* backup =
        makeButton(DatabaseStrings::Backup(), "backupButton", &DatabaseOptionsDlg::OnBackup);
    QPushButton* restore =
        makeButton(DatabaseStrings::Restore(), "restoreButton", &DatabaseOptionsDlg::OnRestore);
    QPushButton* clear =
        makeButton(DatabaseStrings::ClearDatabase(), "clearButton", &DatabaseOptionsDlg::OnClear);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const int line = fontMetrics().height();
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(line / 2);
    layout->addWidget(description);
    layout->addSpacing(line / 2);
    for (QPushButton* button : {backup, restore, clear})
        layout->addWidget(button);
    layout->addSpacing(line / 2);
    layout->addStretch(1);
    layout->addWidget(buttons);
    InstallHelp(this);
    backup->setFocus();
    resize(line * 20, sizeHint().height());

    m_session.Begin();
}

DatabaseOptionsDlg::~DatabaseOptionsDlg()
{
    Finish();
}

bool DatabaseOptionsDlg::OnBackup()
{
    const QString target = BrindleFileDialog::GetSaveFileName(
        this, DatabaseBackup::SuggestedName(BrindleClock::Today()), QStringLiteral("db"));
    if (target.isEmpty())
        return false;
    const MaintenanceResult result = DatabaseBackup::Backup(GetDatabasePath(), target);
    if (!result.ok) {
        BrindleMessageBox::Warn(this, DatabaseStrings::BackupFailed(target, result.reason));
        return false;
    }
    BrindleMessageBox::Inform(this, DatabaseStrings::BackedUp());
    return true;
}

bool DatabaseOptionsDlg::OnRestore()
{
    const QString chosen = BrindleFileDialog::GetOpenFileName(
        this, {DatabaseStrings::DatabaseFilesFilter(), DatabaseStrings::AllFilesFilter()});
    if (chosen.isEmpty())
        return false;
    const MaintenanceResult result = DatabaseRestore::Restore(chosen);
    if (!result.ok) {
        BrindleMessageBox::Warn(this, DatabaseStrings::RestoreFailedBecause(result.reason));
        return false;
    }
    m_changed = true;
    BrindleMessageBox::Inform(this, result.reason.isEmpty() ? DatabaseStrings::Restored()
                                                            : result.reason);
    return true;
}

bool DatabaseOptionsDlg::OnClear()
{
    if (BrindleMessageBox::Show(this, DatabaseStrings::ConfirmClear(), QMessageBox::Question,
                                QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return false;
    const MaintenanceResult result = DatabaseClear::Clear();
    if (!result.ok) {
        BrindleMessageBox::Warn(this, DatabaseStrings::ClearFailed(result.reason));
        return false;
    }
    m_changed = true;
    BrindleMessageBox::Inform(this, DatabaseStrings::Cleared());
    return true;
}

MaintenanceResult DatabaseOptionsDlg::Finish()
{
    return m_session.End();
}

void DatabaseOptionsDlg::done(int result)
{
    Finish();
    QDialog::done(result);
}
