#include "GradePredictionDlgScoreEditor.h"

#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/NumericEdit.h"
#include "res/strings/ReportStrings.h"

#include <QDialogButtonBox>
#include <QFormLayout>

GradePredictionDlgScoreEditor::GradePredictionDlgScoreEditor(QWidget* parent)
    : QDialog(parent), m_field(new CNumericEdit(this))
{
    setObjectName(QStringLiteral("GradePredictionDlgScoreEditor"));
    setWindowTitle(ReportStrings::EditPercent());
    m_field->setObjectName(QStringLiteral("scoreToGiveEdit"));

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QFormLayout(this);
    layout->addRow(ReportStrings::ScoreToGiveLabel(), m_field);
    layout->addRow(buttons);
    // Its help is the prediction dialog's section.
    InstallHelp(this, QStringLiteral("GradePredictionDlg"));
    setMinimumWidth(fontMetrics().height() * 18);
}

void GradePredictionDlgScoreEditor::SetPercent(double percent)
{
    m_field->SetValue(percent < 0.0 ? CNumericEdit::EmptyValue : percent);
    m_field->selectAll();
}

double GradePredictionDlgScoreEditor::Percent() const
{
    return m_field->Value();
}

bool GradePredictionDlgScoreEditor::IsValid() const
{
    const double percent = Percent();
    return !m_field->IsEmpty() && percent >= 0.0 && percent <= 100.0;
}

void GradePredictionDlgScoreEditor::accept()
{
    if (!IsValid()) {
        BrindleMessageBox::Warn(this, ReportStrings::ScoreToGiveOutOfRange());
        m_field->setFocus();
        return;
    }
    QDialog::accept();
}
