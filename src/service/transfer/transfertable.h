#pragma once

#include "service/store/clouddatabase.h"
#include "service/transfer/transfertask.h"

#include <optional>
#include <vector>

namespace zel::service {

using TransferTasks = std::vector<TransferTask>;

/// The transfer list of all users, kept in the database: what was accepted is there after a restart. Of the
/// tasks that have ended the latest `keep` of each user stay. Main thread.
class TransferTable
{
public:
    static constexpr int KeptTasks = 1000;

    /// Adds itself to the owners of `store`, which outlives it.
    explicit TransferTable(CloudDatabase &store, int keep = KeptTasks);

    /// All or none. Tasks get an id and the time.
    wire::ServiceError add(const QString &user, TransferTasks &tasks);
    wire::ServiceError update(const TransferTask &task);   ///< nothing happens to one that is not there
    wire::ServiceError update(const TransferTasks &tasks); ///< all or none
    wire::ServiceError remove(const QStringList &ids);
    /// What a killed process was doing waits again.
    wire::ServiceError takeUpAgain();

    wire::ServiceError all(const QString &user, TransferTasks &tasks); ///< the latest first
    wire::ServiceError ids(const QString &user, QStringList &ids);     ///< likewise
    /// Those that have not ended and of which an attempt may have left something; of all users.
    wire::ServiceError begun(TransferTasks &tasks);
    /// Those of `ids` that there are, the latest first.
    wire::ServiceError named(const QString &user, const QStringList &ids, TransferTasks &tasks);
    /// Those that wait, the one to begin with first; of all users.
    wire::ServiceError waiting(int most, TransferTasks &tasks);
    std::optional<TransferTask> find(const QString &id);

private:
    void write(const TransferTask &task, sqlite::Statement &statement);
    void trim(const QString &user);

    CloudDatabase &m_store;
    const int m_keep;
};

} // namespace zel::service
