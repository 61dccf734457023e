#pragma once

#include "DataTable.h"

// Courses. CurrentGrade is the grade fraction (1.0 = 100 %, -1.0 = no score).
//
// Sort orders: 0 CourseName, 1 BuildingID, 2 record id.
class CCourseTable : public CDataTable
{
public:
    enum Property {
        PropCourseName = 0,
        PropCurrentGrade = 1,
        PropCourseNumber = 2,
        PropCourseSection = 3,
        PropDepartment = 4,
        PropRoomNumber = 5,
        PropCourseWebSite = 6,
        PropDetails = 7,
        PropBuildingID = 8,
        PropCourseHours = 9,
        PropInMajor = 10,
    };

    CCourseTable();

    QString GetCourseName() const { return StringAt(PropCourseName); }
    void SetCourseName(const QString& value) { SetValue(PropCourseName, value); }
    double GetCurrentGrade() const { return DoubleAt(PropCurrentGrade); }
    void SetCurrentGrade(double value) { SetValue(PropCurrentGrade, value); }
    QString GetCourseNumber() const { return StringAt(PropCourseNumber); }
    void SetCourseNumber(const QString& value) { SetValue(PropCourseNumber, value); }
    QString GetCourseSection() const { return StringAt(PropCourseSection); }
    void SetCourseSection(const QString& value) { SetValue(PropCourseSection, value); }
    QString GetDepartment() const { return StringAt(PropDepartment); }
    void SetDepartment(const QString& value) { SetValue(PropDepartment, value); }
    QString GetRoomNumber() const { return StringAt(PropRoomNumber); }
    void SetRoomNumber(const QString& value) { SetValue(PropRoomNumber, value); }
    QString GetCourseWebSite() const { return StringAt(PropCourseWebSite); }
    void SetCourseWebSite(const QString& value) { SetValue(PropCourseWebSite, value); }
    QString GetDetails() const { return StringAt(PropDetails); }
    void SetDetails(const QString& value) { SetValue(PropDetails, value); }
    quint32 GetBuildingID() const { return UInt32At(PropBuildingID); }
    void SetBuildingID(quint32 value) { SetValue(PropBuildingID, static_cast<uint>(value)); }
    double GetCourseHours() const { return DoubleAt(PropCourseHours); }
    void SetCourseHours(double value) { SetValue(PropCourseHours, value); }
    int GetInMajor() const { return BoolAt(PropInMajor); }
    void SetInMajor(int value) { SetValue(PropInMajor, value); }

    static QString GetCourseNameFromID(quint32 id);

protected:
    void InitializeNewRecordPropArray() override;
};
