#pragma once

#include "DataTable.h"

// Weekly meeting times of courses and office hours of instructors. DayOfWeek is a bit set: 1
// Sunday, 2 Monday, ... 64 Saturday.
//
// Sort orders: 0 ForeignRecordID, 1 record id.
class CTimeTable : public CDataTable
{
public:
    enum Day : quint16 {
        Sunday = 1,
        Monday = 2,
        Tuesday = 4,
        Wednesday = 8,
        Thursday = 16,
        Friday = 32,
        Saturday = 64
    };

    enum Property {
        PropForeignRecordID = 0,
        PropDayOfWeek = 1,
        PropStartTime = 2,
        PropEndTime = 3,
    };

    CTimeTable();

    quint32 GetForeignRecordID() const { return UInt32At(PropForeignRecordID); }
    void SetForeignRecordID(quint32 value)
    {
        SetValue(PropForeignRecordID, static_cast<uint>(value));
    }
    quint16 GetDayOfWeek() const { return UInt16At(PropDayOfWeek); }
    void SetDayOfWeek(quint16 value) { SetValue(PropDayOfWeek, static_cast<uint>(value)); }
    double GetStartTime() const { return DoubleAt(PropStartTime); }
    void SetStartTime(double value) { SetValue(PropStartTime, value); }
    double GetEndTime() const { return DoubleAt(PropEndTime); }
    void SetEndTime(double value) { SetValue(PropEndTime, value); }
};
