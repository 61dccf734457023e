#include "GradingDlgTypesPage.h"

#include "CwTypeEditor.h"
#include "res/strings/GradingPolicyStrings.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTreeWidget>

GradingDlgTypesPage::GradingDlgTypesPage(QWidget* parent)
    : GradingDlgListPage(parent, QStringLiteral("cwType"),
                         {GradingPolicyStrings::TypeColumn(), GradingPolicyStrings::WeightColumn(),
                          GradingPolicyStrings::DropsColumn()}),
      m_editor(new CwTypeEditor(PaneBox()))
{
    setObjectName(QStringLiteral("cwTypesPage"));
    auto* hint = new QLabel(GradingPolicyStrings::TypesHint(), this);
    hint->setWordWrap(true);
    List()->setObjectName(QStringLiteral("cwTypeList"));
    List()->setAccessibleName(GradingPolicyStrings::PageCwTypes());
    LayOut(hint, m_editor);
    ShowPane(QString());
}

void GradingDlgTypesPage::Fill(const std::vector<CwTypeEntry>& entries, int selectedRow)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    List()->clear();
    for (const CwTypeEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(List());
        item->setText(0, entry.name);
        item->setText(1, locale.toString(entry.weight, 'g', 15));
        item->setText(2, locale.toString(entry.drops));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    SelectRow(selectedRow);
}

void GradingDlgTypesPage::ShowPane(const QString& title)
{
    const bool open = !title.isEmpty();
    PaneBox()->setTitle(open ? title : GradingPolicyStrings::TypeColumn());
    PaneBox()->setEnabled(open);
    if (!open)
        m_editor->Clear();
    else
        m_editor->NameEdit()->setFocus();
}
