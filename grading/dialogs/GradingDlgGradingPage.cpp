#include "GradingDlgGradingPage.h"

#include "MinimumPercentEditor.h"
#include "controls/NumericEdit.h"
#include "res/strings/GradingPolicyStrings.h"
#include "store/GradeText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

GradingDlgGradingPage::GradingDlgGradingPage(QWidget* parent)
    : QWidget(parent), m_list(new QTreeWidget(this)), m_pane(new QGroupBox(this)),
      m_editor(new MinimumPercentEditor(m_pane)),
      m_apply(new QPushButton(GradingPolicyStrings::PaneApply(), m_pane)),
      m_discard(new QPushButton(GradingPolicyStrings::PaneDiscard(), m_pane))
{
    setObjectName(QStringLiteral("gradingPage"));
    auto* heading = new QLabel(GradingPolicyStrings::MinimumHeading(), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);

    m_list->setObjectName(QStringLiteral("minimumPercentList"));
    m_list->setAccessibleName(GradingPolicyStrings::MinimumHeading());
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setHeaderLabels(
        {GradingPolicyStrings::GradeColumn(), GradingPolicyStrings::MinimumColumn()});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    m_pane->setObjectName(QStringLiteral("minimumPercentPane"));
    m_apply->setObjectName(QStringLiteral("minimumApplyButton"));
    m_discard->setObjectName(QStringLiteral("minimumDiscardButton"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_apply);
    buttons->addWidget(m_discard);
    auto* paneLayout = new QVBoxLayout(m_pane);
    paneLayout->addWidget(m_editor);
    paneLayout->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_pane);
    ShowPane(false);
}

void GradingDlgGradingPage::Fill(const std::vector<MinimumPercentEntry>& entries, int selectedRow)
{
    m_list->clear();
    for (const MinimumPercentEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(0, entry.gradeName);
        // A percent, printed with a point like every other percent.
        item->setText(
            1, GradingPolicyStrings::MinimumPercentText(GradeText::NumberToText(entry.minimum)));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    if (selectedRow >= 0 && selectedRow < m_list->topLevelItemCount())
        m_list->setCurrentItem(m_list->topLevelItem(selectedRow));
}

int GradingDlgGradingPage::SelectedRow() const
{
    QTreeWidgetItem* item = m_list->currentItem();
    return item && item->isSelected() ? m_list->indexOfTopLevelItem(item) : -1;
}

void GradingDlgGradingPage::ShowPane(bool open)
{
    m_pane->setEnabled(open);
    m_pane->setTitle(open ? GradingPolicyStrings::EditMinimumPercent()
                          : GradingPolicyStrings::MinimumColumn());
    if (open)
        m_editor->PercentEdit()->setFocus();
    else
        m_editor->Load(MinimumPercentEntry{0, CNumericEdit::EmptyValue, QString()});
}

bool GradingDlgGradingPage::PaneOpen() const
{
    return m_pane->isEnabled();
}

QWidget* GradingDlgGradingPage::Pane() const
{
    return m_pane;
}
