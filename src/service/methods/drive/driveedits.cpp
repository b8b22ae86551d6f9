#include "notify_types.h"
#include "service/dispatch/pushes.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/drive/drivelookup.h"
#include "service/methods/drive/driveplace.h"

#include <QDateTime>
#include <QFile>

namespace zel::service {
namespace {

using namespace vela;
using Kind = DriveError::Kind;

// Answers with the item where it is now, or with what stands in its way.
template <class Result>
DriveResult<Result> placed(const DriveJob &job, const DriveResult<DriveItem> &item, const DriveItem &wanted,
    const DrivePlace &place, int policy)
{
    Result result;
    if (item) {
        result.item = cloudItem(*item, job.identity);
        return result;
    }
    if (item.error().kind != Kind::Exists)
        return item.error();
    result.conflict = conflictWith(job.drive, wanted, place.folder, place.name, job.identity);
    result.conflict.conflictPolicy = policy;
    if (policy == 3) // to be skipped: that is what was asked for
        result.item = result.conflict.existing;
    else
        refuse(result, item.error());
    return result;
}

DriveResult<DriveItem> makeFolder(CloudDrive &drive, const DrivePlace &place)
{
    auto item = drive.createFolder(place.folder, place.name);
    if (item || item.error().kind != Kind::Exists || place.conflict != DriveConflict::KeepBoth)
        return item;
    // The free name is only a guess until the folder is made.
    for (int attempt = 0; attempt < 8 && !item && item.error().kind == Kind::Exists; ++attempt) {
        DriveItem wanted;
        wanted.isFolder = true;
        const ConflictItem conflict = conflictWith(drive, wanted, place.folder, place.name, {});
        item = drive.createFolder(place.folder, text(conflict.suggestedName));
    }
    return item;
}

DriveResult<CreateFolderResult> createFolder(const DriveJob &job, const CreateFolderArg &request)
{
    const auto folder = folderId(job.drive, request.groupId, request.parentId);
    if (!folder)
        return folder.error();
    DrivePlace place{*folder, text(request.name), conflictOf(request.conflictPolicy)};
    bool existed = false;
    if (request.makePath) {
        QStringList names = place.name.split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (names.isEmpty())
            return DriveError{Kind::InvalidName, QStringLiteral("A folder needs a name.")};
        place.name = names.takeLast();
        const auto above = makeFolders(job.drive, *folder, names, existed);
        if (!above)
            return above.error();
        place.folder = above->id;
        existed = false;
    }
    DriveResult<DriveItem> item = makeFolder(job.drive, place);
    if (!item && item.error().kind == Kind::Exists && request.conflictPolicy == 3)
        item = makeFolders(job.drive, place.folder, {place.name}, existed);
    DriveItem wanted;
    wanted.isFolder = true;
    auto result = placed<CreateFolderResult>(
        job, item, wanted, place, request.conflictPolicy == 3 ? 0 : request.conflictPolicy);
    if (result)
        result->existed = existed;
    return result;
}

DriveResult<DriveItem> makeFile(const DriveJob &job, const CreateFileArg &request, const DrivePlace &place)
{
    if (!request.templateId.empty())
        return copyItem(job.drive, text(request.templateId), place, job.progress);
    DriveWriteOptions options;
    options.conflict = place.conflict;
    options.trashReplaced = true; // a document of its own, not a new state of the one that has the name
    if (!request.localPath.empty())
        return job.drive.writeFrom(place.folder, place.name, text(request.localPath), options, job.progress);
    if (place.conflict == DriveConflict::Fail)
        return job.drive.createFile(place.folder, place.name);
    QFile nothing(QStringLiteral("/dev/null"));
    if (!nothing.open(QIODevice::ReadOnly))
        return DriveError{Kind::Io, nothing.errorString()};
    return job.drive.write(place.folder, place.name, nothing, options, job.progress);
}

DriveResult<CreateFileResult> createFile(const DriveJob &job, const CreateFileArg &request)
{
    const auto folder = folderId(job.drive, request.groupId, request.parentId);
    if (!folder)
        return folder.error();
    const DrivePlace place{*folder, text(request.name), conflictOf(request.conflictPolicy)};
    return placed<CreateFileResult>(
        job, makeFile(job, request, place), DriveItem(), place, request.conflictPolicy);
}

DriveResult<RenameResult> renameOne(const DriveJob &job, const RenameArg &request)
{
    const auto id = namedItemId(job.drive, request.item);
    const auto before = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!before)
        return before.error();
    const DrivePlace place{before->parentId, text(request.newName), conflictOf(request.conflictPolicy)};
    auto result = placed<RenameResult>(
        job, renameItem(job.drive, *id, place.name, place.conflict), *before, place, request.conflictPolicy);
    if (result)
        result->extraParam["oldName"] = before->name.toStdString();
    return result;
}

DriveResult<MoveResult> moveOne(const DriveJob &job, const MoveArg &request)
{
    const auto id = namedItemId(job.drive, request.item);
    const auto before = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    const auto folder = folderId(job.drive, request.targetGroupId, request.targetParentId);
    if (!before)
        return before.error();
    if (!folder)
        return folder.error();
    DrivePlace place{*folder, text(request.newName), conflictOf(request.conflictPolicy)};
    const auto moved = moveItem(job.drive, *id, place);
    if (place.name.isEmpty())
        place.name = before->name;
    auto result = placed<MoveResult>(job, moved, *before, place, request.conflictPolicy);
    if (result)
        result->extraParam["oldParentId"] = before->parentId.toStdString();
    return result;
}

DriveResult<CopyResult> copyOne(const DriveJob &job, const CopyArg &request)
{
    const auto id = namedItemId(job.drive, request.item);
    const auto original = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    const auto folder = folderId(job.drive, request.targetGroupId, request.targetParentId);
    if (!original)
        return original.error();
    if (!folder)
        return folder.error();
    DrivePlace place{*folder, text(request.newName), conflictOf(request.conflictPolicy)};
    if (place.name.isEmpty())
        place.name = original->name;
    int leftOut = 0;
    const auto copied = copyItem(job.drive, *id, place, job.progress, &leftOut);
    auto result = placed<CopyResult>(job, copied, *original, place, request.conflictPolicy);
    if (result && leftOut > 0)
        result->extraParam["leftOut"] = std::to_string(leftOut);
    return result;
}

DriveResult<UpdateResult> updateOne(const DriveJob &job, const UpdateArg &request)
{
    const auto id = namedItemId(job.drive, request.item);
    const auto before = id ? job.drive.stat(*id) : DriveResult<DriveItem>(id.error());
    if (!before)
        return before.error();
    if (before->isFolder)
        return DriveError{Kind::Denied, QStringLiteral("A folder has no content.")};
    UpdateResult result;
    result.item = cloudItem(*before, job.identity);
    const bool takesAny = request.baseVersion == 0;
    result.versionConflict = !takesAny && request.baseVersion != result.item.cloudVersion;
    DriveWriteOptions options{DriveConflict::Replace, request.mtime > 0 ? request.mtime : -1};
    options.replacedId = *id;
    options.replacedVersion = takesAny ? QString() : before->version;
    const auto item = result.versionConflict
        ? DriveResult<DriveItem>(DriveError{Kind::Changed, {}})
        : job.drive.writeFrom(before->parentId, before->name, text(request.localPath), options, job.progress);
    if (item) {
        result.item = cloudItem(*item, job.identity);
        return result;
    }
    const auto now = job.drive.stat(*id);
    if (item.error().kind != Kind::Changed || !now)
        return now ? item.error() : now.error();
    result.item = cloudItem(*now, job.identity);
    result.versionConflict = true;
    refuse(result, wire::ServiceError::Conflict, QStringLiteral("The file has changed meanwhile."));
    return result;
}

void tellAction(const DriveContext &context, NotifyFileActionArg action)
{
    action.operatorId = context.identity().userId.toStdString();
    action.mtime = QDateTime::currentMSecsSinceEpoch();
    context.pushes.push("notifyFileAction", action);
}

} // namespace

