#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

/// A thin layer over SQLite: owners for its handles, and the first failure kept, so that a run of statements
/// is checked once at its end. One thread per connection.
namespace zel::sqlite {

enum class Failure {
    None,
    Busy,        ///< another process writes for too long
    Damaged,     ///< not a database, or not one with the expected contents
    Unavailable, ///< cannot be opened, read or written: permissions, full disk, I/O error
};

class Database
{
public:
    Database() = default;
    ~Database() { close(); }
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    bool open(const QString &file); ///< makes it when missing
    void close();
    bool isOpen() const { return m_handle; }
    /// SQLite opens a file for reading alone when it fails, be it once, to open it for writing.
    bool isReadOnly() const;

    bool exec(const char *sql);
    /// Keeps the journal as a write-ahead log from now on. Waits for others like every statement.
    bool useWriteAheadLog();
    qint64 number(const char *sql); ///< first column of the first row; -1 without a row
    qint64 lastRowId() const;
    qint64 changedRows() const; ///< by the last insert, update or delete

    Failure failure() const { return m_failure; } ///< the first since it was last cleared
    QString failureText() const { return m_failureText; }
    /// Whether the latest failure came of a full disk or quota; also after clearFailure().
    bool ranOutOfSpace() const { return m_ranOutOfSpace; }
    void clearFailure();
    void note(int code); ///< keeps it as the failure, unless it is none or not the first
    sqlite3 *handle() const { return m_handle; }

private:
    sqlite3 *m_handle = nullptr;
    Failure m_failure = Failure::None;
    QString m_failureText;
    bool m_ranOutOfSpace = false;
    bool m_refusedWriting = false; ///< since it was opened
};

/// A prepared statement. After a failure, also one of the connection's before it, nothing happens and no row
/// comes.
class Statement
{
public:
    Statement(Database &database, const char *sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &bind(int index, qint64 value);
    Statement &bind(int index, const QString &value);
    Statement &bindBytes(int index, const QByteArray &value);
    bool step(); ///< true: a row is there
    void run();  ///< to the end; ready to be bound and run again afterwards

    int columnCount() const;
    qint64 number(int column) const;
    QByteArray bytes(int column) const; ///< valid until the next step
    QString text(int column) const { return QString::fromUtf8(bytes(column)); }

private:
    Database &m_database;
    sqlite3_stmt *m_handle = nullptr;
};

/// Takes the write lock at once; rolls back unless committed.
class Transaction
{
public:
    explicit Transaction(Database &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    bool commit(); ///< false, and rolled back, after any failure since the beginning

private:
    Database &m_database;
    bool m_open = false;
};

} // namespace zel::sqlite
