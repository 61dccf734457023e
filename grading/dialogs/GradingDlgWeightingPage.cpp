#include "GradingDlgWeightingPage.h"

#include "res/strings/GradingPolicyStrings.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

GradingDlgWeightingPage::GradingDlgWeightingPage(QWidget* parent)
    : QWidget(parent), m_buttons(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("weightingPage"));
    auto* heading = new QLabel(GradingPolicyStrings::WeightingHeading(), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    const struct
    {
        QString text;
        const char* name;
    } choices[] = {{GradingPolicyStrings::WeightingNone(), "weightingNone"},
                   {GradingPolicyStrings::WeightingByType(), "weightingByType"},
                   {GradingPolicyStrings::WeightingPerItem(), "weightingPerItem"}};
    int id = 0;
    for (const auto& choice : choices) {
        auto* button = new QRadioButton(choice.text, this);
        button->setObjectName(QString::fromLatin1(choice.name));
        m_buttons->addButton(button, id++);
        layout->addWidget(button);
    }
    layout->addStretch();
}

void GradingDlgWeightingPage::SetWeighting(int weighting)
{
    if (QAbstractButton* button = m_buttons->button(weighting)) {
        button->setChecked(true);
        return;
    }
    // An exclusive group never unchecks its last button by itself.
    m_buttons->setExclusive(false);
    for (QAbstractButton* button : m_buttons->buttons())
        button->setChecked(false);
    m_buttons->setExclusive(true);
}

int GradingDlgWeightingPage::Weighting() const
{
    return m_buttons->checkedId();
}
