#include "document_types.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/folderlisting.h"
#include "service/roaming/roamingrecord.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QMimeDatabase>
#include <memory>

namespace zel::service {
namespace {

using namespace vela;

DriveResult<GetInfoResult> getInfo(const DriveJob &job, const GetInfoArg &request)
{
    const auto id = itemId(job.drive, request.item);
    const auto item = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!item)
        return item.error();
    GetInfoResult result;
    result.item = cloudItem(*item, job.identity);
    return result;
}

void addPlaces(const GetItemInfoListV5Arg &request, const QVector<DriveItem> &steps, const Identity &identity,
    GetItemInfoListV5Result &result)
{
    if (request.withPath)
        result.paths.push_back(pathInfo(steps));
    if (!request.withParents)
        return;
    BatchParentItemsInfo parents;
    parents.itemId = result.items.back().id;
    for (int i = 0; i + 1 < steps.size(); ++i)
        parents.parents.push_back(cloudItem(steps.at(i), identity));
    result.parents.push_back(parents);
}

CloudItem trashedItem(const DriveTrashItem &item, const Identity &identity)
{
    DriveChange change;
    change.id = item.itemId;
    change.name = item.name;
    change.isFolder = item.isFolder;
    CloudItem record = cloudItem(change, identity);
    record.size = item.size;
    return record;
}

DriveResult<GetItemInfoListV5Result> getItemInfoList(const DriveJob &job, const GetItemInfoListV5Arg &request)
{
    GetItemInfoListV5Result result;
    for (const CloudItemId &wanted : request.items) {
        const auto id = itemId(job.drive, wanted);
        const auto steps = id ? job.drive.pathOf(*id) : DriveResult<QVector<DriveItem>>(id.error());
        const auto trashed = !steps && request.includeDeleted
            ? inTrash(job.drive, text(wanted.id))
            : DriveMaybe<DriveTrashItem>(std::optional<DriveTrashItem>());
        const bool isTrashed = trashed && *trashed;
        if (steps)
            result.items.push_back(cloudItem(steps->last(), job.identity));
        else if (isTrashed)
            result.items.push_back(trashedItem(**trashed, job.identity));
        else
            result.failedItems[wanted.id] = errorInfo(trashed ? steps.error() : trashed.error());
        if (steps || isTrashed)
            addPlaces(request, steps ? *steps : QVector<DriveItem>(), job.identity, result);
    }
    return result;
}

DriveResult<GetCloudFileInfoResult> getCloudFileInfo(const DriveJob &job, const GetCloudFileInfoArg &request)
{
    if (request.fileId.empty())
        return DriveError{DriveError::Kind::InvalidName, QStringLiteral("A file id is needed.")};
    const auto id = folderId(job.drive, request.groupId, request.fileId);
    const auto steps = id ? job.drive.pathOf(*id) : DriveResult<QVector<DriveItem>>(id.error());
    GetCloudFileInfoResult result;
    if (!steps) {
        const auto trashed = inTrash(job.drive, text(request.fileId));
        if (!trashed || !*trashed)
            return trashed ? steps.error() : trashed.error();
        result.inRecycleBin = true;
        result.item = trashedItem(**trashed, job.identity);
        return result;
    }
    result.item = cloudItem(steps->last(), job.identity);
    if (request.withPath)
        result.pathInfo = pathInfo(*steps);
    if (!steps->last().isFolder)
        result.mimeType = QMimeDatabase()
                              .mimeTypeForFile(steps->last().name, QMimeDatabase::MatchExtension)
                              .name()
                              .toStdString();
    result.creator.userId = job.identity.userId.toStdString();
    result.creator.userName = job.identity.userName.toStdString();
    result.modifier = result.creator;
    if (!steps->last().localPath.isEmpty())
        result.cacheVersion = result.item.cloudVersion;
    return result;
}

DriveResult<GetCloudNodeFileCountResult> countFiles(
    const DriveJob &job, const GetCloudNodeFileCountArg &request)
{
    const auto id = folderId(job.drive, request.groupId, request.parentId);
    if (!id)
        return id.error();
    GetCloudNodeFileCountResult result;
    QStringList folders{*id};
    while (!folders.isEmpty()) {
        if (!job.progress(0, -1))
            return DriveError{DriveError::Kind::Cancelled, QStringLiteral("The service ends.")};
        const QString folder = folders.takeLast();
        const auto items = job.drive.list(folder);
        if (!items && folder == *id)
            return items.error();
        for (const DriveItem &item : items ? *items : QVector<DriveItem>()) {
            ++(item.isFolder ? result.folderCount : result.fileCount);
            result.totalSize += item.size;
            if (item.isFolder && request.recursive)
                folders.append(item.id);
        }
    }
    return result;
}

DriveResult<GetFileIdByFilePathResult> idByPath(const DriveJob &job, const GetFileIdByFilePathArg &request)
{
    if (!isOwnGroup(request.groupId))
        return DriveError{DriveError::Kind::NotFound, QStringLiteral("There is no such space.")};
    const auto path = request.pathType == 1 ? DriveMaybe<QString>(std::optional(text(request.filePath)))
                                            : pathInDrive(job.drive, text(request.filePath));
    if (!path)
        return path.error();
    if (!*path)
        return DriveError{DriveError::Kind::NotFound, QStringLiteral("The path is not in the drive.")};
    const auto item = job.drive.resolve(**path);
    if (!item)
        return item.error();
    GetFileIdByFilePathResult result;
    result.item = cloudItemId(*item);
    result.fileId = result.item.id;
    result.type = item->isFolder ? "folder" : "file";
    return result;
}

DriveResult<bool> hasContent(const DriveJob &job, const DriveItem &item, const std::string &sha1)
{
    constexpr qint64 ChunkBytes = 1024 * 1024;
    QFile file(item.localPath);
    if (item.localPath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    QByteArray chunk(int(ChunkBytes), Qt::Uninitialized);
    while (const qint64 count = file.read(chunk.data(), ChunkBytes)) {
        if (count < 0)
            return false;
        if (!job.progress(file.pos(), item.size))
            return DriveError{DriveError::Kind::Cancelled, QStringLiteral("The service ends.")};
        hash.addData(chunk.constData(), int(count));
    }
    return text(sha1).compare(QLatin1String(hash.result().toHex()), Qt::CaseInsensitive) == 0;
}

DriveResult<VerifyItemResult> verifyItem(const DriveJob &job, const VerifyItemArg &request)
{
    CloudItemId wanted = request.item;
    if (wanted.id.empty())
        wanted.id = request.fileId;
    if (wanted.id.empty())
        return DriveError{DriveError::Kind::InvalidName, QStringLiteral("An item's id is needed.")};
    VerifyItemResult result;
    const auto id = itemId(job.drive, wanted);
    const auto item = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!item && item.error().kind != DriveError::Kind::NotFound)
        return item.error();
    if (!item) {
        const auto trashed = inTrash(job.drive, text(wanted.id));
        if (!trashed)
            return trashed.error();
        result.inRecycleBin = trashed->has_value();
        return result;
    }
    result.existing = true;
    result.item = cloudItem(*item, job.identity);
    result.moved = !wanted.parentId.empty() && wanted.parentId != result.item.parentId;
    result.changed = request.cloudVersion != 0 && request.cloudVersion != result.item.cloudVersion;
    if (result.changed || request.sha1.empty())
        return result;
    const auto same = hasContent(job, *item, request.sha1);
    if (!same)
        return same.error();
    result.changed = !*same;
    return result;
}

DriveResult<FileStateResult> fileState(const DriveJob &job, const FileStateArg &request)
{
    FileStateResult result;
    for (const CloudItemId &wanted : request.items) {
        const auto id = itemId(job.drive, wanted);
        const auto item = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
        if (item)
            result.items.push_back(cloudItem(*item, job.identity));
        else
            result.failedItems[wanted.id] = errorInfo(item.error());
    }
    for (const std::string &path : request.localPaths) {
        const auto inside = pathInDrive(job.drive, text(path));
        if (inside && !*inside)
            continue;
        const auto item = inside ? job.drive.resolve(**inside) : DriveResult<DriveItem>(inside.error());
        if (item)
            result.pathItems[path] = cloudItem(*item, job.identity);
        else if (item.error().kind != DriveError::Kind::NotFound)
            result.failedItems[path] = errorInfo(item.error());
    }
    return result;
}

DriveResult<GetStorageInfoResult> storageInfo(const DriveJob &job, const GetStorageInfoArg &request)
{
    const auto id = folderId(job.drive, request.groupId, {});
    const auto usage = id ? job.drive.usage() : DriveResult<DriveUsage>(id.error());
    const auto trash = job.drive.listTrash();
    if (!usage)
        return usage.error();
    if (!trash)
        return trash.error();
    GetStorageInfoResult result;
    result.usedSize = usage->used;
    result.freeSize = usage->free;
    result.totalSize = usage->free < 0 ? -1 : usage->used + usage->free;
    for (const DriveTrashItem &item : *trash)
        result.recycleBinSize += item.size;
    result.fileSizeLimit = -1;
    result.measuredTime = QDateTime::currentMSecsSinceEpoch();
    return result;
}

DriveResult<GetCloudFileCachePathResult> cachePath(
    const DriveJob &job, const GetCloudFileCachePathArg &request)
{
    const auto id = itemId(job.drive, request.item);
    const auto item = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!item)
        return item.error();
    GetCloudFileCachePathResult result;
    result.cachePath = item->localPath.toStdString();
    result.existing = result.upToDate = !item->localPath.isEmpty();
    result.cacheVersion = result.existing ? versionNumber(item->version) : 0;
    return result;
}

} // namespace

