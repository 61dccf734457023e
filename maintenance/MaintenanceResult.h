#pragma once

#include <QString>

// The outcome of a step on the database file: whether it worked and, when it
// did not, why (a sentence naming the file). A step that worked may still
// leave a note the user should read.
struct MaintenanceResult
{
    bool ok = false;
    QString reason;

    static MaintenanceResult Done(const QString& note = QString()) { return {true, note}; }
    static MaintenanceResult Failed(const QString& why) { return {false, why}; }
};
