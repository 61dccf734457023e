#include "EditSemesterDlg.h"

#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/MaintenanceStrings.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

EditSemesterDlg::EditSemesterDlg(const QString& name, QWidget* parent)
    : QDialog(parent), m_nameEdit(new QLineEdit(name, this))
{
    setObjectName(QStringLiteral("EditSemesterDlg"));
    setWindowTitle(MaintenanceStrings::EditSemester());
    m_nameEdit->setObjectName(QStringLiteral("semesterNameEdit"));
    m_nameEdit->selectAll();

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &EditSemesterDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QFormLayout(this);
    layout->addRow(MaintenanceStrings::SemesterNameLabel(), m_nameEdit);
    layout->addRow(buttons);
    // Renaming is explained in the semester dialog's section.
    InstallHelp(this, QStringLiteral("SemesterDlg"));
    setMinimumWidth(fontMetrics().height() * 22);
}

QString EditSemesterDlg::Name() const
{
    return m_nameEdit->text().trimmed();
}

void EditSemesterDlg::accept()
{
    if (Name().isEmpty()) {
        BrindleMessageBox::Warn(this, MaintenanceStrings::SemesterNameRequired());
        m_nameEdit->setFocus();
        return;
    }
    QDialog::accept();
}
