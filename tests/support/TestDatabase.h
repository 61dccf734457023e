#pragma once

#include "BrindleData.h"
#include "res/Resources.h"

#include <QTemporaryDir>

// A fresh Brindle database in its own temporary folder, mounted, with its
// default records and the program-wide state open. Unmounted on destruction.
class TestDatabase
{
public:
    TestDatabase()
    {
        InitBrindleResources();
        m_path = m_dir.filePath(QStringLiteral("Brindle.db"));
        SetDatabasePath(m_path);
        m_ready = m_dir.isValid() && Reopen();
    }
    ~TestDatabase()
    {
        CAppStateTable::Instance().Close();
        CDataTable::GetMount()->Unmount();
        SetDatabasePath(QString());
    }
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    bool IsReady() const { return m_ready; }
    QString Path() const { return m_path; }
    QString Folder() const { return m_dir.path(); }

    // Unmounts and mounts the same file again, as a restart would.
    bool Reopen()
    {
        CAppStateTable::Instance().Close();
        CCeMount* mount = CDataTable::GetMount();
        mount->Unmount();
        return mount->MountPath(m_path) && CreateDatabase() &&
               CAppStateTable::Instance().OpenState();
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
    bool m_ready = false;
};
