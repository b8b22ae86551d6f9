#include "service/methods/transfers/transfermethods.h"

#include "service/methods/drive/driveevents.h"
#include "service/methods/drive/drivelookup.h"

#include <QDir>
#include <QUuid>

/// Accepting transfers.
namespace zel::service {

using namespace vela;
using wire::ServiceError;

namespace {

std::string newBatch(const std::string &chosen)
{
    return chosen.empty() ? QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString() : chosen;
}

DownloadFileInfo fileInfo(const TransferPlan &plan)
{
    DownloadFileInfo file;
    file.item = plan.task.info.item;
    file.name = plan.task.info.name;
    file.localPath = plan.task.info.localPath;
    file.taskId = plan.task.info.taskId;
    file.size = plan.task.info.size;
    file.cloudVersion = plan.item.cloudVersion;
    file.transferState = int32_t(plan.isHere ? TransferState::Done : TransferState::Waiting);
    return file;
}

// Each answer has some of these fields.
template <class Result> void fillBatch(Result &result, const TransferPlans &plans)
{
    for (const TransferPlan &plan : plans) {
        if constexpr (requires { result.batchId; })
            result.batchId = plan.task.info.batchId;
        if (plan.conflict) {
            if constexpr (requires { result.conflicts; }) {
                result.conflicts.push_back(*plan.conflict);
                if constexpr (!requires { result.files; })
                    continue;
            }
        }
        if (plan.error)
            result.failedItems[plan.key] = *plan.error;
        else if constexpr (requires { result.tasks; })
            result.tasks.push_back(plan.task.info);
        else if constexpr (requires { result.files; })
            result.files.push_back(fileInfo(plan));
    }
}

void fillIpc(VelaIpcResult &result, const TransferPlans &plans)
{
    for (const TransferPlan &plan : plans) {
        if (plan.error)
            result.resultMap[plan.key] = plan.error->errResult;
        else
            result.resultList.push_back(plan.task.info.taskId);
    }
    if (!plans.empty() && result.resultList.empty())
        result.state = int32_t(errorNamed(plans.front().error->errResult));
}

void setItem(UploadFileResult &result, const CloudItem &item, const std::string &)
{
    result.item = item;
}

void setItem(DownloadCloudFileResult &result, const CloudItem &item, const std::string &path)
{
    result.item = item;
    result.localPath = path;
}

void setItem(DownloadDirResult &, const CloudItem &, const std::string &) { }

template <class Result> void fillOne(Result &result, const TransferPlan &plan)
{
    result.taskId = plan.task.info.taskId;
    if (plan.error) {
        result.state = int32_t(errorNamed(plan.error->errResult));
        result.errorInfo = *plan.error;
    }
    if (plan.conflict)
        result.conflict = *plan.conflict;
    if constexpr (requires { result.localPath; })
        result.localPath = plan.task.info.localPath;
    if constexpr (requires {
                      result.totalSize;
                      result.fileCount;
                  }) {
        result.totalSize = plan.task.info.size;
        result.fileCount = plan.task.info.fileCount;
    }
    if (!plan.item.id.empty())
        setItem(result, plan.item, plan.task.info.localPath);
}

std::vector<DownloadCloudFileInfo> filesOf(const std::vector<CloudItemId> &items)
{
    std::vector<DownloadCloudFileInfo> files;
    for (const CloudItemId &item : items) {
        DownloadCloudFileInfo file;
        file.item = item;
        files.push_back(std::move(file));
    }
    return files;
}

} // namespace

TransferMethods::TransferMethods(const DriveContext &context, TransferTable &table, TransferRunner &runner,
    const TransferSubscriptions *subscriptions)
    : m_context(context), m_table(table), m_runner(runner), m_subscriptions(subscriptions)
{
    connect(&runner, &TransferRunner::changed, this, &TransferMethods::tellState);
    connect(&runner, &TransferRunner::progressed, this, &TransferMethods::tellProgress);
    connect(&runner, &TransferRunner::ended, this, &TransferMethods::onEnded);
}

void TransferMethods::serve(MethodTable &methods)
{
    serveUploadMethods(methods);
    serveDownloadMethods(methods);
    methods.serve("transferInfoList", this, &TransferMethods::list);
    methods.serve<UpdateTransferInfoArg, UpdateTransferInfoResult>("updateTransferInfo",
        [this](const UpdateTransferInfoArg &request, Answer<UpdateTransferInfoResult> answer) {
            m_updates.update(m_context.identity().userId, request, std::move(answer));
        });
    methods.serve("getTransferUnreadCount", this, &TransferMethods::unreadCount);
}

ServiceError TransferMethods::addTasks(TransferPlans &plans)
{
    TransferTasks tasks;
    for (const TransferPlan &plan : plans)
        if (plan.needsTask())
            tasks.push_back(plan.task);
    if (tasks.empty())
        return ServiceError::None;
    const ServiceError error = m_table.add(m_context.identity().userId, tasks);
    size_t next = 0;
    for (TransferPlan &plan : plans)
        if (plan.needsTask())
            plan.task = tasks[next++];
    return error;
}

// The plan is made on a thread that may wait for local files, the tasks are kept, then they are answered,
// told and begun.
template <class Result> void TransferMethods::accept(Plans plans, Answer<Result> answer, Fill<Result> fill)
{
    const Identity who = m_context.identity();
    m_context.local.run([plans, who](CloudDrive &drive) { return plans(drive, who); },
        [this, fill, answer = std::move(answer)](PlannedTransfers planned) mutable {
            if (!planned) {
                answer.fail(planned.error, planned.text);
                return;
            }
            const ServiceError error = addTasks(planned.plans);
            if (error != ServiceError::None) {
                answer.fail(error, QStringLiteral("The transfer list cannot be written."));
                return;
            }
            Result result;
            fill(result, planned.plans);
            answer.send(result);
            for (const TransferPlan &plan : planned.plans)
                if (plan.needsTask())
                    tellState(plan.task);
            m_runner.schedule();
        });
}

template <class Result> void TransferMethods::acceptOne(Plans plans, bool wait, Answer<Result> answer)
{
    if (!wait) {
        accept<Result>(plans, std::move(answer),
            [](Result &result, const TransferPlans &planned) { fillOne(result, planned.at(0)); });
        return;
    }
    const Identity who = m_context.identity();
    m_context.local.run([plans, who](CloudDrive &drive) { return plans(drive, who); },
        [this, answer = std::move(answer)](PlannedTransfers planned) mutable {
            const ServiceError error = planned ? addTasks(planned.plans) : planned.error;
            if (error != ServiceError::None) {
                answer.fail(error, QStringLiteral("The transfer cannot be begun."));
                return;
            }
            const TransferPlan plan = planned.plans.at(0);
            Result result;
            fillOne(result, plan);
            if (!plan.needsTask()) {
                answer.send(result);
                return;
            }
            const auto owed = std::make_shared<Answer<Result>>(std::move(answer));
            m_waiting.emplace(plan.task.id(),
                std::make_shared<Ended>([this, owed, result](const TransferTask &task,
                                            const TransferOutcome &outcome) mutable {
                    if (task.state() == TransferState::Done) {
                        setItem(result, cloudItem(outcome.item, m_context.identity()), task.info.localPath);
                    } else {
                        const bool failed = task.state() == TransferState::Failed;
                        const ServiceError why =
                            failed ? errorNamed(task.info.errorInfo.errResult) : ServiceError::Cancelled;
                        refuse(result, why,
                            failed ? text(task.info.errorInfo.errString) : QStringLiteral("Cancelled."));
                    }
                    owed->send(result);
                }));
            tellState(plan.task);
            m_runner.schedule();
        });
}

void TransferMethods::onEnded(const TransferTask &task, const TransferOutcome &outcome)
{
    const auto [first, last] = m_waiting.equal_range(task.id());
    std::vector<std::shared_ptr<Ended>> owed;
    for (auto one = first; one != last; ++one)
        owed.push_back(one->second);
    m_waiting.erase(first, last);
    for (const auto &answer : owed)
        (*answer)(task, outcome);
    if (task.isUpload() && task.state() == TransferState::Done)
        m_context.events.noteOrigin(outcome.item.id, {"upload", task.info.localPath, task.info.taskId});
    if (task.isUpload())
        m_context.events.check();
}

template <class Request, class Result>
void TransferMethods::serveUploads(
    MethodTable &methods, std::string_view name, std::function<UploadWish(const Request &)> wish)
{
    methods.serve<Request, Result>(name, [this, wish](const Request &request, Answer<Result> answer) {
        const auto plans = [made = wish(request)](CloudDrive &drive, const Identity &who) {
            return planUploads(drive, made, who);
        };
        if constexpr (std::is_same_v<Result, VelaIpcResult>)
            accept<Result>(plans, std::move(answer), fillIpc);
        else
            accept<Result>(plans, std::move(answer), fillBatch<Result>);
    });
}

template <class Request, class Result>
void TransferMethods::serveDownloads(
    MethodTable &methods, std::string_view name, std::function<DownloadWish(const Request &)> wish)
{
    methods.serve<Request, Result>(name, [this, wish](const Request &request, Answer<Result> answer) {
        const auto plans = [made = wish(request)](CloudDrive &drive, const Identity &who) {
            return planDownloads(drive, made, who);
        };
        accept<Result>(plans, std::move(answer), fillBatch<Result>);
    });
}

void TransferMethods::serveUploadMethods(MethodTable &methods)
{
    serveUploads<BatchUploadFilesToCloudArg, VelaIpcResult>(
        methods, "batchUploadFileListToAnyExistedPath", [](const BatchUploadFilesToCloudArg &request) {
            return UploadWish{texts(request.filePaths), request.groupId, request.parentId, {},
                request.conflictPolicy, 0, newBatch(request.batchId), true, false, {}};
        });
    serveUploads<UploadFolderToCloudArg, VelaIpcResult>(
        methods, "folderUpload", [](const UploadFolderToCloudArg &request) {
            return UploadWish{{text(request.folderPath)}, request.groupId, request.parentId,
                text(request.newName), request.conflictPolicy, 0, newBatch(request.batchId), false,
                request.includeHidden, texts(request.excludedSuffixes)};
        });
    serveUploads<UploadFilesToCloudArg, UploadFilesToCloudResult>(
        methods, "uploadFilesToCloud", [](const UploadFilesToCloudArg &request) {
            return UploadWish{texts(request.filePaths), request.groupId, request.parentId, {},
                request.conflictPolicy, 0, newBatch({}), true, false, {}};
        });
    serveUploads<UploadItemsArg, UploadItemsResult>(
        methods, "uploadItems", [](const UploadItemsArg &request) {
            return UploadWish{texts(request.localPaths), request.groupId, request.parentId, {},
                request.conflictPolicy, 0, newBatch({}), false, request.includeHidden,
                texts(request.excludedSuffixes)};
        });
    methods.serve("uploadChildren", this, &TransferMethods::uploadChildren);
    methods.serve<UploadFileArg, UploadFileResult>(
        "uploadFile", [this](const UploadFileArg &request, Answer<UploadFileResult> answer) {
            const UploadWish wish{{text(request.filePath)}, request.groupId, request.parentId,
                text(request.newName), request.conflictPolicy, request.priority, newBatch({}), true, false,
                {}};
            acceptOne<UploadFileResult>(
                [wish](CloudDrive &drive, const Identity &who) { return planUploads(drive, wish, who); },
                request.waitUntilDone, std::move(answer));
        });
}

void TransferMethods::uploadChildren(const UploadChildrenArg &request, Answer<UploadChildrenResult> answer)
{
    const auto plans = [request, batch = newBatch({})](CloudDrive &drive, const Identity &who) {
        const QDir folder(text(request.folderPath));
        QDir::Filters filters = QDir::Files | QDir::NoDotAndDotDot;
        filters |= request.recursive ? QDir::Dirs : QDir::Filters();
        filters |= request.includeHidden ? QDir::Hidden : QDir::Filters();
        QStringList names = texts(request.names);
        if (names.isEmpty())
            names = folder.entryList(filters, QDir::Name);
        UploadWish wish{{}, request.groupId, request.parentId, {}, request.conflictPolicy, 0, batch,
            !request.recursive, request.includeHidden, {}};
        for (const QString &name : qAsConst(names))
            wish.paths.append(folder.filePath(name));
        return planUploads(drive, wish, who);
    };
    accept<UploadChildrenResult>(plans, std::move(answer), fillBatch<UploadChildrenResult>);
}

void TransferMethods::serveDownloadMethods(MethodTable &methods)
{
    serveDownloads<DownloadCloudFilesArg, DownloadCloudFilesResult>(
        methods, "downloadCloudFiles", [](const DownloadCloudFilesArg &request) {
            return DownloadWish{filesOf(request.items), text(request.targetDir), {}, request.conflictPolicy,
                newBatch({}), false};
        });
    serveDownloads<DownloadItemsArg, DownloadItemsResult>(
        methods, "downloadItems", [](const DownloadItemsArg &request) {
            return DownloadWish{filesOf(request.items), text(request.targetDir), {}, request.conflictPolicy,
                newBatch({}), false};
        });
    methods.serve("downloadChildren", this, &TransferMethods::downloadChildren);
    methods.serve<DownloadCloudFileArg, DownloadCloudFileResult>("downloadFileFromCloud",
        [this](const DownloadCloudFileArg &request, Answer<DownloadCloudFileResult> answer) {
            DownloadCloudFileInfo file;
            file.item = request.item;
            file.targetPath = request.targetPath;
            file.cloudVersion = request.cloudVersion;
            file.priority = request.priority;
            const DownloadWish wish{{file}, {}, {}, request.conflictPolicy, newBatch({}), false};
            acceptOne<DownloadCloudFileResult>(
                [wish](CloudDrive &drive, const Identity &who) { return planDownloads(drive, wish, who); },
                request.waitUntilDone, std::move(answer));
        });
    methods.serve<DownloadDirArg, DownloadDirResult>(
        "downloadDir", [this](const DownloadDirArg &request, Answer<DownloadDirResult> answer) {
            const DownloadWish wish{filesOf({request.item}), text(request.targetDir), text(request.newName),
                request.conflictPolicy, newBatch({}), true};
            acceptOne<DownloadDirResult>(
                [wish](CloudDrive &drive, const Identity &who) { return planDownloads(drive, wish, who); },
                false, std::move(answer));
        });
}

void TransferMethods::downloadChildren(
    const DownloadChildrenArg &request, Answer<DownloadChildrenResult> answer)
{
    const auto plans = [request, batch = newBatch({})](
                           CloudDrive &drive, const Identity &who) -> PlannedTransfers {
        const auto folder = folderId(drive, request.groupId, request.parentId);
        const auto items = folder ? drive.list(*folder) : DriveResult<QVector<DriveItem>>(folder.error());
        if (!items)
            return items.error();
        const QStringList ids = texts(request.ids);
        std::vector<CloudItemId> wanted;
        for (const DriveItem &item : *items)
            if ((ids.isEmpty() && (request.recursive || !item.isFolder)) || ids.contains(item.id))
                wanted.push_back(cloudItemId(item));
        return planDownloads(
            drive, {filesOf(wanted), text(request.targetDir), {}, request.conflictPolicy, batch, false}, who);
    };
    accept<DownloadChildrenResult>(plans, std::move(answer), fillBatch<DownloadChildrenResult>);
}

} // namespace zel::service
