#pragma once

#include "DataTable.h"

// Links between courses and instructors.
//
// Sort orders: 0 InstructorID, 1 CourseID, 2 record id.
class CCourseInstructorTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropInstructorID = 1,
    };

    CCourseInstructorTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint32 GetInstructorID() const { return UInt32At(PropInstructorID); }
    void SetInstructorID(quint32 value) { SetValue(PropInstructorID, static_cast<uint>(value)); }
};
