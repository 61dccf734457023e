#pragma once

#include "DataTable.h"

// Textbooks of each course.
//
// Sort orders: 0 CourseID, 1 record id.
class CTextbookTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropTextbookName = 1,
        PropAuthor = 2,
        PropCost = 3,
    };

    CTextbookTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    QString GetTextbookName() const { return StringAt(PropTextbookName); }
    void SetTextbookName(const QString& value) { SetValue(PropTextbookName, value); }
    QString GetAuthor() const { return StringAt(PropAuthor); }
    void SetAuthor(const QString& value) { SetValue(PropAuthor, value); }
    double GetCost() const { return DoubleAt(PropCost); }
    void SetCost(double value) { SetValue(PropCost, value); }
};
