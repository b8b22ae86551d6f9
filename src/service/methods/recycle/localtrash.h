#pragma once

#include "base/trash/trash.h"
#include "cloud/wire/serviceerror.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QVector>
#include <functional>
#include <memory>

namespace zel::service {

/// Where a path of this machine belongs when it is to be removed.
struct LocalPlace
{
    wire::ServiceError error = wire::ServiceError::None; ///< why it is not removed
    QString reason;
    QString path;    ///< absolute, its folder without symbolic links
    QString inDrive; ///< its path from the drive's root; empty when it lies elsewhere
};
/// Asks the file system, so it may take long. Only files, folders and symbolic links are removed, and no
/// folder that holds `home` or `driveRoot`.
LocalPlace localPlace(const QString &path, const QString &home, const QString &driveRoot);

wire::ServiceError serviceError(trash::Outcome outcome);

/// Local files into the desktop's trash and back, in order on a thread of its own, which is there only while
/// there is work. Main thread. What waits when this goes is done all the same, as far as some seconds go, but
/// told to nobody.
class LocalTrash final
{
public:
    explicit LocalTrash(const QString &driveRoot);
    ~LocalTrash();

    /// What is in the drive is left to the drive, and the place says so.
    void put(const QString &path, std::function<void(const LocalPlace &, const trash::Result &)> done);
    void restore(const QStringList &trashIds, std::function<void(const QVector<trash::Result> &)> done);
    /// Whether an id of the recycle bin is one of ours.
    static bool isTrashId(const std::string &recycleId) { return recycleId.starts_with('/'); }

private:
    template <class Value> void run(std::function<Value()> work, std::function<void(const Value &)> done);

    const QString m_driveRoot;
    std::unique_ptr<QObject> m_context; ///< goes after the pool, whose results it receives
    std::unique_ptr<QThreadPool> m_pool;
};

} // namespace zel::service
