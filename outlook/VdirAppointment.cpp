#include "VdirAppointment.h"

#include "store/DateEncoding.h"

#include <algorithm>

CVdirAppointment::CVdirAppointment(VdirIcalFile file) : m_file(std::move(file)) {}

std::unique_ptr<CVdirAppointment> CVdirAppointment::Create(const QString& folder, quint32 id)
{
    return std::unique_ptr<CVdirAppointment>(
        new CVdirAppointment(VdirIcalFile::New(folder, id, ICAL_VEVENT_COMPONENT)));
}

std::unique_ptr<CVdirAppointment> CVdirAppointment::Load(const QString& folder, quint32 id)
{
    VdirIcalFile file = VdirIcalFile::Load(folder, id, ICAL_VEVENT_COMPONENT);
    if (!file.document)
        return nullptr;
    return std::unique_ptr<CVdirAppointment>(new CVdirAppointment(std::move(file)));
}

void CVdirAppointment::put_Subject(const QString& text)
{
    m_file.document->SetText(ICAL_SUMMARY_PROPERTY, text);
}

void CVdirAppointment::put_Categories(const QString& text)
{
    m_file.document->SetText(ICAL_CATEGORIES_PROPERTY, text);
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
    m_file.document->SetText(ICAL_DESCRIPTION_PROPERTY, text);
}

void CVdirAppointment::put_AllDayEvent(bool allDay)
{
    m_allDay = allDay;
}

int CVdirAppointment::Save()
{
    if (m_timesSet) {
        // A duration would contradict the end written here.
        m_file.document->Remove(ICAL_DURATION_PROPERTY);
        if (m_allDay) {
            const double firstDay = BrindleDate::WholeDays(m_start);
            const double lastDay = std::max(firstDay, BrindleDate::WholeDays(m_end));
            m_file.document->SetTime(ICAL_DTSTART_PROPERTY, CIcalDocument::Day(firstDay));
            m_file.document->SetTime(ICAL_DTEND_PROPERTY, CIcalDocument::Day(lastDay + 1.0));
        } else {
            m_file.document->SetTime(ICAL_DTSTART_PROPERTY, CIcalDocument::FloatingTime(m_start));
            m_file.document->SetTime(ICAL_DTEND_PROPERTY,
                                     CIcalDocument::FloatingTime(std::max(m_start, m_end)));
        }
    }
    return m_file.Write();
}
