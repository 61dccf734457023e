#pragma once

#include "DataTable.h"

// The tabs of the main view.
//
// Sort orders: 0 record id, 1 ViewTabID, 2 TabOrder.
class CViewTabTable : public CDataTable
{
public:
    enum ViewTabIDs : quint32 {
        NoFilter = 0,
        CwTypeTab = 1,
        PastDueTab = 2,
        CourseWeekTab = 3,
        DueByTab = 4
    };

    enum Property {
        PropViewTabID = 0,
        PropTabText = 1,
        PropIsVisible = 2,
        PropTabOrder = 3,
    };

    CViewTabTable();

    ViewTabIDs GetViewTabID() const { return static_cast<ViewTabIDs>(UInt32At(PropViewTabID)); }
    void SetViewTabID(ViewTabIDs value) { SetValue(PropViewTabID, static_cast<uint>(value)); }
    QString GetTabText() const { return StringAt(PropTabText); }
    void SetTabText(const QString& value) { SetValue(PropTabText, value); }
    int GetIsVisible() const { return BoolAt(PropIsVisible); }
    void SetIsVisible(int value) { SetValue(PropIsVisible, value); }
    qint16 GetTabOrder() const { return Int16At(PropTabOrder); }
    void SetTabOrder(qint16 value) { SetValue(PropTabOrder, static_cast<int>(value)); }
};
