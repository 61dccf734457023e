#pragma once

// A test's own database, export folders and settings file, with the store
// library initialised, as Brindle has them at run time.
#include "outlook/PimFolders.h"
#include "outlook/PimLibrary.h"
#include "store/CeMount.h"
#include "store/DataTable.h"
#include "store/SettingsFile.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

class ExportFixture
{
public:
    ExportFixture()
    {
        qputenv("BRINDLE_PIM_DIR", m_pim.path().toUtf8());
        SetSettingsPath(m_pim.filePath(QStringLiteral("Brindle.ini")));
        PimLibrary::Initialize();
    }
    ~ExportFixture()
    {
        PimLibrary::Release();
        SetSettingsPath(QString());
        qunsetenv("BRINDLE_PIM_DIR");
    }
    ExportFixture(const ExportFixture&) = delete;
    ExportFixture& operator=(const ExportFixture&) = delete;

    bool IsReady() const { return m_pim.isValid() && m_db.IsReady(); }
    PimFolders Folders() const { return PimFolders::Load(); }

    // The item files of a folder (.ics and .vcf), without the vdir metadata.
    static QStringList Items(const QString& folder)
    {
        return QDir(folder).entryList({QStringLiteral("*.ics"), QStringLiteral("*.vcf")},
                                      QDir::Files, QDir::Name);
    }
    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The item ids the links of a record point at, of one kind.
    static QList<quint32> Links(quint32 brindleId, quint32 type)
    {
        QList<quint32> ids;
        sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(
            "SELECT OutlookItemID FROM OutlookLink WHERE BrindleItemID = ?1 AND ItemType = ?2 "
            "ORDER BY id");
        if (!stmt)
            return {quint32(0xFFFFFFFF)};
        sqlite3_bind_int64(stmt, 1, brindleId);
        sqlite3_bind_int64(stmt, 2, type);
        while (sqlite3_step(stmt) == SQLITE_ROW)
            ids << static_cast<quint32>(sqlite3_column_int64(stmt, 0));
        sqlite3_reset(stmt);
        return ids;
    }

private:
    QTemporaryDir m_pim;
    TestDatabase m_db;
};