void addDriveQueries(MethodTable &methods, const DriveContext &context)
{
    DriveThread &quick = context.quick;
    const auto nothing = [](const auto &, const auto &) {};
    const auto addTransfers = [&context](FileStateResult &result) {
        for (CloudItem &item : result.items)
            context.addTransferState(item);
        for (auto &[path, item] : result.pathItems)
            context.addTransferState(item);
    };
    serveOn<GetInfoArg, GetInfoResult>(quick, context, methods, "getInfo", getInfo);
    serveOn<GetInfoListArg, GetInfoListResult>(quick, context, methods, "getInfoList",
        [listing = std::make_shared<FolderListing>()](
            const DriveJob &job, const GetInfoListArg &request) { return listing->page(job, request); });
    serveOn<GetItemInfoListV5Arg, GetItemInfoListV5Result>(
        quick, context, methods, "getItemInfoListV5", getItemInfoList);
    serveOn<GetCloudFileInfoArg, GetCloudFileInfoResult>(
        quick, context, methods, "getCloudFileInfo", getCloudFileInfo);
    serveOn<GetFileIdByFilePathArg, GetFileIdByFilePathResult>(
        quick, context, methods, "getFileIdByFilePath", idByPath);
    serveOn<FileStateArg, FileStateResult>(
        quick, context, methods, "fileState", fileState, nothing, addTransfers);
    serveOn<GetStorageInfoArg, GetStorageInfoResult>(quick, context, methods, "getStorageInfo", storageInfo);
    serveOn<GetCloudFileCachePathArg, GetCloudFileCachePathResult>(
        quick, context, methods, "getCloudFileCachePath", cachePath);
    // These may read much.
    serveOn<GetCloudNodeFileCountArg, GetCloudNodeFileCountResult>(
        context.bulk, context, methods, "getCloudNodeFileCount", countFiles);
    serveOn<VerifyItemArg, VerifyItemResult>(context.bulk, context, methods, "verifyItem", verifyItem);
}

} // namespace zel::service
