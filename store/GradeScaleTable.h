#pragma once

#include "DataTable.h"

// The institution's grade scale; grade 0 is the best grade.
//
// Sort orders: 0 Grade, 1 record id.
class CGradeScaleTable : public CDataTable
{
public:
    enum Property {
        PropGrade = 0,
        PropGradeName = 1,
        PropGradePoints = 2,
    };

    CGradeScaleTable();

    quint16 GetGrade() const { return UInt16At(PropGrade); }
    void SetGrade(quint16 value) { SetValue(PropGrade, static_cast<uint>(value)); }
    QString GetGradeName() const { return StringAt(PropGradeName); }
    void SetGradeName(const QString& value) { SetValue(PropGradeName, value); }
    double GetGradePoints() const { return DoubleAt(PropGradePoints); }
    void SetGradePoints(double value) { SetValue(PropGradePoints, value); }

    static QString GetGradeNameFromGrade(quint16 grade);
};
