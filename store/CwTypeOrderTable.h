#pragma once

#include "DataTable.h"

// The display order of the coursework types of each course.
//
// Sort orders: 0 CwTypeID, 1 CourseID, 2 record id.
class CCwTypeOrderTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropCwTypeID = 1,
        PropCwTypePosition = 2,
    };

    CCwTypeOrderTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint32 GetCwTypeID() const { return UInt32At(PropCwTypeID); }
    void SetCwTypeID(quint32 value) { SetValue(PropCwTypeID, static_cast<uint>(value)); }
    qint16 GetCwTypePosition() const { return Int16At(PropCwTypePosition); }
    void SetCwTypePosition(qint16 value) { SetValue(PropCwTypePosition, static_cast<int>(value)); }
};
