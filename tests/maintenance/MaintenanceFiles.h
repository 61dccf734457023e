#pragma once

// Small file helpers for the database maintenance tests: hashes, dumps of
// every table, and crafted files.
#include <QCryptographicHash>
#include <QFile>
#include <QStringList>

#include <sqlite3.h>

namespace MaintenanceFiles {

inline QByteArray Hash(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(&file);
    return hash.result().toHex();
}

inline bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size();
}

inline QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Runs SQL on the file outside Brindle (creating it when missing).
inline bool Execute(const QString& path, const char* sql)
{
    sqlite3* db = nullptr;
    bool ok = sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK &&
              sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return ok;
}

// Every row of every table, "table: value|value|..." in table and rowid order.
inline QStringList Dump(const QString& path)
{
    QStringList rows;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) !=
        SQLITE_OK) {
        sqlite3_close(db);
        return {QStringLiteral("cannot open")};
    }
    QStringList tables;
    sqlite3_stmt* stmt = nullptr;
    // Every mount reserves a fresh block of record ids, so the id sequence
    // moves on without any record changing; it is bookkeeping, not content.
    sqlite3_prepare_v2(db,
                       "SELECT name FROM sqlite_schema WHERE type = 'table' "
                       "AND name <> 'RecordIdSequence' ORDER BY name",
                       -1, &stmt, nullptr);
    while (sqlite3_step(stmt) == SQLITE_ROW)
        tables << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    sqlite3_finalize(stmt);
    for (const QString& table : tables) {
        const QByteArray sql = "SELECT * FROM \"" + table.toUtf8() + "\" ORDER BY rowid";
        sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr);
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            QStringList values;
            for (int c = 0; c < sqlite3_column_count(stmt); ++c)
                values << QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(stmt, c)));
            rows << table + u": " + values.join(u'|');
        }
        sqlite3_finalize(stmt);
    }
    sqlite3_close(db);
    return rows;
}

} // namespace MaintenanceFiles
