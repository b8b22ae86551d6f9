#include "service/methods/transfers/transferplans.h"

#include "service/drive/clouddrive.h"
#include "service/drive/drivenames.h"
#include "service/drive/localsource.h"
#include "service/methods/drive/drivelookup.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace zel::service {
namespace {

using wire::ServiceError;

vela::ServerErrorInfo invalid(const char *reason)
{
    return wire::errorInfo(ServiceError::InvalidArgument, QLatin1String(reason));
}

vela::ServerErrorInfo nullInPath()
{
    return invalid("A local path cannot hold a null character.");
}

PlannedTransfers tooMany()
{
    return {ServiceError::TooLarge, QStringLiteral("These are too many paths for one request.")};
}

// Where a path leads, also when its last steps are not there yet.
QString canonicalPath(const QString &path)
{
    QString there = QDir::cleanPath(path);
    QString missing;
    while (!QFileInfo::exists(there) && there.contains(QLatin1Char('/'))) {
        const int slash = there.lastIndexOf(QLatin1Char('/'));
        missing.prepend(there.mid(slash));
        there.truncate(slash);
    }
    return (there.isEmpty() ? QString() : QFileInfo(there).canonicalFilePath()) + missing;
}

// Such a transfer would find what it has just written, over and over.
bool leadsInto(const QString &source, const QString &folder, const TransferTask &task)
{
    const QString from = QFileInfo(source).canonicalFilePath();
    const auto isInside = [&from](const QString &path) {
        return path == from || path.startsWith(from + QLatin1Char('/'));
    };
    if (from.isEmpty() || folder.isEmpty() || !QFileInfo(source).isDir())
        return false;
    const bool merges = task.policy == ConflictPolicy::Replace || task.policy == ConflictPolicy::Skip;
    const QString target = canonicalPath(folder);
    return isInside(target) || (merges && isInside(canonicalPath(target + QLatin1Char('/') + task.name)));
}

vela::ServerErrorInfo intoItself()
{
    return wire::errorInfo(ServiceError::Denied, QStringLiteral("A folder cannot go into itself."));
}

std::optional<vela::ServerErrorInfo> uploadProblem(const QFileInfo &file, const UploadWish &wish,
    const DriveItem &target, const QSet<QString> &taken, const TransferTask &task)
{
    if (!QDir::isAbsolutePath(file.filePath()))
        return invalid("A local path has to be absolute.");
    if (!file.isFile() && (wish.filesOnly || !file.isDir()))
        return wire::errorInfo(ServiceError::NotFound, QStringLiteral("There is no such local file."));
    if (isMadeUp(file.filePath()))
        return wire::errorInfo(
            ServiceError::Denied, QStringLiteral("The system makes up what lies there as it is read."));
    if (!isValidDriveName(task.name))
        return invalid("The drive cannot hold such a name.");
    if (leadsInto(file.filePath(), target.localPath, task))
        return intoItself();
    if (task.policy == ConflictPolicy::Refuse && taken.contains(task.name))
        return wire::errorInfo(ServiceError::Exists, QStringLiteral("The name is taken."));
    return {};
}

void planUpload(const QString &path, const UploadWish &wish, const DriveItem &target,
    const QSet<QString> &taken, TransferPlan &plan)
{
    const QFileInfo file(QDir::cleanPath(path));
    plan.task.folder = target.id;
    plan.task.name = wish.newName.isEmpty() ? file.fileName() : wish.newName;
    plan.task.includeHidden = wish.includeHidden;
    plan.task.excludedSuffixes = wish.excludedSuffixes;
    vela::TransferOpertionInfo &info = plan.task.info;
    info.name = plan.task.name.toStdString();
    info.localPath = file.filePath().toStdString();
    info.isFolder = file.isDir();
    info.size = file.isFile() ? file.size() : 0;
    info.fileCount = file.isFile() ? 1 : 0;
    info.priority = wish.priority;
    info.item.groupId = OwnGroup;
    info.item.parentId = target.id.toStdString();
    plan.error = uploadProblem(file, wish, target, taken, plan.task);
}

void planTarget(const DownloadWish &wish, const vela::DownloadCloudFileInfo &file, const DriveItem &item,
    TransferPlan &plan)
{
    const QString path = text(file.targetPath);
    if (path.contains(QChar::Null) || wish.targetDir.contains(QChar::Null)) {
        plan.error = nullInPath();
        return;
    }
    const bool isFolder = path.isEmpty() || path.endsWith(QLatin1Char('/')) || QFileInfo(path).isDir();
    plan.task.folder = QDir::cleanPath(path.isEmpty() ? wish.targetDir
            : isFolder                                ? path
                                                      : QFileInfo(path).path());
    plan.task.name = isFolder ? item.name : QFileInfo(path).fileName();
    if (!wish.newName.isEmpty())
        plan.task.name = wish.newName;
    const QString target = plan.task.folder + QLatin1Char('/') + plan.task.name;
    plan.task.info.localPath = target.toStdString();
    if (!QDir::isAbsolutePath(plan.task.folder))
        plan.error = invalid("A local path has to be absolute.");
    else if (!isValidDriveName(plan.task.name))
        plan.error = invalid("A file cannot have such a name.");
    else if (!item.localPath.isEmpty() && leadsInto(item.localPath, plan.task.folder, plan.task))
        plan.error = intoItself();
    else if (plan.task.policy == ConflictPolicy::Refuse && QFileInfo::exists(target))
        plan.error = wire::errorInfo(ServiceError::Exists, QStringLiteral("The name is taken."));
    if (plan.error && plan.error->errResult == wire::errorName(ServiceError::Exists)) {
        plan.conflict.emplace();
        plan.conflict->item = plan.task.info.item;
        plan.conflict->name = plan.task.name.toStdString();
        plan.conflict->existing.name = plan.conflict->name;
        plan.conflict->existing.cache = plan.task.info.localPath;
        const QFileInfo there(target);
        plan.conflict->existing.type = there.isDir() ? "folder" : "file";
        plan.conflict->existing.size = there.isDir() ? 0 : there.size();
        plan.conflict->existing.mtime = there.lastModified().toMSecsSinceEpoch();
        plan.conflict->size = item.isFolder ? 0 : item.size;
        plan.conflict->mtime = item.mtime;
    }
}

void planDownload(const DownloadWish &wish, const vela::DownloadCloudFileInfo &file, const DriveItem &item,
    const Identity &identity, TransferPlan &plan)
{
    plan.item = cloudItem(item, identity);
    vela::TransferOpertionInfo &info = plan.task.info;
    info.item = cloudItemId(item);
    info.name = plan.item.name;
    info.isFolder = item.isFolder;
    info.size = item.size;
    info.fileCount = item.isFolder ? 0 : 1;
    if (file.cloudVersion != 0 && file.cloudVersion != plan.item.cloudVersion)
        plan.error =
            wire::errorInfo(ServiceError::NotFound, QStringLiteral("That version is no longer kept."));
    else if (wish.foldersOnly && !item.isFolder)
        plan.error = invalid("It is not a folder.");
    else if (!file.targetPath.empty() || !wish.targetDir.isEmpty())
        planTarget(wish, file, item, plan);
    else if (item.localPath.isEmpty())
        plan.error = invalid("A local folder is needed.");
    else
        plan.isHere = true;
    if (plan.isHere)
        info.localPath = item.localPath.toStdString();
}

TransferPlan newPlan(TransferType type, int policy, const std::string &batchId)
{
    TransferPlan plan;
    plan.task.info.transferType = int32_t(type);
    plan.task.info.transferState = int32_t(TransferState::Waiting);
    plan.task.info.batchId = batchId;
    plan.task.info.remainingTime = -1;
    plan.task.policy = policyOf(policy);
    return plan;
}

} // namespace

