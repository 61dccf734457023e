#include "ContactExport.h"

#include "res/strings/EditorStrings.h"
#include "res/strings/ExportStrings.h"
#include "store/DateEncoding.h"
#include "store/TimeFormat.h"

#include <QLocale>

namespace {

QString DaysText(quint16 days)
{
    const QString names[] = {EditorStrings::DaySunday(),   EditorStrings::DayMonday(),
                             EditorStrings::DayTuesday(),  EditorStrings::DayWednesday(),
                             EditorStrings::DayThursday(), EditorStrings::DayFriday(),
                             EditorStrings::DaySaturday()};
    QString text;
    for (int i = 0; i < 7; ++i) {
        if (days & (1u << i))
            text += names[i];
    }
    return text;
}

QString TimeText(double time)
{
    return QLocale().toString(BrindleDate::ToTime(time), BrindleDate::ShortTimeFormat());
}

} // namespace

namespace ContactExport {

QString NotesText(const std::vector<OfficeHour>& officeHours)
{
    QString notes;
    for (const OfficeHour& hours : officeHours)
        notes += ExportStrings::OfficeHourLine(TimeText(hours.start), TimeText(hours.end),
                                               DaysText(hours.days)) +
                 QStringLiteral("\r\n");
    if (!notes.isEmpty())
        notes.prepend(ExportStrings::OfficeHoursHeading());
    return notes;
}

ExportResult ExportContact(IPOutlookApp* app, quint32 instructorId, const Instructor& instructor,
                           quint32* contactId)
{
    return ExportItem(
        app, instructorId, COutlookTable::olContactItem, contactId, [&](IPOutlookItem& item) {
            IContact* contact = item.AsContact();
            contact->put_FileAs(instructor.name);
            contact->put_LastName(instructor.name);
            contact->put_OfficeLocation(
                ExportStrings::OfficeLocation(instructor.roomNumber, instructor.buildingName));
            contact->put_Email1Address(instructor.email);
            contact->put_HomeTelephoneNumber(instructor.phone);
            contact->put_Body(NotesText(instructor.officeHours));
        });
}

} // namespace ContactExport
