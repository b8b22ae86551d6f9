#pragma once

#include "cloud/wire/serviceerror.h"

#include <QStringList>
#include <functional>

namespace zel::service {

struct MessageNews;

/// What the account's and the envelope's methods need of other areas, which put their functions here when
/// they are made. An empty one means that nobody does it. Main thread.
struct ServiceHooks
{
    /// Cancels transfers; "notFound" when none of them runs.
    std::function<wire::ServiceError(const QStringList &taskIds)> cancelTasks;
    std::function<QStringList()> waitingUploads; ///< task ids
    std::function<int()> runningTasks;           ///< transfers that are not done
    std::function<QString()> driveFolder;        ///< absolute path
    /// A client opened or changed this file of the cloud: an item's id, or the path of its local copy.
    std::function<wire::ServiceError(const QString &file)> reportCloudDoc;
    /// Takes records off the recent list; `answer` gets the ids of those that were there, before clients are
    /// told of it.
    std::function<wire::ServiceError(const QStringList &roamingIds, const QStringList &fileIds,
        const std::function<void(const QStringList &removed)> &answer)>
        removeRecords;

    /// Filled by the service itself.
    /// Tells clients of messages that another area changed. Without it there are none.
    std::function<void(const MessageNews &news)> tellMessages;
    std::function<int()> clientCount;  ///< clients that are connected
    std::function<void()> stopService; ///< in order, once what is owed is answered
};

} // namespace zel::service
