#include "GradingDlgListPage.h"

#include "res/strings/GradingPolicyStrings.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

GradingDlgListPage::GradingDlgListPage(QWidget* parent, const QString& names,
                                       const QStringList& columns)
    : QWidget(parent), m_list(new QTreeWidget(this)), m_pane(new QGroupBox(this)), m_names(names)
{
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setHeaderLabels(columns);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int column = 1; column < columns.size(); ++column)
        m_list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    m_pane->setObjectName(names + QStringLiteral("Pane"));
}

void GradingDlgListPage::LayOut(QWidget* top, QWidget* editor)
{
    // Made after the editor, so that Tab reaches its fields before them.
    m_apply = new QPushButton(GradingPolicyStrings::PaneApply(), m_pane);
    m_discard = new QPushButton(GradingPolicyStrings::PaneDiscard(), m_pane);
    m_apply->setObjectName(m_names + QStringLiteral("ApplyButton"));
    m_discard->setObjectName(m_names + QStringLiteral("DiscardButton"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_apply);
    buttons->addWidget(m_discard);
    auto* paneLayout = new QVBoxLayout(m_pane);
    paneLayout->addWidget(editor);
    paneLayout->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(top);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_pane);
}

void GradingDlgListPage::SelectRow(int row)
{
    if (row >= 0 && row < m_list->topLevelItemCount())
        m_list->setCurrentItem(m_list->topLevelItem(row));
}

int GradingDlgListPage::SelectedRow() const
{
    QTreeWidgetItem* item = m_list->currentItem();
    return item && item->isSelected() ? m_list->indexOfTopLevelItem(item) : -1;
}

bool GradingDlgListPage::PaneOpen() const
{
    return m_pane->isEnabled();
}

QWidget* GradingDlgListPage::Pane() const
{
    return m_pane;
}
