#pragma once

#include "service/methods/drive/drivecontext.h"
#include "service/methods/transfers/transferplans.h"
#include "service/methods/transfers/transferupdates.h"
#include "service/transfer/transferrunner.h"

#include <QObject>
#include <map>

namespace zel::service {

class TransferSubscriptions;

/// Serves bringing files to the drive and from it, and the list of these tasks. A task is on disk before it
/// is answered. Changes of state are pushed to all clients; how far a task is to those who subscribed to it,
/// or to all where nobody can subscribe. Main thread; lives as long as the method table.
class TransferMethods final : public QObject
{
    Q_OBJECT
public:
    /// All of it outlives this object. `subscriptions` may be null.
    TransferMethods(const DriveContext &context, TransferTable &table, TransferRunner &runner,
        const TransferSubscriptions *subscriptions);

    void serve(MethodTable &methods);

    /// For those who cancel, count and wait elsewhere.
    wire::ServiceError cancelTasks(const QStringList &ids); ///< "notFound" when none of them runs or waits
    QStringList waitingUploads();
    int runningTasks(); ///< and waiting ones

private:
    using Plans = std::function<PlannedTransfers(CloudDrive &, const Identity &)>;
    template <class Result> using Fill = std::function<void(Result &, const TransferPlans &)>;
    using Ended = std::function<void(const TransferTask &, const TransferOutcome &)>;

    template <class Result> void accept(Plans plans, Answer<Result> answer, Fill<Result> fill);
    template <class Result> void acceptOne(Plans plans, bool wait, Answer<Result> answer);
    wire::ServiceError addTasks(TransferPlans &plans);
    template <class Request, class Result>
    void serveUploads(
        MethodTable &methods, std::string_view name, std::function<UploadWish(const Request &)> wish);
    template <class Request, class Result>
    void serveDownloads(
        MethodTable &methods, std::string_view name, std::function<DownloadWish(const Request &)> wish);
    void serveUploadMethods(MethodTable &methods);
    void serveDownloadMethods(MethodTable &methods);
    void uploadChildren(const vela::UploadChildrenArg &request, Answer<vela::UploadChildrenResult> answer);
    void downloadChildren(
        const vela::DownloadChildrenArg &request, Answer<vela::DownloadChildrenResult> answer);

    void list(const vela::TransferInfoListArg &request, Answer<vela::TransferInfoListResult> answer);
    void unreadCount(
        const vela::GetTransferUnreadCountArg &request, Answer<vela::GetTransferUnreadCountResult> answer);
    TransferTasks tasks(wire::ServiceError &error);

    void tellState(const TransferTask &task);
    void tellProgress(const vela::TransferOpertionInfo &info);
    void onEnded(const TransferTask &task, const TransferOutcome &outcome);

    const DriveContext &m_context;
    TransferTable &m_table;
    TransferRunner &m_runner;
    TransferUpdates m_updates{m_table, m_runner};
    const TransferSubscriptions *m_subscriptions;
    std::multimap<QString, std::shared_ptr<Ended>> m_waiting; ///< answers that are owed when a task ends
};

} // namespace zel::service
