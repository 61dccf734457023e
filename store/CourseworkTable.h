#pragma once

#include "DataTable.h"

// Coursework items. Score and Possible are -1.0 when not given; Completed is a percentage.
//
// Sort orders: 0 CourseID, 1 CourseID, 2 TextbookID, 3 DueDate, 4 CourseworkName, 5 Completed, 6
// record id, 7 CwTypeID.
class CCourseworkTable : public CDataTable
{
public:
    enum Property {
        PropCourseworkName = 0,
        PropDetails = 1,
        PropCourseID = 2,
        PropCwTypeID = 3,
        PropTextbookID = 4,
        PropDueDate = 5,
        PropScore = 6,
        PropPossible = 7,
        PropWeight = 8,
        PropCompleted = 9,
    };

    CCourseworkTable();

    QString GetCourseworkName() const { return StringAt(PropCourseworkName); }
    void SetCourseworkName(const QString& value) { SetValue(PropCourseworkName, value); }
    QString GetDetails() const { return StringAt(PropDetails); }
    void SetDetails(const QString& value) { SetValue(PropDetails, value); }
    quint32 GetCourseID() const { return UInt32At(PropCourseID); }
    void SetCourseID(quint32 value) { SetValue(PropCourseID, static_cast<uint>(value)); }
    quint32 GetCwTypeID() const { return UInt32At(PropCwTypeID); }
    void SetCwTypeID(quint32 value) { SetValue(PropCwTypeID, static_cast<uint>(value)); }
    quint32 GetTextbookID() const { return UInt32At(PropTextbookID); }
    void SetTextbookID(quint32 value) { SetValue(PropTextbookID, static_cast<uint>(value)); }
    double GetDueDate() const { return DoubleAt(PropDueDate); }
    void SetDueDate(double value) { SetValue(PropDueDate, value); }
    double GetScore() const { return DoubleAt(PropScore); }
    void SetScore(double value) { SetValue(PropScore, value); }
    double GetPossible() const { return DoubleAt(PropPossible); }
    void SetPossible(double value) { SetValue(PropPossible, value); }
    double GetWeight() const { return DoubleAt(PropWeight); }
    void SetWeight(double value) { SetValue(PropWeight, value); }
    quint16 GetCompleted() const { return UInt16At(PropCompleted); }
    void SetCompleted(quint16 value) { SetValue(PropCompleted, static_cast<uint>(value)); }

protected:
    void InitializeNewRecordPropArray() override;
};
