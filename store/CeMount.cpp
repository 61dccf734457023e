#include "CeMount.h"

#include "PrivateFiles.h"
#include "Schema.h"
#include "res/strings/StoreStrings.h"

#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QtDebug>

#include <sqlite3.h>

namespace {

int g_busyTimeout = 5000;

// Ids reserved with one write ahead of their use, and how few may be left
// before a transaction starts without reserving more.
constexpr quint32 IdBlock = 256;
constexpr qint64 IdsKeptAhead = 32;

// Files written by Brindle before the stored case-folded keys used this
// collation in their indexes; the upgrade drops those indexes, and until then
// the connection must know the collation to read and check such a file.
int CompareCaseInsensitive(void*, int lengthA, const void* a, int lengthB, const void* b)
{
    const QString left = QString::fromUtf8(static_cast<const char*>(a), lengthA);
    const QString right = QString::fromUtf8(static_cast<const char*>(b), lengthB);
    return QString::compare(left, right, Qt::CaseInsensitive);
}

// The case-folded key of a name, for the upgrade that fills the key columns.
void CaseFold(sqlite3_context* context, int, sqlite3_value** values)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    const QByteArray folded =
        QString::fromUtf8(text, sqlite3_value_bytes(values[0])).toCaseFolded().toUtf8();
    sqlite3_result_text(context, folded.constData(), static_cast<int>(folded.size()),
                        SQLITE_TRANSIENT);
}

void RegisterFunctions(sqlite3* db)
{
    sqlite3_create_collation_v2(db, BrindleSchema::LegacyCollation, SQLITE_UTF8, nullptr,
                                CompareCaseInsensitive, nullptr);
    sqlite3_create_function_v2(db, BrindleSchema::CaseFoldFunction, 1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, CaseFold, nullptr,
                               nullptr, nullptr);
}

QString SqliteMessage(sqlite3* db, int resultCode)
{
    if (db && sqlite3_errcode(db) != SQLITE_OK)
        return QString::fromUtf8(sqlite3_errmsg(db));
    return QString::fromUtf8(sqlite3_errstr(resultCode));
}

bool IsExpected(int resultCode)
{
    return resultCode == SQLITE_OK || resultCode == SQLITE_ROW || resultCode == SQLITE_DONE;
}

// Another process holds a lock that the busy timeout did not see released.
bool IsLocked(int resultCode)
{
    const int primary = resultCode & 0xFF;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

} // namespace

CCeMount::~CCeMount()
{
    Unmount();
}

void CCeMount::SetBusyTimeout(int milliseconds)
{
    g_busyTimeout = milliseconds;
}

int CCeMount::BusyTimeout()
{
    return g_busyTimeout;
}

bool CCeMount::Fail(Problem problem, const QString& text)
{
    m_problem = problem;
    m_lastError = text;
    return false;
}

bool CCeMount::CheckHeader(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(Problem::CannotOpen, StoreStrings::CannotReadFile(path, file.errorString()));
    if (file.read(16) != QByteArray("SQLite format 3\0", 16))
        return Fail(Problem::Unusable, StoreStrings::NotADatabase(path));
    return true;
}

bool CCeMount::CheckExistingFile(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return Fail(Problem::CannotOpen, StoreStrings::PathIsFolder(path));
    if (!info.exists()) {
        // A new database is the student's alone: a private folder, a private file.
        QString reason;
        if (!BrindleFiles::MakePrivateFolder(info.absolutePath(), &reason) ||
            !BrindleFiles::CreatePrivateFile(path, &reason))
            return Fail(Problem::CannotOpen, StoreStrings::CannotOpenFile(path, reason));
        return true;
    }
    // An empty file is an empty database to SQLite: nothing in it to lose.
    if (info.size() > 0 && !CheckHeader(path))
        return false;
    // A file or folder made read-only is not written to, not even by a user
    // whom the system would let write (root).
    if (!BrindleFiles::IsWritable(path) || !BrindleFiles::IsWritable(info.absolutePath()))
        return Fail(Problem::NotWritable, StoreStrings::NotWritable(path));
    return true;
}

