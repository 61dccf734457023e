#include "VdirAppointment.h"

#include "VdirStore.h"
#include "store/DateEncoding.h"

#include <algorithm>

namespace {
QString PathOf(const QString& folder, quint32 id)
{
    return folder + QLatin1Char('/') + QString::number(id) + QStringLiteral(".ics");
}
} // namespace

CVdirAppointment::CVdirAppointment(QString path, quint32 id,
                                   std::unique_ptr<CIcalDocument> document)
    : m_path(std::move(path)), m_id(id), m_document(std::move(document))
{
}

std::unique_ptr<CVdirAppointment> CVdirAppointment::Create(const QString& folder, quint32 id)
{
    return std::unique_ptr<CVdirAppointment>(
        new CVdirAppointment(PathOf(folder, id), id, CIcalDocument::New(ICAL_VEVENT_COMPONENT)));
}

std::unique_ptr<CVdirAppointment> CVdirAppointment::Load(const QString& folder, quint32 id)
{
    const QString path = PathOf(folder, id);
    auto document = CIcalDocument::Load(path, ICAL_VEVENT_COMPONENT);
    if (!document)
        return nullptr;
    return std::unique_ptr<CVdirAppointment>(
        new CVdirAppointment(path, id, std::move(document)));
}

void CVdirAppointment::put_Subject(const QString& text)
{
    m_document->SetText(ICAL_SUMMARY_PROPERTY, text);
}

void CVdirAppointment::put_Categories(const QString& text)
{
    m_document->SetText(ICAL_CATEGORIES_PROPERTY, text);
}

void CVdirAppointment::put_Start(double date)
{
    m_start = date;
    m_timesSet = true;
}

void CVdirAppointment::put_End(double date)
{
    m_end = date;
    m_timesSet = true;
}

void CVdirAppointment::put_Body(const QString& text)
{
    m_document->SetText(ICAL_DESCRIPTION_PROPERTY, text);
}

void CVdirAppointment::put_AllDayEvent(bool allDay)
{
    m_allDay = allDay;
}

int CVdirAppointment::Save()
{
    if (m_timesSet) {
        // A duration would contradict the end written here.
        m_document->Remove(ICAL_DURATION_PROPERTY);
        if (m_allDay) {
            const double firstDay = BrindleDate::WholeDays(m_start);
            const double lastDay = std::max(firstDay, BrindleDate::WholeDays(m_end));
            m_document->SetTime(ICAL_DTSTART_PROPERTY, CIcalDocument::Day(firstDay));
            m_document->SetTime(ICAL_DTEND_PROPERTY, CIcalDocument::Day(lastDay + 1.0));
        } else {
            m_document->SetTime(ICAL_DTSTART_PROPERTY, CIcalDocument::FloatingTime(m_start));
            m_document->SetTime(ICAL_DTEND_PROPERTY,
                                CIcalDocument::FloatingTime(std::max(m_start, m_end)));
        }
    }
    return CVdirStore::WriteAtomically(m_path, m_document->ToBytes());
}
