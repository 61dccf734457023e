#pragma once

// Database files as other programs see them: bytes, hashes, SQL run outside
// Brindle, and dumps of every table.
#include <QCryptographicHash>
#include <QFile>
#include <QStringList>

#include <sqlite3.h>

namespace DatabaseFiles {

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

// Empty when the file is missing or empty.
inline QByteArray Hash(const QString& path)
{
    const QByteArray bytes = Read(path);
    return bytes.isEmpty() ? bytes : QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
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

// The rows the statement gives, each one's columns joined by '|'.
inline QStringList StepRows(sqlite3_stmt* stmt)
{
    QStringList rows;
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
        QStringList values;
        for (int c = 0; c < sqlite3_column_count(stmt); ++c)
            values << QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(stmt, c)));
        rows << values.join(u'|');
    }
    return rows;
}

// The rows of a query on the file, opened read-only as any SQLite program
// opens it (no collation of Brindle's known); SQLite's message when it fails.
inline QStringList Rows(const QString& path, const QByteArray& sql)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* stmt = nullptr;
    QStringList rows;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) !=
            SQLITE_OK ||
        sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr) != SQLITE_OK)
        rows << QString::fromUtf8(sqlite3_errmsg(db));
    rows << StepRows(stmt);
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return rows;
}

// Every row of every table, "table: value|value|..." in table and rowid order.
// The record id sequence is bookkeeping, not content.
inline QStringList Dump(const QString& path)
{
    QStringList rows;
    for (const QString& table : Rows(path, "SELECT name FROM sqlite_schema WHERE type = 'table' "
                                           "AND name <> 'RecordIdSequence' ORDER BY name")) {
        for (const QString& row :
             Rows(path, "SELECT * FROM \"" + table.toUtf8() + "\" ORDER BY rowid"))
            rows << table + u": " + row;
    }
    return rows;
}

} // namespace DatabaseFiles