// Run on the read-write connection, so that SQLite rolls back a hot journal
// before anything is judged: only a file that still fails after that is damaged.
bool CCeMount::CheckContents(const QString& path, ContentCheck contents)
{
    const bool everyPage = contents == ContentCheck::EveryPage;
    // Reading the schema's version reads the first page, which rolls back a
    // hot journal and tells a database from anything else.
    const char* probe = everyPage ? "PRAGMA quick_check" : "PRAGMA schema_version";
    bool ok = false;
    QByteArray check;
    int resultCode = SQLITE_OK;
    if (sqlite3_stmt* stmt = Statement(probe)) {
        resultCode = sqlite3_step(stmt);
        if (resultCode == SQLITE_ROW)
            check = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
        ok = IsExpected(resultCode);
        if (!ok)
            ReportError(resultCode, probe);
        sqlite3_reset(stmt);
    } else {
        resultCode = sqlite3_errcode(m_db);
    }
    if (!ok) {
        const QString reason = SqliteMessage(m_db, resultCode);
        if (IsLocked(resultCode))
            return Fail(Problem::InUse, StoreStrings::DatabaseInUse(path));
        const int primary = resultCode & 0xFF;
        if (primary == SQLITE_READONLY)
            return Fail(Problem::NotWritable, StoreStrings::NotWritable(path));
        if (primary == SQLITE_CANTOPEN || primary == SQLITE_PERM || primary == SQLITE_IOERR ||
            primary == SQLITE_NOMEM)
            return Fail(Problem::CannotOpen, StoreStrings::CannotOpenFile(path, reason));
        return Fail(Problem::Unusable, StoreStrings::DamagedDatabase(path, reason));
    }
    if (everyPage && check != "ok")
        return Fail(Problem::Unusable,
                    StoreStrings::DamagedDatabase(path, QString::fromUtf8(check)));

    const qint64 appId = Scalar("PRAGMA application_id");
    const qint64 tables = Scalar("SELECT count(*) FROM sqlite_schema WHERE type = 'table'");
    const qint64 version = Scalar("PRAGMA user_version");
    if (appId != BrindleSchema::ApplicationId && !(appId == 0 && tables == 0))
        return Fail(Problem::Unusable, StoreStrings::NotABrindleDatabase(path));
    if (version > BrindleSchema::Version)
        return Fail(Problem::Unusable, StoreStrings::NewerDatabase(path));
    return true;
}

