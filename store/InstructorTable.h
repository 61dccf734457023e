#pragma once

#include "DataTable.h"

// Instructors.
//
// Sort orders: 0 record id, 1 BuildingID, 2 InstructorName.
class CInstructorTable : public CDataTable
{
public:
    enum Property {
        PropInstructorName = 0,
        PropEmail = 1,
        PropPhoneNumber = 2,
        PropRoomNumber = 3,
        PropBuildingID = 4,
    };

    CInstructorTable();

    QString GetInstructorName() const { return StringAt(PropInstructorName); }
    void SetInstructorName(const QString& value) { SetValue(PropInstructorName, value); }
    QString GetEmail() const { return StringAt(PropEmail); }
    void SetEmail(const QString& value) { SetValue(PropEmail, value); }
    QString GetPhoneNumber() const { return StringAt(PropPhoneNumber); }
    void SetPhoneNumber(const QString& value) { SetValue(PropPhoneNumber, value); }
    QString GetRoomNumber() const { return StringAt(PropRoomNumber); }
    void SetRoomNumber(const QString& value) { SetValue(PropRoomNumber, value); }
    quint32 GetBuildingID() const { return UInt32At(PropBuildingID); }
    void SetBuildingID(quint32 value) { SetValue(PropBuildingID, static_cast<uint>(value)); }
};
