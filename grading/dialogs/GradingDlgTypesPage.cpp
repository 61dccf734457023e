#include "GradingDlgTypesPage.h"

#include "CwTypeEditor.h"
#include "res/strings/GradingPolicyStrings.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

GradingDlgTypesPage::GradingDlgTypesPage(QWidget* parent)
    : QWidget(parent), m_list(new QTreeWidget(this)), m_pane(new QGroupBox(this)),
      m_editor(new CwTypeEditor(m_pane)),
      m_apply(new QPushButton(GradingPolicyStrings::PaneApply(), m_pane)),
      m_discard(new QPushButton(GradingPolicyStrings::PaneDiscard(), m_pane))
{
    setObjectName(QStringLiteral("cwTypesPage"));
    auto* hint = new QLabel(GradingPolicyStrings::TypesHint(), this);
    hint->setWordWrap(true);

    m_list->setObjectName(QStringLiteral("cwTypeList"));
    m_list->setAccessibleName(GradingPolicyStrings::PageCwTypes());
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setHeaderLabels({GradingPolicyStrings::TypeColumn(),
                             GradingPolicyStrings::WeightColumn(),
                             GradingPolicyStrings::DropsColumn()});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);

    m_pane->setObjectName(QStringLiteral("cwTypePane"));
    m_apply->setObjectName(QStringLiteral("cwTypeApplyButton"));
    m_discard->setObjectName(QStringLiteral("cwTypeDiscardButton"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_apply);
    buttons->addWidget(m_discard);
    auto* paneLayout = new QVBoxLayout(m_pane);
    paneLayout->addWidget(m_editor);
    paneLayout->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_pane);
    ShowPane(QString());
}

void GradingDlgTypesPage::Fill(const std::vector<CwTypeEntry>& entries, int selectedRow)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    m_list->clear();
    for (const CwTypeEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(0, entry.name);
        item->setText(1, locale.toString(entry.weight, 'g', 15));
        item->setText(2, locale.toString(entry.drops));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    if (selectedRow >= 0 && selectedRow < m_list->topLevelItemCount())
        m_list->setCurrentItem(m_list->topLevelItem(selectedRow));
}

int GradingDlgTypesPage::SelectedRow() const
{
    QTreeWidgetItem* item = m_list->currentItem();
    return item && item->isSelected() ? m_list->indexOfTopLevelItem(item) : -1;
}

void GradingDlgTypesPage::ShowPane(const QString& title)
{
    const bool open = !title.isEmpty();
    m_pane->setTitle(open ? title : GradingPolicyStrings::TypeColumn());
    m_pane->setEnabled(open);
    if (!open)
        m_editor->Clear();
    else
        m_editor->NameEdit()->setFocus();
}

bool GradingDlgTypesPage::PaneOpen() const
{
    return m_pane->isEnabled();
}

QWidget* GradingDlgTypesPage::Pane() const
{
    return m_pane;
}
