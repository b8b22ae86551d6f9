#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/driveplace.h"
#include "service/methods/recycle/recyclepushes.h"

#include <functional>
#include <unordered_map>

namespace zel::service {
namespace {

using namespace vela;
using Kind = DriveError::Kind;
using Step = std::function<DriveResult<DriveItem>(const QString &id, const DrivePlace &place)>;

/// What to do with many items, each on its own: one that fails leaves the others alone.
struct Batch
{
    std::vector<CloudItemId> items;
    QString folder; ///< target
    int policy = 0;
    std::unordered_map<std::string, int> choices; ///< of the user for single items, before `policy`
};

int choiceFor(const Batch &batch, const std::string &id)
{
    const auto choice = batch.choices.find(id);
    return choice == batch.choices.end() ? batch.policy : choice->second;
}

template <class Result>
void runOne(
    const DriveJob &job, const Batch &batch, const CloudItemId &wanted, const Step &step, Result &result)
{
    const auto id = namedItemId(job.drive, wanted);
    const auto before = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!before) {
        result.failedItems[wanted.id] = errorInfo(before.error());
        return;
    }
    const int policy = choiceFor(batch, wanted.id);
    // Without a name: somebody may rename it at the same time.
    const auto item = step(*id, {batch.folder, {}, conflictOf(policy)});
    if (item) {
        result.items.push_back(cloudItem(*item, job.identity));
    } else if (item.error().kind != Kind::Exists) {
        result.failedItems[wanted.id] = errorInfo(item.error());
    } else if (policy != 3) {
        result.conflicts.push_back(
            conflictWith(job.drive, *before, batch.folder, before->name, job.identity));
    }
}

template <class Result>
DriveResult<Result> runBatch(const DriveJob &job, const Batch &batch, const Step &step)
{
    Result result;
    for (const CloudItemId &wanted : batch.items) {
        if (!job.progress(0, -1))
            return DriveError{Kind::Cancelled, QStringLiteral("The service ends.")};
        runOne(job, batch, wanted, step, result);
    }
    return result;
}

std::vector<CloudItemId> idsIn(const std::string &groupId, const std::vector<std::string> &ids)
{
    std::vector<CloudItemId> items;
    for (const std::string &id : ids) {
        CloudItemId item;
        item.groupId = groupId;
        item.id = id;
        items.push_back(item);
    }
    return items;
}

template <class Request> std::vector<CloudItemId> itemsOf(const Request &request)
{
    if constexpr (requires { request.ids; })
        return idsIn(request.groupId, request.ids);
    else
        return request.items;
}

template <class Request> DriveResult<Batch> batchOf(CloudDrive &drive, const Request &request)
{
    const auto folder = folderId(drive, request.targetGroupId, request.targetParentId);
    if (!folder)
        return folder.error();
    Batch batch{itemsOf(request), *folder, request.conflictPolicy, {}};
    for (const ConflictItem &choice : request.conflicts)
        if (choice.conflictPolicy != 0)
            batch.choices.emplace(choice.item.id, choice.conflictPolicy);
    return batch;
}

template <class Request, class Result>
DriveResult<Result> copyAll(const DriveJob &job, const Request &request)
{
    const auto batch = batchOf(job.drive, request);
    if (!batch)
        return batch.error();
    int allLeftOut = 0;
    auto result = runBatch<Result>(job, *batch, [&](const QString &id, const DrivePlace &place) {
        int leftOut = 0;
        auto copied = copyItem(job.drive, id, place, job.progress, &leftOut);
        allLeftOut += copied ? leftOut : 0;
        return copied;
    });
    if (result && allLeftOut > 0)
        result->extraParam["leftOut"] = std::to_string(allLeftOut);
    return result;
}

template <class Request, class Result>
DriveResult<Result> moveAll(const DriveJob &job, const Request &request)
{
    const auto batch = batchOf(job.drive, request);
    if (!batch)
        return batch.error();
    return runBatch<Result>(job, *batch,
        [&job](const QString &id, const DrivePlace &place) { return moveItem(job.drive, id, place); });
}

DriveResult<CloudItemsDuplicateResult> duplicate(const DriveJob &job, const CloudItemsDuplicateArg &request)
{
    CloudItemsDuplicateResult result;
    int allLeftOut = 0;
    for (const CloudItemId &wanted : request.items) {
        const auto id = namedItemId(job.drive, wanted);
        const auto before = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
        if (!before) {
            result.failedItems[wanted.id] = errorInfo(before.error());
            continue;
        }
        const auto name = request.newNames.find(wanted.id);
        const DrivePlace place{before->parentId,
            name == request.newNames.end() ? before->name : text(name->second), DriveConflict::KeepBoth};
        int leftOut = 0;
        const auto copied = copyItem(job.drive, *id, place, job.progress, &leftOut);
        allLeftOut += copied ? leftOut : 0;
        if (copied)
            result.items.push_back(cloudItem(*copied, job.identity));
        else
            result.failedItems[wanted.id] = errorInfo(copied.error());
    }
    if (allLeftOut > 0)
        result.extraParam["leftOut"] = std::to_string(allLeftOut);
    return result;
}

// The places in the trash go along in extraParam, so that an undo finds them.
DriveResult<BatchRemoveResult> removeAll(const DriveJob &job, const BatchRemoveArg &request)
{
    BatchRemoveResult result;
    for (const CloudItemId &wanted : request.items) {
        if (!job.progress(0, -1))
            return DriveError{Kind::Cancelled, QStringLiteral("The service ends.")};
        const auto id = namedItemId(job.drive, wanted);
        const auto away =
            id ? removeItem(job.drive, *id, request.permanent) : DriveResult<QString>(id.error());
        if (!away) {
            result.failedItems[wanted.id] = errorInfo(away.error());
            continue;
        }
        result.removedIds.push_back(wanted.id);
        if (!request.permanent)
            result.extraParam[wanted.id] = away->toStdString();
    }
    return result;
}

} // namespace

void addDriveBatches(MethodTable &methods, const DriveContext &context)
{
    DriveThread &bulk = context.bulk;
    const auto changed = [&context](const auto &, const auto &) { context.events.check(); };
    serveOn<BatchCopyArg, BatchCopyResult>(
        bulk, context, methods, "batchCopy", copyAll<BatchCopyArg, BatchCopyResult>, changed);
    serveOn<CloudItemsCopyToArg, CloudItemsCopyToResult>(bulk, context, methods, "cloudItemsCopyTo",
        copyAll<CloudItemsCopyToArg, CloudItemsCopyToResult>, changed);
    serveOn<CloudItemsDuplicateArg, CloudItemsDuplicateResult>(
        bulk, context, methods, "cloudItemsDuplicate", duplicate, changed);
    serveOn<BatchMoveChildArg, BatchMoveChildResult>(
        bulk, context, methods, "batchMoveChild", moveAll<BatchMoveChildArg, BatchMoveChildResult>, changed);
    serveOn<CloudItemsMoveToArg, CloudItemsMoveToResult>(bulk, context, methods, "cloudItemsMoveTo",
        moveAll<CloudItemsMoveToArg, CloudItemsMoveToResult>, changed);
    serveOn<BatchRemoveArg, BatchRemoveResult>(bulk, context, methods, "batchRemove", removeAll,
        [&context](const BatchRemoveArg &, const BatchRemoveResult &result) {
            QStringList trashed;
            for (const auto &[item, place] : result.extraParam)
                trashed.append(text(place));
            tellRecycled(context, trashed);
            context.events.check();
        });
}

} // namespace zel::service
