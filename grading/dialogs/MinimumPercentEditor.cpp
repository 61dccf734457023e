#include "MinimumPercentEditor.h"

#include "controls/NumericEdit.h"
#include "res/strings/GradingPolicyStrings.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

MinimumPercentEditor::MinimumPercentEditor(QWidget* parent)
    : QWidget(parent), m_grade(new QLabel(this)), m_percent(new CNumericEdit(this))
{
    setObjectName(QStringLiteral("MinimumPercentEditor"));
    m_grade->setObjectName(QStringLiteral("minimumGradeLabel"));
    m_percent->setObjectName(QStringLiteral("minimumPercentEdit"));

    auto* prompt = new QLabel(GradingPolicyStrings::MinimumPrompt(), this);
    prompt->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(prompt);
    auto* row = new QFormLayout;
    row->addRow(m_grade, m_percent);
    layout->addLayout(row);
}

void MinimumPercentEditor::Load(const MinimumPercentEntry& entry)
{
    m_grade->setText(GradingPolicyStrings::MinimumGrade(entry.gradeName));
    m_percent->SetValue(entry.minimum);
}

double MinimumPercentEditor::Value() const
{
    return m_percent->Value();
}
