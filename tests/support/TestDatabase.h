#pragma once

#include <QString>
#include <QTemporaryDir>

// A fresh Brindle database in its own temporary folder, mounted, with its
// default records and the program-wide state open. Unmounted on destruction.
class TestDatabase
{
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    bool IsReady() const { return m_ready; }
    QString Path() const { return m_path; }
    QString Folder() const { return m_dir.path(); }

    // Unmounts and mounts the same file again, as a restart would.
    bool Reopen();

private:
    QTemporaryDir m_dir;
    QString m_path;
    bool m_ready = false;
};
