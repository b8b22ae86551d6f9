#pragma once

#include "service/roaming/roamingrecord.h"
#include "service/store/clouddatabase.h"

#include <QStringList>
#include <optional>
#include <vector>

namespace zel::service {

using RoamingItems = std::vector<vela::RecentFileItem>;

inline constexpr qint64 PageBytes = 16 << 20; ///< a page ends once its records take so many

/// Which records a page wants, the file used last first. Empty fields do not narrow.
struct RoamingQuery
{
    QString keyword; ///< part of the name, case ignored
    QStringList suffixes;
    QString deviceId;
    QString otherThanDevice;
    QString appType;
    qint64 changedAfter = 0; ///< ms since epoch, UTC
    bool includeDeleted = false;
    int offset = 0;
    int count = 100;
    qint64 bytes = PageBytes;
};

struct RoamingPage
{
    RoamingItems items;
    qint64 total = 0; ///< over all pages
};

/// Records that are meant by what is known of them.
struct RoamingSelection
{
    QStringList ids;
    QStringList fileIds;
    QString deviceId; ///< of `paths`
    QStringList paths;
    enum class Scope { Named, Device, All } scope = Scope::Named; ///< Device: all that deviceId used last
};

/// What a record is known by; the cloud file may be empty.
struct RoamingKey
{
    QString roamingId;
    QString fileId;
};

/// What an operation changed; none of it when it failed.
struct RoamingChange
{
    wire::ServiceError error = wire::ServiceError::None; ///< none: it is on disk
    RoamingItems
        items; ///< as they are now; of add() one for each that was given, in order; of remove() as they were
    QStringList newIds;       ///< of those of `items` that were not on the list before
    QStringList removed;      ///< ids
    RoamingItems arrived;     ///< uses on other devices that left a mark, in order
    QVector<RoamingKey> seen; ///< records without anything left to tell the user: seen, gone, or without file
    QVector<RoamingKey> unseen; ///< records that have something to tell again
    bool allSeen = false;       ///< all records of the user are; `seen` is empty then
};

/// The roaming records of the users of this machine, at most `limit` for each; those that were not used for
/// longest go first. Main thread. What is reported as done is on disk.
class RoamingTable
{
public:
    static constexpr int Limit = 10000;

    /// Adds itself to the owners of `store`, which outlives it.
    explicit RoamingTable(CloudDatabase &store, int limit = Limit);

    /// `companion` writes, in the transaction of each change, what has to go with it; what it may not do is
    /// use the store. Its failure is the change's.
    void setCompanion(std::function<void(const RoamingChange &)> companion)
    {
        m_companion = std::move(companion);
    }

    /// A record of the same roaming id, cloud file, or device and path is renewed; a use that is older than
    /// what is known changes nothing. `thisDevice`: uses on others leave marks, once each.
    RoamingChange add(const QString &user, RoamingItems items, const QString &thisDevice);
    RoamingChange remove(const QString &user, const RoamingSelection &selection);
    RoamingChange setMarks(const QString &user, const RoamingSelection &selection, bool unread);
    /// The cloud files went away or came back.
    RoamingChange setDeleted(const QString &user, const QStringList &fileIds, bool deleted);
    wire::ServiceError noteFetch(const QString &user, qint64 time);

    wire::ServiceError page(const QString &user, const RoamingQuery &query, RoamingPage &page);
    /// In the order asked, without those that are not there.
    /// `page.total` is how many of the ids, from the first on, were looked for: the others did not fit.
    wire::ServiceError find(
        const QString &user, const QStringList &ids, RoamingPage &page, qint64 bytes = PageBytes);
    /// The numbers are 0 after a failure.
    int unreadCount(const QString &user);
    qint64 total(const QString &user);
    QString version(const QString &user);  ///< of the list; differs after each change
    qint64 fetchTime(const QString &user); ///< 0: never

private:
    qint64 raiseVersion(const QString &user);
    std::optional<vela::RecentFileItem> known(const QString &user, const vela::RecentFileItem &item);
    void write(const QString &user, const vela::RecentFileItem &item);
    /// Other records of the same file: both turned out to be one.
    QStringList removeTwins(const QString &user, const vela::RecentFileItem &item);
    QStringList trim(const QString &user);
    RoamingItems select(const QString &user, const RoamingSelection &selection);
    void addOne(
        const QString &user, vela::RecentFileItem &item, const QString &thisDevice, RoamingChange &change);
    using Edit = std::function<bool(vela::RecentFileItem &)>; ///< whether it changed the record
    void rewrite(const QString &user, RoamingItems selected, const Edit &edit, RoamingChange &change);
    /// Runs `work` in a transaction; nothing of it stays after a failure.
    RoamingChange transact(const std::function<void(RoamingChange &)> &work);
    qint64 numberFor(const char *sql, const QString &user);

    CloudDatabase &m_store;
    sqlite::Database &m_database; ///< of the store
    const int m_limit;
    std::function<void(const RoamingChange &)> m_companion;
};

} // namespace zel::service
