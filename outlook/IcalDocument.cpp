#include "IcalDocument.h"

#include "store/DateEncoding.h"

#include <QFile>
#include <QUuid>

#include <cstdlib>

CIcalDocument::CIcalDocument(icalcomponent* calendar, icalcomponent* item)
    : m_calendar(calendar), m_item(item)
{
}

CIcalDocument::~CIcalDocument()
{
    icalcomponent_free(m_calendar);
}

std::unique_ptr<CIcalDocument> CIcalDocument::Load(const QString& path, icalcomponent_kind kind)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray bytes = file.readAll();
    icalcomponent* calendar = icalparser_parse_string(bytes.constData());
    if (!calendar)
        return nullptr;
    icalcomponent* item = icalcomponent_isa(calendar) == ICAL_VCALENDAR_COMPONENT
                              ? icalcomponent_get_first_component(calendar, kind)
                              : nullptr;
    if (!item) {
        icalcomponent_free(calendar);
        return nullptr;
    }
    return std::unique_ptr<CIcalDocument>(new CIcalDocument(calendar, item));
}

std::unique_ptr<CIcalDocument> CIcalDocument::New(icalcomponent_kind kind)
{
    icalcomponent* calendar = icalcomponent_new(ICAL_VCALENDAR_COMPONENT);
    icalcomponent_add_property(calendar, icalproperty_new_version("2.0"));
    icalcomponent_add_property(calendar, icalproperty_new_prodid("-//Brindle//Brindle//EN"));
    icalcomponent* item = icalcomponent_new(kind);
    const QByteArray uid = QUuid::createUuid().toString(QUuid::WithoutBraces).toUtf8();
    icalcomponent_add_property(item, icalproperty_new_uid(uid.constData()));
    icalcomponent_add_property(item, icalproperty_new_created(UtcNow()));
    icalcomponent_add_component(calendar, item);
    return std::unique_ptr<CIcalDocument>(new CIcalDocument(calendar, item));
}

void CIcalDocument::Remove(icalproperty_kind kind)
{
    while (icalproperty* property = icalcomponent_get_first_property(m_item, kind)) {
        icalcomponent_remove_property(m_item, property);
        icalproperty_free(property);
    }
}

void CIcalDocument::SetText(icalproperty_kind kind, const QString& text)
{
    Remove(kind);
    if (text.isEmpty())
        return;
    icalproperty* property = icalproperty_new(kind);
    const QByteArray utf8 = text.toUtf8();
    icalproperty_set_value(property, icalvalue_new_text(utf8.constData()));
    icalcomponent_add_property(m_item, property);
}

void CIcalDocument::SetTime(icalproperty_kind kind, icaltimetype time)
{
    Remove(kind);
    icalproperty* property = icalproperty_new(kind);
    icalproperty_set_value(property,
                           time.is_date ? icalvalue_new_date(time) : icalvalue_new_datetime(time));
    icalcomponent_add_property(m_item, property);
}

void CIcalDocument::SetInteger(icalproperty_kind kind, int value)
{
    Remove(kind);
    icalproperty* property = icalproperty_new(kind);
    icalproperty_set_value(property, icalvalue_new_integer(value));
    icalcomponent_add_property(m_item, property);
}

QString CIcalDocument::Text(icalproperty_kind kind) const
{
    icalproperty* property = icalcomponent_get_first_property(m_item, kind);
    if (!property)
        return QString();
    // Text as the user wrote it; other values (dates, numbers) as written.
    const icalvalue* value = icalproperty_get_value(property);
    if (value && icalvalue_isa(value) == ICAL_TEXT_VALUE)
        return QString::fromUtf8(icalvalue_get_text(value));
    return QString::fromUtf8(icalproperty_get_value_as_string(property));
}

QByteArray CIcalDocument::ToBytes()
{
    SetTime(ICAL_DTSTAMP_PROPERTY, UtcNow());
    SetTime(ICAL_LASTMODIFIED_PROPERTY, UtcNow());
    char* text = icalcomponent_as_ical_string_r(m_calendar);
    QByteArray bytes(text);
    std::free(text);
    return bytes;
}

icaltimetype CIcalDocument::FloatingTime(double date)
{
    // Neither a zone nor UTC: the due time stays the same wall-clock time
    // wherever and whenever the task list is read.
    const QDate day = BrindleDate::ToDate(date);
    const QTime time = BrindleDate::ToTime(date);
    icaltimetype result = icaltime_null_time();
    result.year = day.year();
    result.month = day.month();
    result.day = day.day();
    result.hour = time.hour();
    result.minute = time.minute();
    result.second = time.second();
    return result;
}

icaltimetype CIcalDocument::Day(double date)
{
    const QDate day = BrindleDate::ToDate(date);
    icaltimetype result = icaltime_null_date();
    result.year = day.year();
    result.month = day.month();
    result.day = day.day();
    return result;
}

icaltimetype CIcalDocument::UtcNow()
{
    return icaltime_current_time_with_zone(icaltimezone_get_utc_timezone());
}
