#pragma once

#include "DataTable.h"

// The coursework types of each course.
//
// Sort orders: 0 CourseID, 1 record id.
class CCwTypeTable : public CDataTable
{
public:
    enum Property {
        PropCourseID = 0,
        PropCwTypeName = 1,
        PropWeight = 2,
        PropDrops = 3,
    };

    CCwTypeTable();

    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    QString GetCwTypeName() const { return StringAt(PropCwTypeName); }
    void SetCwTypeName(const QString& value) { SetValue(PropCwTypeName, value); }
    double GetWeight() const { return DoubleAt(PropWeight); }
    void SetWeight(double value) { SetValue(PropWeight, value); }
    quint16 GetDrops() const { return UInt16At(PropDrops); }
    void SetDrops(quint16 value) { SetValue(PropDrops, static_cast<uint>(value)); }

    static QString GetCwTypeNameFromID(quint32 id);
};
