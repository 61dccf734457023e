#pragma once

#include <QByteArray>
#include <QString>

#include <libical/ical.h>

#include <memory>

// One iCalendar file of a vdir collection, through libical: a VCALENDAR that
// holds the item (a VTODO or a VEVENT). Properties are changed in place, so
// that whatever else the file holds (an alarm, a location, a user's own
// properties) is written back as it was.
class CIcalDocument
{
public:
    // The file's first component of the kind; null when the file is missing,
    // unreadable or holds none.
    static std::unique_ptr<CIcalDocument> Load(const QString& path, icalcomponent_kind kind);
    // A new calendar holding one new component of the kind with a fresh UID.
    static std::unique_ptr<CIcalDocument> New(icalcomponent_kind kind);

    ~CIcalDocument();
    CIcalDocument(const CIcalDocument&) = delete;
    CIcalDocument& operator=(const CIcalDocument&) = delete;

    icalcomponent* Item() const { return m_item; }

    // Replaces every property of the kind; an empty text removes them.
    void SetText(icalproperty_kind kind, const QString& text);
    void SetTime(icalproperty_kind kind, icaltimetype time);
    void SetInteger(icalproperty_kind kind, int value);
    void Remove(icalproperty_kind kind);
    // The first property of the kind, text unescaped, other values as
    // written (20261125T143000); empty when none.
    QString Text(icalproperty_kind kind) const;

    // The whole file, its DTSTAMP and LAST-MODIFIED set to now.
    QByteArray ToBytes();

    // A Brindle date value as a floating local date-time, or its day alone.
    static icaltimetype FloatingTime(double date);
    static icaltimetype Day(double date);
    static icaltimetype UtcNow();

private:
    CIcalDocument(icalcomponent* calendar, icalcomponent* item);

    icalcomponent* m_calendar;
    icalcomponent* m_item;
};
