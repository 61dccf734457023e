#pragma once

#include "EditorStrings.h"
#include "Tr.h"

// Texts of the export to tasks, calendar and contacts.
namespace ExportStrings {

inline QString MenuExport()
{
    return BrindleText::tr("Export");
}
inline QString Tasks()
{
    return BrindleText::tr("Tasks");
}
inline QString Calendar()
{
    return BrindleText::tr("Calendar");
}
inline QString Contacts()
{
    return BrindleText::tr("Contacts");
}

inline QString TaskCreateFailed()
{
    return BrindleText::tr("Failed to create Task!");
}
inline QString AppointmentCreateFailed()
{
    return BrindleText::tr("Failed to create appointment!");
}
inline QString ContactCreateFailed()
{
    return BrindleText::tr("Failed to create Contact!");
}
// An item that exists but could not be written again.
inline QString TaskUpdateFailed()
{
    return BrindleText::tr("Failed to update Task!");
}
inline QString AppointmentUpdateFailed()
{
    return BrindleText::tr("Failed to update appointment!");
}
inline QString ContactUpdateFailed()
{
    return BrindleText::tr("Failed to update Contact!");
}

// The contact's office: room number, then building name.
inline QString OfficeLocation(const QString& roomNumber, const QString& buildingName)
{
    return BrindleText::tr("%1 %2").arg(roomNumber, buildingName);
}
inline QString OfficeHoursHeading()
{
    return BrindleText::tr("Office Hours:\r\n");
}
// One office hour of the notes: start, end, days.
inline QString OfficeHourLine(const QString& start, const QString& end, const QString& days)
{
    return BrindleText::tr("%1 - %2 on %3").arg(start, end, days);
}

// The names the folders carry in khal, todoman, khard and on a server.
inline QString TasksDisplayName()
{
    return BrindleText::tr("Brindle Tasks");
}
inline QString CalendarDisplayName()
{
    return BrindleText::tr("Brindle Calendar");
}
inline QString ContactsDisplayName()
{
    return BrindleText::tr("Brindle Contacts");
}

// The "Export Folders..." dialog.
inline QString ExportFolders()
{
    return BrindleText::tr("Export Folders...");
}
inline QString ExportFoldersTitle()
{
    return BrindleText::tr("Export Folders");
}
inline QString ExportFoldersIntro()
{
    return BrindleText::tr(
        "Brindle writes each exported task, appointment and contact as one file into these "
        "folders. Point them at the folders (vdir collections) that khal, todoman, khard or "
        "vdirsyncer use, or leave a field empty for Brindle's own folder.");
}
inline QString TasksFolderLabel()
{
    return BrindleText::tr("Tasks: ");
}
inline QString CalendarFolderLabel()
{
    return BrindleText::tr("Calendar: ");
}
inline QString ContactsFolderLabel()
{
    return BrindleText::tr("Contacts: ");
}
inline QString Browse()
{
    return BrindleText::tr("Browse...");
}
// What a screen reader says for a row's Browse button: the row's kind, from
// its label without the colon.
inline QString BrowseAccessibleName(const QString& kind)
{
    return BrindleText::tr("Choose the folder for %1").arg(kind);
}
inline QString ChooseFolder()
{
    return BrindleText::tr("Choose a Folder");
}
inline QString FolderUnusable(const QString& folder)
{
    return BrindleText::tr("The folder %1 cannot be created or written.\nPlease choose another "
                           "folder.")
        .arg(folder);
}
inline QString SettingsNotSaved(const QString& file)
{
    return BrindleText::tr("The folders could not be saved in %1.").arg(file);
}

} // namespace ExportStrings
