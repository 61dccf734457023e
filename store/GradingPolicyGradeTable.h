#pragma once

#include "DataTable.h"

// The minimum percent (0..100) that earns each grade of the scale, per course.
//
// Sort orders: 0 CourseID, 1 record id.
class CGradingPolicyGradeTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropGrade = 1,
        PropMinimumPercent = 2,
    };

    CGradingPolicyGradeTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint16 GetGrade() const { return UInt16At(PropGrade); }
    void SetGrade(quint16 value) { SetValue(PropGrade, static_cast<uint>(value)); }
    double GetMinimumPercent() const { return DoubleAt(PropMinimumPercent); }
    void SetMinimumPercent(double value) { SetValue(PropMinimumPercent, value); }
};
