#include "GradingDlgGradingPage.h"

#include "MinimumPercentEditor.h"
#include "controls/NumericEdit.h"
#include "res/strings/GradingPolicyStrings.h"
#include "store/GradeText.h"

#include <QGroupBox>
#include <QLabel>
#include <QTreeWidget>

GradingDlgGradingPage::GradingDlgGradingPage(QWidget* parent)
    : GradingDlgListPage(
          parent, QStringLiteral("minimumPercent"),
          {GradingPolicyStrings::GradeColumn(), GradingPolicyStrings::MinimumColumn()}),
      m_editor(new MinimumPercentEditor(PaneBox()))
{
    setObjectName(QStringLiteral("gradingPage"));
    auto* heading = new QLabel(GradingPolicyStrings::MinimumHeading(), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    List()->setObjectName(QStringLiteral("minimumPercentList"));
    List()->setAccessibleName(GradingPolicyStrings::MinimumHeading());
    LayOut(heading, m_editor);
    ShowPane(false);
}

void GradingDlgGradingPage::Fill(const std::vector<MinimumPercentEntry>& entries, int selectedRow)
{
    List()->clear();
    for (const MinimumPercentEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(List());
        item->setText(0, entry.gradeName);
        // A percent, printed with a point like every other percent.
        item->setText(
            1, GradingPolicyStrings::MinimumPercentText(GradeText::NumberToText(entry.minimum)));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    SelectRow(selectedRow);
}

void GradingDlgGradingPage::ShowPane(bool open)
{
    PaneBox()->setEnabled(open);
    PaneBox()->setTitle(open ? GradingPolicyStrings::EditMinimumPercent()
                             : GradingPolicyStrings::MinimumColumn());
    if (open)
        m_editor->PercentEdit()->setFocus();
    else
        m_editor->Load(MinimumPercentEntry{0, CNumericEdit::EmptyValue, QString()});
}