PlannedTransfers planUploads(CloudDrive &drive, const UploadWish &wish, const Identity &identity)
{
    if (wish.paths.size() > MostPaths)
        return tooMany();
    const auto folder = folderId(drive, wish.groupId, wish.parentId);
    const auto target = folder ? drive.stat(*folder) : DriveResult<DriveItem>(folder.error());
    const auto children = target ? drive.list(*folder) : DriveResult<QVector<DriveItem>>(target.error());
    if (!children)
        return children.error();
    QSet<QString> taken;
    for (const DriveItem &child : *children)
        taken.insert(child.name);
    TransferPlans plans;
    for (const QString &path : wish.paths) {
        TransferPlan plan = newPlan(TransferType::Upload, wish.policy, wish.batchId);
        plan.key = path.toStdString();
        if (path.contains(QChar::Null))
            plan.error = nullInPath();
        else
            planUpload(path, wish, *target, taken, plan);
        if (plan.error && plan.error->errResult == wire::errorName(ServiceError::Exists)) {
            DriveItem wanted;
            wanted.isFolder = plan.task.info.isFolder;
            wanted.size = plan.task.info.size;
            wanted.mtime = QFileInfo(path).lastModified().toMSecsSinceEpoch();
            plan.conflict = conflictWith(drive, wanted, *folder, plan.task.name, identity);
        } else if (plan.task.policy == ConflictPolicy::Refuse) {
            taken.insert(plan.task.name); // also by the tasks before it
        }
        plans.push_back(std::move(plan));
    }
    return plans;
}

PlannedTransfers planDownloads(CloudDrive &drive, const DownloadWish &wish, const Identity &identity)
{
    if (wish.files.size() > size_t(MostPaths))
        return tooMany();
    TransferPlans plans;
    for (const vela::DownloadCloudFileInfo &file : wish.files) {
        TransferPlan plan = newPlan(TransferType::Download, wish.policy, wish.batchId);
        plan.key = file.item.id;
        plan.task.info.priority = file.priority;
        const auto id = itemId(drive, file.item);
        const auto item = id ? drive.stat(*id) : DriveResult<DriveItem>(id.error());
        if (item)
            planDownload(wish, file, *item, identity, plan);
        else
            plan.error = errorInfo(item.error());
        plans.push_back(std::move(plan));
    }
    return plans;
}

} // namespace zel::service
