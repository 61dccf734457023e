#pragma once

#include "DataTable.h"

// Past GPA information (one record). WeightedByCourseHours always equals the application state's
// ShowGPAWithHours.
//
// Sort orders: 0 record id.
class CGPAInfoTable : public CDataTable
{
public:
    enum Property {
        PropTotalPastHours = 0,
        PropTotalPastPoints = 1,
        PropWeightedByCourseHours = 2,
    };

    CGPAInfoTable();

    double GetTotalPastHours() const { return DoubleAt(PropTotalPastHours); }
    void SetTotalPastHours(double value) { SetValue(PropTotalPastHours, value); }
    double GetTotalPastPoints() const { return DoubleAt(PropTotalPastPoints); }
    void SetTotalPastPoints(double value) { SetValue(PropTotalPastPoints, value); }
    int GetWeightedByCourseHours() const { return BoolAt(PropWeightedByCourseHours); }
    void SetWeightedByCourseHours(int value) { SetValue(PropWeightedByCourseHours, value); }
};
