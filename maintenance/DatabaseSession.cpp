#include "DatabaseSession.h"

#include "DatabaseVolume.h"
#include "res/strings/DatabaseStrings.h"

#include <QDebug>

CDatabaseSession::CDatabaseSession(const QString& settingsFile) : m_today(settingsFile) {}

CDatabaseSession::~CDatabaseSession()
{
    End();
}

void CDatabaseSession::Begin()
{
    if (m_open)
        return;
    m_open = true;
    // The companion only reads; if it cannot be told, the file steps are
    // still safe, so this is not a reason to stop.
    if (!m_today.SwitchOff())
        qWarning("The Today switch in %s cannot be written", qPrintable(m_today.File()));
    DatabaseVolume::Release();
}

MaintenanceResult CDatabaseSession::End()
{
    if (!m_open)
        return m_endResult;
    m_open = false;
    const MaintenanceResult reopened = DatabaseVolume::Reopen();
    const bool todayRestored = m_today.Restore();
    if (!reopened.ok)
        m_endResult = reopened;
    else if (!todayRestored)
        m_endResult = MaintenanceResult::Done(DatabaseStrings::TodayNotRestored(m_today.File()));
    return m_endResult;
}
