#include "InstitutionDlgGpaPage.h"

#include "controls/NumericEdit.h"
#include "res/strings/ReportStrings.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
double ReadPast(const CNumericEdit* field)
{
    return field->IsEmpty() ? 0.0 : field->Value();
}
} // namespace

InstitutionDlgGpaPage::InstitutionDlgGpaPage(QWidget* parent)
    : QWidget(parent), m_showWithHours(new QCheckBox(ReportStrings::ShowGpaWithHours(), this)),
      m_hoursEdit(new CNumericEdit(this)), m_pointsEdit(new CNumericEdit(this)),
      m_pastGpaLabel(new QLabel(ReportStrings::PastGpa(), this)), m_pastGpaValue(new QLabel(this))
{
    setObjectName(QStringLiteral("gpaPage"));
    m_showWithHours->setObjectName(QStringLiteral("showWithHoursBox"));
    m_hoursEdit->setObjectName(QStringLiteral("pastHoursEdit"));
    m_pointsEdit->setObjectName(QStringLiteral("pastPointsEdit"));
    m_pastGpaLabel->setObjectName(QStringLiteral("pastGpaLabel"));
    m_pastGpaValue->setObjectName(QStringLiteral("pastGpaValue"));

    auto* explanation = new QLabel(ReportStrings::PastValuesExplained(), this);
    explanation->setWordWrap(true);

    auto* form = new QFormLayout;
    form->addRow(ReportStrings::TotalHours(), m_hoursEdit);
    form->addRow(ReportStrings::TotalPoints(), m_pointsEdit);
    form->addRow(m_pastGpaLabel, m_pastGpaValue);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_showWithHours);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(explanation);
    layout->addLayout(form);
    layout->addStretch(1);

    connect(m_hoursEdit, &QLineEdit::textChanged, this, [this] { UpdatePastGpa(); });
    connect(m_pointsEdit, &QLineEdit::textChanged, this, [this] { UpdatePastGpa(); });
}

void InstitutionDlgGpaPage::Show(bool showWithHours, double pastHours, double pastPoints)
{
    m_showWithHours->setChecked(showWithHours);
    m_hoursEdit->SetValue(pastHours);
    m_pointsEdit->SetValue(pastPoints);
    UpdatePastGpa();
}

bool InstitutionDlgGpaPage::ShowWithHours() const
{
    return m_showWithHours->isChecked();
}

double InstitutionDlgGpaPage::PastHours() const
{
    return ReadPast(m_hoursEdit);
}

double InstitutionDlgGpaPage::PastPoints() const
{
    return ReadPast(m_pointsEdit);
}

bool InstitutionDlgGpaPage::IsPastGpaShown() const
{
    return !m_pastGpaValue->isHidden();
}

QString InstitutionDlgGpaPage::PastGpaText() const
{
    return m_pastGpaValue->text();
}

void InstitutionDlgGpaPage::UpdatePastGpa()
{
    const double hours = PastHours();
    const bool shown = hours > 0.0;
    m_pastGpaLabel->setHidden(!shown);
    m_pastGpaValue->setHidden(!shown);
    m_pastGpaValue->setText(shown ? ReportStrings::PastGpaValue(PastPoints() / hours) : QString());
}
