#pragma once

#include "DataTable.h"

// The display order of the textbooks of each course.
//
// Sort orders: 0 TextbookID, 1 CourseID, 2 record id.
class CTextbookOrderTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropTextbookID = 1,
        PropTextbookPosition = 2,
    };

    CTextbookOrderTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint32 GetTextbookID() const { return UInt32At(PropTextbookID); }
    void SetTextbookID(quint32 value) { SetValue(PropTextbookID, static_cast<uint>(value)); }
    quint16 GetTextbookPosition() const { return UInt16At(PropTextbookPosition); }
    void SetTextbookPosition(quint16 value)
    {
        SetValue(PropTextbookPosition, static_cast<uint>(value));
    }
};
