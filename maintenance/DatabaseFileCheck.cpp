#include "DatabaseFileCheck.h"

#include "Schema.h"
#include "res/strings/DatabaseStrings.h"
#include "res/strings/StoreStrings.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace {

// The name indexes of files written before the stored case-folded keys carry
// this collation, and SQLite refuses to check (or read) them without it;
// backups keep it for as long as they exist. Files of today's layout never
// call it.
int CompareCaseInsensitive(void*, int lengthA, const void* a, int lengthB, const void* b)
{
    return QString::compare(QString::fromUtf8(static_cast<const char*>(a), lengthA),
                            QString::fromUtf8(static_cast<const char*>(b), lengthB),
                            Qt::CaseInsensitive);
}

QByteArray Scalar(sqlite3* db, const char* sql, bool* ok)
{
    sqlite3_stmt* stmt = nullptr;
    QByteArray value;
    *ok = sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) == SQLITE_OK;
    if (*ok) {
        const int rc = sqlite3_step(stmt);
        if (rc == SQLITE_ROW)
            value = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
        *ok = rc == SQLITE_ROW;
    }
    sqlite3_finalize(stmt);
    return value;
}

QString CheckOpenDatabase(sqlite3* db, const QString& path, qint64 size)
{
    auto failure = [db, &path] {
        const QString message = QString::fromUtf8(sqlite3_errmsg(db));
        const int code = sqlite3_errcode(db) & 0xFF;
        if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB)
            return StoreStrings::DamagedDatabase(path, message);
        return StoreStrings::CannotReadFile(path, message);
    };
    // quick_check reads every page: mapped, each is read without a copy (a
    // fifth less work on the generated database). The file checked is a copy
    // of Brindle's own, so nothing cuts it short under the map.
    const QByteArray mapped = "PRAGMA mmap_size = " + QByteArray::number(size);
    if (sqlite3_exec(db, mapped.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        return failure();
    bool ok = false;
    // The cheap header fields first: a file of another program is named as
    // such, not as damaged.
    const qint64 applicationId = Scalar(db, "PRAGMA application_id", &ok).toLongLong();
    if (!ok)
        return failure();
    if (applicationId != BrindleSchema::ApplicationId)
        return StoreStrings::NotABrindleDatabase(path);
    const qint64 version = Scalar(db, "PRAGMA user_version", &ok).toLongLong();
    if (!ok)
        return failure();
    if (version > BrindleSchema::Version)
        return StoreStrings::NewerDatabase(path);
    const QByteArray check = Scalar(db, "PRAGMA quick_check", &ok);
    if (!ok)
        return failure();
    if (check != "ok")
        return StoreStrings::DamagedDatabase(path, QString::fromUtf8(check));
    return QString();
}

} // namespace

QString CheckDatabaseFile(const QString& realPath, const QString& shownPath)
{
    const QString& path = shownPath.isEmpty() ? realPath : shownPath;
    QFile file(realPath);
    if (!file.open(QIODevice::ReadOnly))
        return StoreStrings::CannotReadFile(path, file.errorString());
    if (file.size() == 0)
        return DatabaseStrings::EmptyFile(path);
    if (file.read(16) != QByteArray("SQLite format 3\0", 16))
        return StoreStrings::NotADatabase(path);
    const qint64 size = file.size();
    file.close();

    sqlite3* db = nullptr;
    const QByteArray utf8 = QFileInfo(realPath).absoluteFilePath().toUtf8();
    QString reason;
    if (sqlite3_open_v2(utf8.constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        reason = StoreStrings::CannotReadFile(path, QString::fromUtf8(sqlite3_errmsg(db)));
    } else {
        // Another program may be writing it right now; wait a moment for it.
        sqlite3_busy_timeout(db, 2000);
        if (sqlite3_create_collation_v2(db, "BRINDLE_NOCASE", SQLITE_UTF8, nullptr,
                                        CompareCaseInsensitive, nullptr) != SQLITE_OK)
            reason = StoreStrings::CannotReadFile(path, QString::fromUtf8(sqlite3_errmsg(db)));
        else
            reason = CheckOpenDatabase(db, path, size);
    }
    sqlite3_close(db);
    return reason;
}
