#pragma once

#include <QString>

// Where the vdir store keeps each kind of item: by default pim/tasks,
// pim/calendar and pim/contacts under Brindle's data folder (or under the
// environment's BRINDLE_PIM_DIR), or the folders named in the settings file
// under [Export] TasksFolder, CalendarFolder, ContactsFolder, which may be a
// user's own vdir collections.
struct PimFolders
{
    QString tasks;
    QString calendar;
    QString contacts;

    static PimFolders Defaults();
    // The folders in effect: the settings file's, else the defaults.
    static PimFolders Load();
    // Writes the folders into the settings file; an empty or default folder
    // removes its key. Nonzero when the file was written.
    static int Store(const PimFolders& folders);

    // A folder as typed or stored, made absolute and clean; "~/" is the home
    // folder, as in the clients' own configurations. Empty stays empty.
    static QString Normalize(const QString& folder);

    // Nonzero when the folder exists or can be made, and a file can be
    // written into it.
    static int IsUsable(const QString& folder);
};