void addDriveEdits(MethodTable &methods, const DriveContext &context)
{
    const auto changed = [&context](const auto &, const auto &) { context.events.check(); };
    serveOn<CreateFolderArg, CreateFolderResult>(
        context.quick, context, methods, "createFolder", createFolder, changed);
    serveOn<CreateFileArg, CreateFileResult>(
        context.local, context, methods, "createFile", createFile, changed);
    serveOn<CopyArg, CopyResult>(context.bulk, context, methods, "copy", copyOne, changed);
    serveOn<UpdateArg, UpdateResult>(context.local, context, methods, "update", updateOne, changed);
    serveOn<RenameArg, RenameResult>(context.quick, context, methods, "rename", renameOne,
        [&context](const RenameArg &, const RenameResult &result) {
            NotifyFileActionArg action;
            action.action = "rename";
            action.item = result.item;
            action.oldName = result.extraParam.at("oldName");
            if (result.state == 0 && action.oldName != result.item.name)
                tellAction(context, action);
            context.events.check();
        });
    serveOn<MoveArg, MoveResult>(context.quick, context, methods, "move", moveOne,
        [&context](const MoveArg &, const MoveResult &result) {
            NotifyFileActionArg action;
            action.action = "move";
            action.item = result.item;
            action.oldParentId = result.extraParam.at("oldParentId");
            if (result.state == 0 && action.oldParentId != result.item.parentId)
                tellAction(context, action);
            context.events.check();
        });
}

} // namespace zel::service
