#include "CourseOrderDlg.h"

#include "BrindleData.h"
#include "WriteInTransaction.h"
#include "res/strings/MaintenanceStrings.h"

#include <QListWidgetItem>

#include <utility>

CourseOrderDlg::CourseOrderDlg(QWidget* parent)
    : OrderListDlg(QStringLiteral("CourseOrderDlg"), MaintenanceStrings::CourseOrderTitle(),
                   MaintenanceStrings::CourseOrderHint(), parent)
{
    OnInitDialog();
}

void CourseOrderDlg::OnInitDialog()
{
    m_rows.clear();
    CCourseTable courses;
    if (courses.Open()) {
        courses.SetFilter(1, CCourseTable::PropCourseName);
        for (quint32 id : GetSemesterCourses())
            if (courses.MoveToRecord(id))
                m_rows.push_back({id, courses.GetCourseName()});
    }
    Redraw(m_rows.empty() ? -1 : 0);
}

void CourseOrderDlg::SwapRows(int first, int second)
{
    std::swap(m_rows[static_cast<size_t>(first)], m_rows[static_cast<size_t>(second)]);
}

void CourseOrderDlg::ShowRow(QListWidgetItem& item, int row) const
{
    item.setText(m_rows[static_cast<size_t>(row)].name);
}

bool CourseOrderDlg::WritePositions() const
{
    CCourseOrderTable orders;
    if (!orders.Open(1))
        return false;
    for (size_t index = 0; index < m_rows.size(); ++index) {
        const CCeDBProp key(m_rows[index].id);
        orders.SetSeekValue(&key, CDataTable::SeekValueEqual);
        // A course whose order record went away is skipped.
        if (!orders.MoveFirst(1))
            continue;
        orders.SetCoursePosition(static_cast<quint16>(index));
        if (!orders.UpdateRecord())
            return false;
    }
    return true;
}

bool CourseOrderDlg::OnOK()
{
    return WriteInTransaction(
        this, [this] { return WritePositions(); }, MaintenanceStrings::CourseOrderNotSaved());
}
