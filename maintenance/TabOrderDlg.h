#pragma once

#include "OrderListDlg.h"

#include <vector>

// "Tab Order": the order of the main view's tabs after "No Filter", and
// which of them are shown. A tab whose box is cleared keeps its place.
class TabOrderDlg : public OrderListDlg
{
    Q_OBJECT

public:
    struct TabRow
    {
        quint32 id = 0; // the tab's record id
        QString text;
        bool visible = true;
    };

    explicit TabOrderDlg(QWidget* parent = nullptr);

    // Reads the tabs in their order (run by the constructor).
    void OnInitDialog();
    bool OnOK() override;

    const std::vector<TabRow>& Rows() const { return m_rows; }
    void SetVisible(int row, bool visible);

protected:
    int RowCount() const override { return static_cast<int>(m_rows.size()); }
    void SwapRows(int first, int second) override;
    void ShowRow(QListWidgetItem& item, int row) const override;
    void RowChanged(const QListWidgetItem& item, int row) override;

private:
    bool WriteTabs() const;

    std::vector<TabRow> m_rows;
};
