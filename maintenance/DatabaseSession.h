#pragma once

#include "MaintenanceResult.h"
#include "app/TodaySwitch.h"

// The time the Database Options dialog is open. Begin switches the Today
// companion off (when it was on) and lets go of the database, so that the
// file can be copied and replaced; End takes the database back, with the
// application state on its first record, and switches the companion on again
// only if it was on before.
class CDatabaseSession
{
public:
    explicit CDatabaseSession(const QString& settingsFile = CTodaySwitch::DefaultFile());
    ~CDatabaseSession();
    CDatabaseSession(const CDatabaseSession&) = delete;
    CDatabaseSession& operator=(const CDatabaseSession&) = delete;

    void Begin();
    // Once only; later calls return the first result. A failure means no
    // database is mounted; a note, that the companion could not be switched
    // on again.
    MaintenanceResult End();

    bool IsOpen() const { return m_open; }

private:
    CTodaySwitch m_today;
    bool m_open = false;
    MaintenanceResult m_endResult = MaintenanceResult::Done();
};
