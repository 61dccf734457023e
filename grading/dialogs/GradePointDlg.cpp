#include "GradePointDlg.h"

#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/NumericEdit.h"
#include "res/strings/ReportStrings.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

GradePointDlg::GradePointDlg(Mode mode, QWidget* parent)
    : QDialog(parent), m_nameEdit(new QLineEdit(this)), m_pointsEdit(new CNumericEdit(this))
{
    setObjectName(QStringLiteral("GradePointDlg"));
    setWindowTitle(mode == NewGradePoint ? ReportStrings::NewGradePointTitle()
                                         : ReportStrings::EditGradePointTitle());
    m_nameEdit->setObjectName(QStringLiteral("gradeNameEdit"));
    m_pointsEdit->setObjectName(QStringLiteral("gradePointsEdit"));

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QFormLayout(this);
    layout->addRow(ReportStrings::GradePointName(), m_nameEdit);
    layout->addRow(ReportStrings::GradePoints(), m_pointsEdit);
    layout->addRow(buttons);
    // Grade points are explained in the institution dialog's section.
    InstallHelp(this, QStringLiteral("InstitutionDlg"));
    setMinimumWidth(fontMetrics().height() * 20);
}

void GradePointDlg::SetGradePoint(const QString& name, double points)
{
    m_nameEdit->setText(name);
    m_pointsEdit->SetValue(points);
}

QString GradePointDlg::Name() const
{
    return m_nameEdit->text().trimmed();
}

double GradePointDlg::Points() const
{
    return m_pointsEdit->Value();
}

void GradePointDlg::accept()
{
    if (Name().isEmpty()) {
        BrindleMessageBox::Warn(this, ReportStrings::GradeNameEmpty());
        m_nameEdit->setFocus();
        return;
    }
    if (m_pointsEdit->IsEmpty() || Points() < 0.0) {
        BrindleMessageBox::Warn(this, ReportStrings::GradePointsNegative());
        m_pointsEdit->setFocus();
        return;
    }
    QDialog::accept();
}
