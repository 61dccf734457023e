#pragma once

#include "ItemExport.h"

#include <QString>

#include <vector>

// An instructor as a contact, with the office hours in its notes. Takes the
// instructor as the editor holds it, since the office hours are stored after
// the contact is written.
namespace ContactExport {

struct OfficeHour
{
    quint16 days = 0; // bit set: 1 Sunday ... 64 Saturday
    double start = 0.0;
    double end = 0.0;
};

struct Instructor
{
    QString name;
    QString phone;
    QString email;
    QString roomNumber;
    QString buildingName;
    std::vector<OfficeHour> officeHours;
};

// "Office Hours:" and one line per office hour, or empty when there are none.
QString NotesText(const std::vector<OfficeHour>& officeHours);

ExportResult ExportContact(IPOutlookApp* app, quint32 instructorId, const Instructor& instructor,
                           quint32* contactId);

} // namespace ContactExport
