#include "TabOrderDlg.h"

#include "BrindleData.h"
#include "WriteInTransaction.h"
#include "res/strings/MaintenanceStrings.h"

#include <QListWidget>

#include <utility>

TabOrderDlg::TabOrderDlg(QWidget* parent)
    : OrderListDlg(QStringLiteral("TabOrderDlg"), MaintenanceStrings::TabOrderTitle(),
                   MaintenanceStrings::TabOrderHint(), parent)
{
    OnInitDialog();
}

void TabOrderDlg::OnInitDialog()
{
    m_rows.clear();
    CViewTabTable tabs;
    if (tabs.Open(2)) {
        for (int ok = tabs.MoveFirst(1); ok; ok = tabs.MoveNext(1))
            m_rows.push_back({tabs.GetRecordID(), tabs.GetTabText(), tabs.GetIsVisible() != 0});
    }
    Redraw(m_rows.empty() ? -1 : 0);
}

void TabOrderDlg::SetVisible(int row, bool visible)
{
    if (QListWidgetItem* item = List()->item(row))
        item->setCheckState(visible ? Qt::Checked : Qt::Unchecked);
}

void TabOrderDlg::SwapRows(int first, int second)
{
    std::swap(m_rows[static_cast<size_t>(first)], m_rows[static_cast<size_t>(second)]);
}

void TabOrderDlg::ShowRow(QListWidgetItem& item, int row) const
{
    const TabRow& tab = m_rows[static_cast<size_t>(row)];
    item.setText(tab.text);
    item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item.setCheckState(tab.visible ? Qt::Checked : Qt::Unchecked);
}

void TabOrderDlg::RowChanged(const QListWidgetItem& item, int row)
{
    if (row >= 0 && row < RowCount())
        m_rows[static_cast<size_t>(row)].visible = item.checkState() == Qt::Checked;
}

bool TabOrderDlg::WriteTabs() const
{
    CViewTabTable tabs;
    if (!tabs.Open())
        return false;
    for (size_t index = 0; index < m_rows.size(); ++index) {
        const TabRow& row = m_rows[index];
        // A tab whose record went away is skipped.
        if (!tabs.MoveToRecord(row.id))
            continue;
        tabs.SetIsVisible(row.visible ? 1 : 0);
        tabs.SetTabOrder(static_cast<qint16>(index));
        if (!tabs.UpdateRecord())
            return false;
    }
    return true;
}

bool TabOrderDlg::OnOK()
{
    return WriteInTransaction(
        this, [this] { return WriteTabs(); }, MaintenanceStrings::TabOrderNotSaved());
}
