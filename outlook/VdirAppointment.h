#pragma once

#include "PimItem.h"
#include "VdirIcalFile.h"

// An appointment of the vdir store: a VEVENT in <id>.ics. An all-day event
// is written as DATE values, its end the day after its last day, since an
// iCalendar DATE end is exclusive.
class CVdirAppointment : public IAppointment
{
public:
    static std::unique_ptr<CVdirAppointment> Create(const QString& folder, quint32 id);
    static std::unique_ptr<CVdirAppointment> Load(const QString& folder, quint32 id);

    void put_Subject(const QString& text) override;
    void put_Categories(const QString& text) override;
    void put_Start(double date) override;
    void put_End(double date) override;
    void put_Body(const QString& text) override;
    void put_AllDayEvent(bool allDay) override;
    int Save() override;
    quint32 get_Oid() const override { return m_file.id; }

private:
    explicit CVdirAppointment(VdirIcalFile file);

    VdirIcalFile m_file;
    // Start and end are written on Save, once it is known whether they are days.
    double m_start = 0.0;
    double m_end = 0.0;
    bool m_timesSet = false;
    bool m_allDay = false;
};
