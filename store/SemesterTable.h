#pragma once

#include "DataTable.h"

// Archived semesters. The working semester (id 0) has no record.
//
// Sort orders: 0 record id.
class CSemesterTable : public CDataTable
{
public:
    enum Property {
        PropSemesterName = 0,
        PropEndDate = 1,
    };

    CSemesterTable();

    QString GetSemesterName() const { return StringAt(PropSemesterName); }
    void SetSemesterName(const QString& value) { SetValue(PropSemesterName, value); }
    double GetEndDate() const { return DoubleAt(PropEndDate); }
    void SetEndDate(double value) { SetValue(PropEndDate, value); }
};
