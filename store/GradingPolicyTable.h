#pragma once

#include "DataTable.h"

// One grading policy per course: its weighting.
//
// Sort orders: 0 CourseID, 1 record id.
class CGradingPolicyTable : public CDataTable
{
public:
    enum Weighting : quint32 { WeightNone = 0, WeightByType = 1, WeightPerItem = 2 };

    enum Property {
        PropCourseID = 0,
        PropWeightType = 1,
    };

    CGradingPolicyTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    Weighting GetWeightType() const { return static_cast<Weighting>(UInt32At(PropWeightType)); }
    void SetWeightType(Weighting value) { SetValue(PropWeightType, static_cast<uint>(value)); }

    static Weighting GetWeightingFromCourseID(quint32 courseId);
};
