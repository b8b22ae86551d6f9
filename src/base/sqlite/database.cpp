#include "base/sqlite/database.h"

#include <QDeadlineTimer>
#include <QThread>

#include <cerrno>
#include <sqlite3.h>

namespace zel::sqlite {
namespace {

constexpr int BusyTimeoutMs = 2000;
constexpr int SwitchPauseMs = 2;

Failure classify(int code)
{
    switch (code & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return Failure::None;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Failure::Busy;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // our statements are right, so the tables are not ours
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
        return Failure::Damaged;
    default:
        return Failure::Unavailable;
    }
}

// A page that the disk does not give is told as a damaged one.
bool isUnread(sqlite3 *handle)
{
    int reason = 0;
    return handle && sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &reason) == SQLITE_OK
        && reason != 0;
}

// A shared memory or journal file that cannot grow is told as an I/O error.
bool isOutOfSpace(sqlite3 *handle, int code)
{
    const int kind = code & 0xff;
    const int reason =
        handle && (kind == SQLITE_IOERR || kind == SQLITE_CANTOPEN) ? sqlite3_system_errno(handle) : 0;
    return kind == SQLITE_FULL || reason == ENOSPC || reason == EDQUOT;
}

} // namespace

bool Database::open(const QString &file)
{
    close();
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
    note(sqlite3_open_v2(file.toUtf8().constData(), &m_handle, flags, nullptr));
    if (m_handle) {
        sqlite3_extended_result_codes(m_handle, 1);
        sqlite3_busy_timeout(m_handle, BusyTimeoutMs);
    }
    return m_failure == Failure::None;
}

void Database::close()
{
    if (m_handle)
        sqlite3_close(m_handle);
    m_handle = nullptr;
    m_refusedWriting = false;
    clearFailure();
}

bool Database::isReadOnly() const
{
    return m_handle && (m_refusedWriting || sqlite3_db_readonly(m_handle, "main") == 1);
}

bool Database::exec(const char *sql)
{
    if (m_failure == Failure::None)
        note(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr));
    return m_failure == Failure::None;
}

bool Database::useWriteAheadLog()
{
    // Two connections that switch at once could wait for each other, so SQLite tells one of them "busy" at
    // once and leaves the waiting to us.
    const QDeadlineTimer deadline(BusyTimeoutMs);
    while (!exec("PRAGMA journal_mode=WAL") && m_failure == Failure::Busy && !deadline.hasExpired()) {
        QThread::msleep(SwitchPauseMs);
        clearFailure();
    }
    return m_failure == Failure::None;
}

qint64 Database::number(const char *sql)
{
    Statement statement(*this, sql);
    return statement.step() ? statement.number(0) : -1;
}

qint64 Database::lastRowId() const
{
    return sqlite3_last_insert_rowid(m_handle);
}

qint64 Database::changedRows() const
{
    return m_handle ? sqlite3_changes64(m_handle) : 0;
}

void Database::clearFailure()
{
    m_failure = Failure::None;
    m_failureText.clear();
}

void Database::note(int code)
{
    if (m_failure != Failure::None || classify(code) == Failure::None)
        return;
    m_failure = classify(code);
    if (m_failure == Failure::Damaged && isUnread(m_handle))
        m_failure = Failure::Unavailable;
    m_refusedWriting = m_refusedWriting || (code & 0xff) == SQLITE_READONLY;
    m_ranOutOfSpace = isOutOfSpace(m_handle, code);
    const bool last = m_handle && sqlite3_extended_errcode(m_handle) == code;
    const char *text = last ? sqlite3_errmsg(m_handle) : sqlite3_errstr(code);
    m_failureText = QStringLiteral("SQLite %1: %2").arg(code).arg(QString::fromUtf8(text));
}

Statement::Statement(Database &database, const char *sql) : m_database(database)
{
    if (m_database.failure() == Failure::None)
        m_database.note(sqlite3_prepare_v2(m_database.handle(), sql, -1, &m_handle, nullptr));
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
}

Statement &Statement::bind(int index, qint64 value)
{
    if (m_handle)
        m_database.note(sqlite3_bind_int64(m_handle, index, value));
    return *this;
}

Statement &Statement::bind(int index, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    if (m_handle)
        m_database.note(sqlite3_bind_text(m_handle, index, utf8.constData(), utf8.size(), SQLITE_TRANSIENT));
    return *this;
}

Statement &Statement::bindBytes(int index, const QByteArray &value)
{
    if (m_handle)
        m_database.note(
            sqlite3_bind_blob(m_handle, index, value.constData(), value.size(), SQLITE_TRANSIENT));
    return *this;
}

bool Statement::step()
{
    if (!m_handle || m_database.failure() != Failure::None)
        return false;
    const int code = sqlite3_step(m_handle);
    m_database.note(code);
    return code == SQLITE_ROW;
}

void Statement::run()
{
    while (step()) { }
    sqlite3_reset(m_handle);
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_handle);
}

qint64 Statement::number(int column) const
{
    return sqlite3_column_int64(m_handle, column);
}

QByteArray Statement::bytes(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_handle, column));
    return QByteArray::fromRawData(text, sqlite3_column_bytes(m_handle, column));
}

Transaction::Transaction(Database &database) : m_database(database), m_open(database.exec("BEGIN IMMEDIATE"))
{
}

Transaction::~Transaction()
{
    if (m_open)
        sqlite3_exec(m_database.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

bool Transaction::commit()
{
    if (!m_open || !m_database.exec("COMMIT"))
        return false;
    m_open = false;
    return true;
}

} // namespace zel::sqlite