int CCeMount::MountPath(const QString& path, ContentCheck contents)
{
    Unmount();
    m_lastError.clear();
    m_problem = Problem::None;
    m_failure.clear();
    if (!CheckExistingFile(path))
        return 0;

    const QByteArray utf8 = path.toUtf8();
    // No SQLITE_OPEN_CREATE: the file exists now, and SQLite must not make
    // another one should it vanish in between.
    const int opened = sqlite3_open_v2(utf8.constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
    if (opened != SQLITE_OK) {
        Fail(Problem::CannotOpen, StoreStrings::CannotOpenFile(path, SqliteMessage(m_db, opened)));
        sqlite3_close(m_db);
        m_db = nullptr;
        return 0;
    }
    sqlite3_extended_result_codes(m_db, 1);
    sqlite3_busy_timeout(m_db, g_busyTimeout);
    RegisterFunctions(m_db);
    m_path = path;
    m_nextId = 0;
    m_lastReservedId = 0;

    // A rollback journal, not WAL: after Unmount the one file is the whole database.
    bool good = CheckContents(path, contents);
    if (good &&
        (!Execute("PRAGMA journal_mode = DELETE") || !Execute("PRAGMA synchronous = FULL"))) {
        good = IsLocked(sqlite3_errcode(m_db))
                   ? Fail(Problem::InUse, StoreStrings::DatabaseInUse(path))
                   : Fail(Problem::CannotOpen, StoreStrings::CannotOpenFile(path, m_failure));
    }
    if (!good) {
        const QString error = m_lastError;
        const Problem problem = m_problem;
        Unmount();
        Fail(problem, error);
        return 0;
    }
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
    if (m_depth > 0)
        qWarning("Brindle store: unmounted inside a transaction; it is rolled back");
    m_depth = 0;
    m_doomed = false;
    FinalizeStatements();
    // Closing rolls back whatever is still open; the file alone is the database.
    const int closed = sqlite3_close(m_db);
    if (closed != SQLITE_OK) {
        qWarning("Brindle store: closing %s failed (%d): %s", qPrintable(m_path), closed,
                 sqlite3_errmsg(m_db));
        sqlite3_close_v2(m_db);
    }
    m_db = nullptr;
    m_path.clear();
}

void CCeMount::ReportError(int resultCode, const QByteArray& sql)
{
    const QString message = SqliteMessage(m_db, resultCode);
    qWarning("Brindle store: SQLite error %d (%s) in: %s", resultCode, qPrintable(message),
             sql.constData());
    if (m_depth > 0)
        Doom(message);
    else
        m_failure = message;
}

void CCeMount::Doom(const QString& reason)
{
    // The first failure is the one worth telling; later ones follow from it.
    if (!m_doomed || m_failure.isEmpty())
        m_failure = reason;
    m_doomed = true;
}

int CCeMount::Check(int resultCode, sqlite3_stmt* statement)
{
    if (IsExpected(resultCode))
        return 1;
    ReportError(resultCode, statement ? QByteArray(sqlite3_sql(statement)) : QByteArray());
    return 0;
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
    const int prepared = sqlite3_prepare_v3(m_db, sql.constData(), static_cast<int>(sql.size()),
                                            SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
    if (prepared != SQLITE_OK) {
        ReportError(prepared, sql);
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
    const int resultCode = sqlite3_exec(m_db, sql.constData(), nullptr, nullptr, nullptr);
    if (resultCode != SQLITE_OK) {
        ReportError(resultCode, sql);
        return 0;
    }
    return 1;
}

qint64 CCeMount::Scalar(const QByteArray& sql, bool* ok)
{
    qint64 value = -1;
    bool ran = false;
    if (sqlite3_stmt* stmt = Statement(sql)) {
        const int resultCode = sqlite3_step(stmt);
        ran = Check(resultCode, stmt) != 0;
        if (resultCode == SQLITE_ROW)
            value = sqlite3_column_int64(stmt, 0);
        sqlite3_reset(stmt);
    }
    if (ok)
        *ok = ran;
    return value;
}

bool CCeMount::WritesAllowed()
{
    if (!m_db)
        return false;
    if (m_depth == 0)
        return true;
    // SQLite rolls a whole transaction back by itself after some errors (a
    // full disk, an I/O error); a write now would land on its own.
    if (!m_doomed && sqlite3_get_autocommit(m_db))
        Doom(StoreStrings::TransactionLost());
    return !m_doomed;
}

bool CCeMount::ReserveIds()
{
    // Near the end of the id range a block would not fit: one at a time then.
    for (const quint32 block : {IdBlock, 1u}) {
        sqlite3_stmt* stmt = Statement("UPDATE RecordIdSequence SET LastId = max(LastId, ?1) + ?2 "
                                       "WHERE max(LastId, ?1) <= 4294967294 - ?2 RETURNING LastId");
        if (!stmt)
            return false;
        sqlite3_bind_int64(stmt, 1, m_lastReservedId);
        sqlite3_bind_int64(stmt, 2, block);
        const int resultCode = sqlite3_step(stmt);
        const qint64 last = resultCode == SQLITE_ROW ? sqlite3_column_int64(stmt, 0) : 0;
        const bool ran = Check(resultCode, stmt) != 0;
        sqlite3_reset(stmt);
        if (!ran)
            return false;
        if (resultCode == SQLITE_ROW) {
            m_lastReservedId = static_cast<quint32>(last);
            m_nextId = static_cast<quint32>(last - block + 1);
            if (m_depth > 0)
                m_reservedInTransaction = true;
            return true;
        }
    }
    m_failure = StoreStrings::NoMoreRecordIds();
    return false;
}

// After a rollback that took back an in-transaction reservation: the ids
// handed out stay taken, in the file too.
void CCeMount::KeepReservedIds()
{
    if (!m_reservedInTransaction || !m_db)
        return;
    m_reservedInTransaction = false;
    if (sqlite3_stmt* stmt = Statement("UPDATE RecordIdSequence SET LastId = max(LastId, ?1)")) {
        sqlite3_bind_int64(stmt, 1, m_lastReservedId);
        Check(sqlite3_step(stmt), stmt);
        sqlite3_reset(stmt);
    }
}

quint32 CCeMount::AllocateRecordId()
{
    if (!WritesAllowed())
        return 0;
    if ((m_nextId == 0 || m_nextId > m_lastReservedId) && !ReserveIds())
        return 0;
    return m_nextId++;
}

int CCeMount::BeginScope()
{
    if (!m_db) {
        m_failure = StoreStrings::NotMounted();
        return 0;
    }
    if (m_depth > 0) {
        ++m_depth;
        if (m_doomed)
            return 0;
        return Execute("SAVEPOINT brindle_" + QByteArray::number(m_depth));
    }

    m_doomed = false;
    m_failure.clear();
    m_reservedInTransaction = false;
    if (!sqlite3_get_autocommit(m_db)) {
        // Never write into a transaction that nobody will finish.
        qWarning("Brindle store: a transaction was left open; it is rolled back");
        sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    // Reserved outside the transaction, so that a rollback cannot give them
    // back. Not before the first scope of a mount: that may be an upgrade
    // that fails, and a file that is not opened must not change. A block
    // reserved inside a scope is kept after a rollback all the same.
    const qint64 left = qint64(m_lastReservedId) - m_nextId + 1;
    if (m_nextId != 0 && left < IdsKeptAhead &&
        Scalar("SELECT count(*) FROM sqlite_schema WHERE name = 'RecordIdSequence'") > 0)
        ReserveIds();
    ++m_depth;
    // IMMEDIATE: the write lock is taken (or waited for) now, not half-way
    // through the writes, where waiting could deadlock with a reader.
    if (!Execute("BEGIN IMMEDIATE"))
        return 0;
    m_failure.clear();
    return 1;
}

int CCeMount::EndScope(bool commit)
{
    if (m_depth == 0 || !m_db)
        return 0;
    const int depth = m_depth--;
    if (depth > 1) {
        // A part that did not land leaves the whole without it: no commit.
        if (!commit) {
            Doom(m_failure.isEmpty() ? StoreStrings::StepFailed() : m_failure);
            return 0;
        }
        if (m_doomed)
            return 0;
        // Still inside the outer scope: a failed RELEASE dooms the transaction.
        return Execute("RELEASE brindle_" + QByteArray::number(depth));
    }

    bool landed = false;
    if (commit && !m_doomed) {
        if (sqlite3_get_autocommit(m_db)) {
            m_failure = StoreStrings::TransactionLost();
        } else {
            const int committed = sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr);
            landed = committed == SQLITE_OK;
            if (!landed)
                ReportError(committed, "COMMIT");
        }
    }
    if (!landed) {
        if (!sqlite3_get_autocommit(m_db)) {
            const int rolledBack = sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
            if (rolledBack != SQLITE_OK)
                qWarning("Brindle store: ROLLBACK failed (%d): %s", rolledBack,
                         sqlite3_errmsg(m_db));
        }
        KeepReservedIds();
        if (commit && m_failure.isEmpty())
            m_failure = StoreStrings::StepFailed();
    }
    m_doomed = false;
    m_reservedInTransaction = false;
    return landed ? 1 : 0;
}
