#pragma once

#include "DataTable.h"
#include "ViewTabTable.h"

// The persisted application state (one record).
//
// Sort orders: 0 record id, 1 CurrentSemesterID, 2 CurrentCourseID, 3 ViewTabCwType.
class CAppStateTable : public CDataTable
{
public:
    enum Property {
        PropCurrentSemesterID = 0,
        PropCurrentCourseID = 1,
        PropCurrentTabID = 2,
        PropViewTabDueBy = 3,
        PropViewTabCwType = 4,
        PropShowDone = 5,
        PropShowGPAWithHours = 6,
    };

    CAppStateTable();

    quint32 GetCurrentSemesterID() const { return UInt32At(PropCurrentSemesterID); }
    void SetCurrentSemesterID(quint32 value)
    {
        SetValue(PropCurrentSemesterID, static_cast<uint>(value));
    }
    quint32 GetCurrentCourseID() const { return UInt32At(PropCurrentCourseID); }
    void SetCurrentCourseID(quint32 value)
    {
        SetValue(PropCurrentCourseID, static_cast<uint>(value));
    }
    CViewTabTable::ViewTabIDs GetCurrentTabID() const
    {
        return static_cast<CViewTabTable::ViewTabIDs>(UInt32At(PropCurrentTabID));
    }
    void SetCurrentTabID(CViewTabTable::ViewTabIDs value)
    {
        SetValue(PropCurrentTabID, static_cast<uint>(value));
    }
    double GetViewTabDueBy() const { return DoubleAt(PropViewTabDueBy); }
    void SetViewTabDueBy(double value) { SetValue(PropViewTabDueBy, value); }
    quint32 GetViewTabCwType() const { return UInt32At(PropViewTabCwType); }
    void SetViewTabCwType(quint32 value) { SetValue(PropViewTabCwType, static_cast<uint>(value)); }
    int GetShowDone() const { return BoolAt(PropShowDone); }
    void SetShowDone(int value) { SetValue(PropShowDone, value); }
    // Owned by the GPA information; read fresh so that the long-lived state
    // object never shows a stale copy.
    int GetShowGPAWithHours() const;
    void SetShowGPAWithHours(int value) { SetValue(PropShowGPAWithHours, value); }

    // The program-wide state object: opened at start-up on the single record
    // and kept open for the life of the process.
    static CAppStateTable& Instance();
    // Opens the table on its single record; nonzero on success.
    int OpenState();

protected:
    void InitializeNewRecordPropArray() override;
};
