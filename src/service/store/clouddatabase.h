#pragma once

#include "base/sqlite/database.h"
#include "cloud/wire/serviceerror.h"
#include "service/store/schema.h"

#include <QObject>
#include <functional>
#include <vector>

namespace zel::service {

/// The service's database file, `$XDG_DATA_HOME/zelbox/cloud.db`, shared by the owners of several tables.
/// Main thread. Every transaction that has ended is on disk (synchronous=FULL).
///
/// A file that is damaged, or that a later version made, is kept aside and a new one begun. A file that
/// cannot be opened or written makes each use fail by itself; the next use tries again.
class CloudDatabase final : public QObject
{
    Q_OBJECT
public:
    static QString defaultFile();

    explicit CloudDatabase(const QString &file, QObject *parent = nullptr);
    ~CloudDatabase() override;

    /// Makes the tables of one owner in a file that was opened, when they are not there. Before the first
    /// use.
    void addOwner(std::function<SchemaState(sqlite::Database &)> prepare);

    /// Opens the file when it is not open. None, or why it cannot be used now.
    wire::ServiceError ready();
    /// Runs `work` on the open database, in the caller's thread, and settles its failure. Not to be nested.
    wire::ServiceError use(const std::function<void(sqlite::Database &)> &work);
    /// What a failure means that an operation on connection() has logged and cleared already.
    wire::ServiceError errorOf(sqlite::Failure failure);

    /// For owners of tables; always the same object, in use after ready().
    sqlite::Database &connection() { return m_connection; }
    /// Where the file was kept that had to be replaced, in this process; empty when none was.
    QString keptAside() const { return m_keptAside; }

Q_SIGNALS:
    void opened();                        ///< again and again after troubles
    void replaced(const QString &keptAs); ///< before opened()

private:
    enum class Opened { Yes, Unusable, Later };

    Opened open();
    bool makeFile();
    bool isSound();
    bool keepAside();
    wire::ServiceError loseConnection();

    const QString m_file;
    sqlite::Database m_connection;
    std::vector<std::function<SchemaState(sqlite::Database &)>> m_owners;
    QString m_keptAside;
    wire::ServiceError m_error = wire::ServiceError::InputOutput; ///< why it is not open
    bool m_suspect = false;                                       ///< something said that the file is damaged
};

} // namespace zel::service
