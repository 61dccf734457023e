#pragma once

#include "OrderListDlg.h"

#include <vector>

// "Course Order": the order of the courses of the semester on view. OK gives
// each course its row's position, counting from 0.
class CourseOrderDlg : public OrderListDlg
{
    Q_OBJECT

public:
    struct CourseRow
    {
        quint32 id = 0;
        QString name;
    };

    explicit CourseOrderDlg(QWidget* parent = nullptr);

    // Reads the courses in their order (run by the constructor).
    void OnInitDialog();
    bool OnOK() override;

    const std::vector<CourseRow>& Rows() const { return m_rows; }

protected:
    int RowCount() const override { return static_cast<int>(m_rows.size()); }
    void SwapRows(int first, int second) override;
    void ShowRow(QListWidgetItem& item, int row) const override;

private:
    bool WritePositions() const;

    std::vector<CourseRow> m_rows;
};
