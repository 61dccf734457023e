#include "CeMount.h"

#include "Schema.h"
#include "res/strings/StoreStrings.h"

#include <QFile>
#include <QFileInfo>
#include <QString>

#include <sqlite3.h>

namespace {

// Course and building names sort and compare without regard to case, for
// every script and not only ASCII (SQLite's own NOCASE knows only ASCII).
int CompareCaseInsensitive(void*, int lengthA, const void* a, int lengthB, const void* b)
{
    const QString left = QString::fromUtf8(static_cast<const char*>(a), lengthA);
    const QString right = QString::fromUtf8(static_cast<const char*>(b), lengthB);
    return QString::compare(left, right, Qt::CaseInsensitive);
}

void RegisterCollation(sqlite3* db)
{
    sqlite3_create_collation_v2(db, BrindleSchema::CaseInsensitiveCollation, SQLITE_UTF8, nullptr,
                                CompareCaseInsensitive, nullptr);
}

QString SqliteMessage(sqlite3* db)
{
    return QString::fromUtf8(sqlite3_errmsg(db));
}

} // namespace

CCeMount::~CCeMount()
{
    Unmount();
}

bool CCeMount::CheckExistingFile(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists() || info.size() == 0)
        return true;

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_lastError = StoreStrings::CannotReadFile(path, file.errorString());
        return false;
    }
    if (file.read(16) != QByteArray("SQLite format 3\0", 16)) {
        m_lastError = StoreStrings::NotADatabase(path);
        return false;
    }
    file.close();

    sqlite3* db = nullptr;
    const QByteArray utf8 = path.toUtf8();
    if (sqlite3_open_v2(utf8.constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        m_lastError = StoreStrings::CannotReadFile(path, SqliteMessage(db));
        sqlite3_close(db);
        return false;
    }
    RegisterCollation(db);
    auto scalar = [db](const char* sql, bool* ok) -> QByteArray {
        sqlite3_stmt* stmt = nullptr;
        QByteArray result;
        *ok = sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr) == SQLITE_OK;
        if (*ok) {
            const int rc = sqlite3_step(stmt);
            if (rc == SQLITE_ROW)
                result = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
            *ok = rc == SQLITE_ROW || rc == SQLITE_DONE;
        }
        sqlite3_finalize(stmt);
        return result;
    };

    bool ok = false;
    const QByteArray check = scalar("PRAGMA quick_check", &ok);
    bool good = true;
    if (!ok || check != "ok") {
        m_lastError =
            StoreStrings::DamagedDatabase(path, ok ? QString::fromUtf8(check) : SqliteMessage(db));
        good = false;
    }
    if (good) {
        const qint64 appId = scalar("PRAGMA application_id", &ok).toLongLong();
        const qint64 tables =
            scalar("SELECT count(*) FROM sqlite_schema WHERE type = 'table'", &ok).toLongLong();
        const qint64 version = scalar("PRAGMA user_version", &ok).toLongLong();
        if (appId != BrindleSchema::ApplicationId && !(appId == 0 && tables == 0)) {
            m_lastError = StoreStrings::NotABrindleDatabase(path);
            good = false;
        } else if (version > BrindleSchema::Version) {
            m_lastError = StoreStrings::NewerDatabase(path);
            good = false;
        }
    }
    sqlite3_close(db);
    return good;
}

int CCeMount::MountPath(const QString& path)
{
    Unmount();
    m_lastError.clear();
    if (!CheckExistingFile(path))
        return 0;

    const QByteArray utf8 = path.toUtf8();
    if (sqlite3_open_v2(utf8.constData(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                        nullptr) != SQLITE_OK) {
        m_lastError = StoreStrings::CannotOpenFile(path, SqliteMessage(m_db));
        sqlite3_close(m_db);
        m_db = nullptr;
        return 0;
    }
    sqlite3_busy_timeout(m_db, 2000);
    RegisterCollation(m_db);
    // A rollback journal, not WAL: after Unmount the one file is the whole database.
    Execute("PRAGMA journal_mode = DELETE");
    Execute("PRAGMA synchronous = FULL");
    m_path = path;
    return 1;
}

void CCeMount::FinalizeStatements()
{
    for (sqlite3_stmt* stmt : std::as_const(m_statements))
        sqlite3_finalize(stmt);
    m_statements.clear();
}

void CCeMount::Unmount()
{
    if (!m_db)
        return;
    FinalizeStatements();
    sqlite3_close(m_db);
    m_db = nullptr;
    m_path.clear();
}

sqlite3_stmt* CCeMount::Statement(const QByteArray& sql)
{
    if (!m_db)
        return nullptr;
    auto it = m_statements.constFind(sql);
    if (it != m_statements.constEnd()) {
        sqlite3_reset(it.value());
        sqlite3_clear_bindings(it.value());
        return it.value();
    }
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v3(m_db, sql.constData(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        return nullptr;
    }
    m_statements.insert(sql, stmt);
    return stmt;
}

int CCeMount::Execute(const QByteArray& sql)
{
    if (!m_db)
        return 0;
    return sqlite3_exec(m_db, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK ? 1 : 0;
}

quint32 CCeMount::AllocateRecordId()
{
    sqlite3_stmt* stmt = Statement("UPDATE RecordIdSequence SET LastId = LastId + 1 "
                                   "WHERE LastId < 4294967294 RETURNING LastId");
    if (!stmt)
        return 0;
    quint32 id = 0;
    if (sqlite3_step(stmt) == SQLITE_ROW)
        id = static_cast<quint32>(sqlite3_column_int64(stmt, 0));
    sqlite3_reset(stmt);
    return id;
}
