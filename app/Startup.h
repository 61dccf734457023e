#pragma once

#include <QString>

#include <functional>

// The start-up steps that run before the main frame exists, in their order:
// the upgrade marker, the one-shot helper, the personal-information store.
class CStartup
{
public:
    struct Result
    {
        bool upgradeMarkerFound = false;
        // False when the marker's CreateDatabase failed: the database could
        // not be brought up to date (CTransaction::LastFailure says why).
        bool databaseReady = true;
        bool helperStarted = false;
        bool helperDeleted = false;
    };

    // Starts a program detached, without waiting for it; true when it started.
    using ProcessStarter = std::function<bool(const QString& program)>;

    explicit CStartup(ProcessStarter starter = {});

    // 1. "BrindleUpgrade.dll" in the installation folder: CreateDatabase runs
    //    (the marker stays). 2. "SetSecurity.exe": started once, detached, then
    //    deleted, whether or not it started.
    Result RunInstallationSteps();

private:
    ProcessStarter m_starter;
};
