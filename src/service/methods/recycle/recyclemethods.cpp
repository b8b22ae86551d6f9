#include "recycle_types.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/driveplace.h"
#include "service/methods/recycle/recyclepushes.h"

#include <QHash>
#include <algorithm>

namespace zel::service {
namespace {

using namespace vela;
using Kind = DriveError::Kind;

constexpr int DefaultCount = 1000;

bool comesBefore(const DriveTrashItem &left, const DriveTrashItem &right, const std::string &orderBy)
{
    if (orderBy == "name" || orderBy == "size" || orderBy == "type") {
        DriveItem a;
        DriveItem b;
        a.name = left.name;
        b.name = right.name;
        a.size = left.size;
        b.size = right.size;
        return comesBefore(a, b, orderBy);
    }
    return std::make_pair(left.deletedAt, left.id) < std::make_pair(right.deletedAt, right.id);
}

void sortTrash(QVector<DriveTrashItem> &items, const std::string &orderBy, bool descending)
{
    std::sort(items.begin(), items.end(), [&](const DriveTrashItem &left, const DriveTrashItem &right) {
        return descending ? comesBefore(right, left, orderBy) : comesBefore(left, right, orderBy);
    });
}

template <class Result>
void addPage(
    const QVector<DriveTrashItem> &items, int offset, int count, const Identity &identity, Result &result)
{
    const int from = std::clamp(offset, 0, items.size());
    const int size = std::min(count > 0 ? count : DefaultCount, items.size() - from);
    for (int i = from; i < from + size; ++i)
        result.items.push_back(recycleItem(items.at(i), identity));
    result.total = items.size();
    result.hasMore = from + size < items.size();
}

DriveResult<GetRecycleBinListResult> list(const DriveJob &job, const GetRecycleBinListArg &request)
{
    const auto space = folderId(job.drive, request.groupId, {});
    auto items = space ? job.drive.listTrash() : DriveResult<QVector<DriveTrashItem>>(space.error());
    if (!items)
        return items.error();
    sortTrash(*items, request.orderBy, request.descending);
    GetRecycleBinListResult result;
    for (const DriveTrashItem &item : *items)
        result.totalSize += item.size;
    addPage(*items, request.offset, request.count, job.identity, result);
    return result;
}

bool passes(const DriveTrashItem &item, const GetRecycleBinListV5Arg &request)
{
    const bool ofType = request.types.empty()
        || std::find(request.types.begin(), request.types.end(), item.isFolder ? "folder" : "file")
            != request.types.end();
    return ofType && item.deletedAt > request.deletedAfter
        && item.name.contains(text(request.keyword), Qt::CaseInsensitive);
}

// The cursor is the place of the last item that was given, so that a page follows it also when others went.
DriveResult<GetRecycleBinListV5Result> listV5(const DriveJob &job, const GetRecycleBinListV5Arg &request)
{
    GetRecycleBinListV5Result result;
    const bool ownAsked =
        request.groupIds.empty() || std::any_of(request.groupIds.begin(), request.groupIds.end(), isOwnGroup);
    for (const std::string &group : request.groupIds)
        if (!isOwnGroup(group))
            result.failedItems[group] =
                wire::errorInfo(wire::ServiceError::NotFound, QStringLiteral("There is no such space."));
    auto items =
        ownAsked ? job.drive.listTrash() : DriveResult<QVector<DriveTrashItem>>(QVector<DriveTrashItem>());
    if (!items)
        return items.error();
    items->erase(std::remove_if(items->begin(), items->end(),
                     [&request](const DriveTrashItem &item) { return !passes(item, request); }),
        items->end());
    sortTrash(*items, request.orderBy, request.descending);
    const int from = text(request.cursor).section(QLatin1Char(':'), 0, 0).toInt();
    const QString last = text(request.cursor).section(QLatin1Char(':'), 1);
    const auto at = std::find_if(
        items->begin(), items->end(), [&last](const DriveTrashItem &item) { return item.id == last; });
    const int offset = at == items->end() ? from : int(at - items->begin()) + 1;
    addPage(*items, offset, request.count, job.identity, result);
    if (result.hasMore) {
        const int next = offset + int(result.items.size());
        result.nextCursor = std::to_string(next) + ':' + result.items.back().recycleId;
    }
    return result;
}

ConflictItem recoverConflict(
    const DriveJob &job, const DriveTrashItem &item, const DrivePlace &place, const QString &recycleId)
{
    DriveItem wanted;
    wanted.id = item.itemId;
    wanted.isFolder = item.isFolder;
    ConflictItem conflict = conflictWith(job.drive, wanted, place.folder, place.name, job.identity);
    conflict.item.id = recycleId.toStdString();
    return conflict;
}

// To somewhere else than where it was: by way of its place there. A taken name is looked for before that, as
// what comes back into the bin has a new id there.
void recoverTo(const DriveJob &job, const DriveTrashItem &item, const DrivePlace &place,
    BatchRecoverRecycleFilesResult &result)
{
    const std::string id = item.id.toStdString();
    const auto occupant = childNamed(job.drive, place.folder, place.name);
    if (!occupant) {
        result.failedItems[id] = errorInfo(occupant.error());
        return;
    }
    if (place.conflict == DriveConflict::Fail && *occupant) {
        result.conflicts.push_back(recoverConflict(job, item, place, item.id));
        return;
    }
    const auto restored = job.drive.restore(item.id);
    const auto moved = restored ? moveItem(job.drive, restored->id, place) : restored;
    if (moved) {
        result.items.push_back(cloudItem(*moved, job.identity));
        result.recoveredIds.push_back(id);
        return;
    }
    const auto away = restored ? job.drive.trash(restored->id) : DriveResult<DriveTrashItem>(item);
    if (away && away->id != item.id)
        result.extraParam[id] = away->id.toStdString(); // where it lies now
    if (away && moved.error().kind == Kind::Exists)
        result.conflicts.push_back(recoverConflict(job, item, place, away->id));
    else
        result.failedItems[id] = errorInfo(moved.error());
}

DriveResult<QHash<QString, DriveTrashItem>> trashById(CloudDrive &drive)
{
    const auto items = drive.listTrash();
    if (!items)
        return items.error();
    QHash<QString, DriveTrashItem> found;
    for (const DriveTrashItem &item : *items)
        found.insert(item.id, item);
    return found;
}

DriveResult<BatchRecoverRecycleFilesResult> batchRecover(
    const DriveJob &job, const BatchRecoverRecycleFilesArg &request)
{
    const auto folder = folderId(job.drive, request.targetGroupId, request.targetParentId);
    const auto target = folder ? job.drive.stat(*folder) : DriveResult<DriveItem>(folder.error());
    const auto bin =
        target ? trashById(job.drive) : DriveResult<QHash<QString, DriveTrashItem>>(target.error());
    if (!bin)
        return bin.error();
    if (!target->isFolder)
        return DriveError{Kind::NotFound, QStringLiteral("There is no such folder.")};
    const bool elsewhere = !request.targetGroupId.empty() || !request.targetParentId.empty();
    BatchRecoverRecycleFilesResult result;
    for (const std::string &id : request.recycleIds) {
        const auto item = bin->constFind(text(id));
        if (elsewhere && item != bin->constEnd())
            recoverTo(job, *item, {*folder, item->name, conflictOf(request.conflictPolicy)}, result);
        else
            recoverOne(job.drive, job.identity, id, result);
    }
    return result;
}

template <class Result>
DriveResult<Result> destroy(const DriveJob &job, const std::function<bool(const DriveTrashItem &)> &wanted,
    const std::function<void(Result &, const DriveTrashItem &)> &gone)
{
    const auto items = job.drive.listTrash();
    if (!items)
        return items.error();
    Result result;
    for (const DriveTrashItem &item : *items) {
        if (!wanted(item))
            continue;
        if (!job.progress(0, -1))
            return DriveError{Kind::Cancelled, QStringLiteral("The service ends.")};
        const auto purged = job.drive.purge(item.id);
        if (!purged) {
            result.failedItems[item.id.toStdString()] = errorInfo(purged.error());
            continue;
        }
        result.freedSize += item.size;
        gone(result, item);
    }
    return result;
}

DriveResult<BatchDestroyRecycleFilesResult> batchDestroy(
    const DriveJob &job, const BatchDestroyRecycleFilesArg &request)
{
    const QStringList ids = texts(request.recycleIds);
    auto result = destroy<BatchDestroyRecycleFilesResult>(
        job, [&ids](const DriveTrashItem &item) { return ids.contains(item.id); },
        [](BatchDestroyRecycleFilesResult &done, const DriveTrashItem &item) {
            done.destroyedIds.push_back(item.id.toStdString());
        });
    if (!result)
        return result;
    const std::vector<std::string> &done = result->destroyedIds;
    for (const std::string &id : request.recycleIds)
        if (std::find(done.begin(), done.end(), id) == done.end() && !result->failedItems.count(id))
            result->failedItems[id] =
                wire::errorInfo(wire::ServiceError::NotFound, QStringLiteral("It is not in the bin."));
    return result;
}

// What was removed after the request was made stays: whoever asked has not seen it in the bin. What is dated
// ahead of now was removed when the clock was wrong.
bool wasThere(const DriveJob &job, const DriveTrashItem &item)
{
    return item.deletedAt <= job.asked || item.deletedAt > QDateTime::currentMSecsSinceEpoch();
}

DriveResult<ClearRecycleBinResult> clear(const DriveJob &job, const ClearRecycleBinArg &request)
{
    const auto space = folderId(job.drive, request.groupId, {});
    if (!space)
        return space.error();
    return destroy<ClearRecycleBinResult>(
        job, [&job](const DriveTrashItem &item) { return wasThere(job, item); },
        [](ClearRecycleBinResult &result, const DriveTrashItem &) { ++result.clearedCount; });
}

DriveResult<ClearRecycleBinV5Result> clearV5(const DriveJob &job, const ClearRecycleBinV5Arg &request)
{
    if (request.deletedBefore < 0)
        return DriveError{Kind::InvalidName, QStringLiteral("A time before 1970 makes no sense.")};
    const bool own =
        request.groupIds.empty() || std::any_of(request.groupIds.begin(), request.groupIds.end(), isOwnGroup);
    const bool byUser = request.deleterId.empty() || text(request.deleterId) == job.identity.userId;
    const auto wanted = [&](const DriveTrashItem &item) {
        const bool early = request.deletedBefore == 0 || item.deletedAt < request.deletedBefore;
        return own && byUser && early && wasThere(job, item);
    };
    return destroy<ClearRecycleBinV5Result>(
        job, wanted, [](ClearRecycleBinV5Result &result, const DriveTrashItem &) { ++result.clearedCount; });
}

} // namespace

void addRecycleMethods(MethodTable &methods, const DriveContext &context)
{
    const auto recovered = [&context](const auto &, const auto &result) {
        tellGone(context, RecycleAction::Recovered, texts(result.recoveredIds));
        context.events.check();
    };
    const auto emptied = [&context](const auto &, const auto &result) {
        if (result.clearedCount > 0)
            tellGone(context, RecycleAction::Emptied, {});
    };
    serveOn<GetRecycleBinListArg, GetRecycleBinListResult>(
        context.quick, context, methods, "getRecycleBinList", list);
    serveOn<GetRecycleBinListV5Arg, GetRecycleBinListV5Result>(
        context.quick, context, methods, "getRecycleBinListV5", listV5);
    serveOn<BatchRecoverRecycleFilesArg, BatchRecoverRecycleFilesResult>(
        context.quick, context, methods, "batchRecoverRecycleFiles", batchRecover, recovered);
    serveOn<BatchDestroyRecycleFilesArg, BatchDestroyRecycleFilesResult>(context.bulk, context, methods,
        "batchDestroyRecycleFiles", batchDestroy,
        [&context](const auto &, const BatchDestroyRecycleFilesResult &result) {
            tellGone(context, RecycleAction::Destroyed, texts(result.destroyedIds));
        });
    serveOn<ClearRecycleBinArg, ClearRecycleBinResult>(
        context.bulk, context, methods, "clearRecycleBin", clear, emptied);
    serveOn<ClearRecycleBinV5Arg, ClearRecycleBinV5Result>(
        context.bulk, context, methods, "clearRecycleBinV5", clearV5, emptied);
}

} // namespace zel::service
