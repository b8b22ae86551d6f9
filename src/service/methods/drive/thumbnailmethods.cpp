#include "document_types.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/thumbnails.h"

namespace zel::service {
namespace {

using namespace vela;

FileThumbnailEntry entryOf(const GetFileThumbnailArgEntry &wanted, const QString &path, int64_t version)
{
    FileThumbnailEntry entry;
    entry.item = wanted.item;
    entry.localPath = wanted.localPath;
    entry.cloudVersion = version;
    entry.unchanged = version != 0 && version == wanted.cloudVersion;
    const auto found = findThumbnail(path, qMax(wanted.width, wanted.height));
    if (found) {
        entry.thumbnailPath = found->path.toStdString();
        entry.width = found->width;
        entry.height = found->height;
    }
    return entry;
}

DriveResult<GetFileThumbnailResult> thumbnails(const DriveJob &job, const GetFileThumbnailArg &request)
{
    GetFileThumbnailResult result;
    for (const GetFileThumbnailArgEntry &wanted : request.entries) {
        if (!wanted.localPath.empty()) {
            result.thumbnails.push_back(entryOf(wanted, text(wanted.localPath), 0));
            continue;
        }
        const auto id = itemId(job.drive, wanted.item);
        const auto item = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
        if (item)
            result.thumbnails.push_back(entryOf(wanted, item->localPath, versionNumber(item->version)));
        else
            result.failedItems[wanted.item.id] = errorInfo(item.error());
    }
    return result;
}

} // namespace

void addThumbnails(MethodTable &methods, const DriveContext &context)
{
    serveOn<GetFileThumbnailArg, GetFileThumbnailResult>(
        context.local, context, methods, "getFileThumbnail", thumbnails);
}

} // namespace zel::service
