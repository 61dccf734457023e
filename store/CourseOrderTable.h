#pragma once

#include "DataTable.h"

// The display order of the courses of each semester; SemesterID 0 is the working semester.
//
// Sort orders: 0 record id, 1 CourseID, 2 SemesterID.
class CCourseOrderTable : public CDataTable
{
public:
    enum Property {
        PropSemesterID = 0,
        PropCourseID = 1,
        PropCoursePosition = 2,
    };

    CCourseOrderTable();

    quint32 GetSemesterID() const { return UInt32At(PropSemesterID); }
    void SetSemesterID(quint32 value) { SetValue(PropSemesterID, static_cast<uint>(value)); }
    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint16 GetCoursePosition() const { return UInt16At(PropCoursePosition); }
    void SetCoursePosition(quint16 value)
    {
        SetValue(PropCoursePosition, static_cast<uint>(value));
    }
};
