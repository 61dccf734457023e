#pragma once

#include "store/OutlookTable.h"

#include <QString>

class IAppointment;
class IContact;
class ITask;

// One item of the personal-information store, as fetched or created through
// IPOutlookApp. Property setters change the item in memory; Save writes it.
class IPOutlookItem
{
public:
    virtual ~IPOutlookItem() = default;

    virtual COutlookTable::OlItemType GetItemType() const = 0;
    // Nonzero when the item was written whole.
    virtual int Save() = 0;
    // The numeric id the store knows the item by; never 0.
    virtual quint32 get_Oid() const = 0;

    // The item as its kind, or null when it is another kind.
    virtual ITask* AsTask() { return nullptr; }
    virtual IAppointment* AsAppointment() { return nullptr; }
    virtual IContact* AsContact() { return nullptr; }
};

// Dates are Brindle's date values (days since 30 December 1899, the time of
// day as the fraction), read as local wall-clock times.
class ITask : public IPOutlookItem
{
public:
    virtual void put_Subject(const QString& text) = 0;
    virtual void put_Body(const QString& text) = 0;
    virtual void put_Categories(const QString& text) = 0;
    virtual void put_DueDate(double date) = 0;
    virtual void put_Complete(bool complete) = 0;

    COutlookTable::OlItemType GetItemType() const override { return COutlookTable::olTaskItem; }
    ITask* AsTask() override { return this; }
};

class IAppointment : public IPOutlookItem
{
public:
    virtual void put_Subject(const QString& text) = 0;
    virtual void put_Categories(const QString& text) = 0;
    virtual void put_Start(double date) = 0;
    virtual void put_End(double date) = 0;
    virtual void put_Body(const QString& text) = 0;
    virtual void put_AllDayEvent(bool allDay) = 0;

    COutlookTable::OlItemType GetItemType() const override
    {
        return COutlookTable::olAppointmentItem;
    }
    IAppointment* AsAppointment() override { return this; }
};

class IContact : public IPOutlookItem
{
public:
    virtual void put_FileAs(const QString& text) = 0;
    // The family-name part of the structured name.
    virtual void put_LastName(const QString& text) = 0;
    virtual void put_OfficeLocation(const QString& text) = 0;
    virtual void put_Email1Address(const QString& text) = 0;
    virtual void put_HomeTelephoneNumber(const QString& text) = 0;
    virtual void put_Body(const QString& text) = 0;

    COutlookTable::OlItemType GetItemType() const override { return COutlookTable::olContactItem; }
    IContact* AsContact() override { return this; }
};
