#include "service/methods/drive/drivelookup.h"

#include "service/drive/drivenames.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace zel::service {
namespace {

constexpr int MostNumbers = 10000;

DriveError noSuchSpace()
{
    return {DriveError::Kind::NotFound, QStringLiteral("There is no such space.")};
}

} // namespace

DriveResult<QString> folderId(CloudDrive &drive, const std::string &groupId, const std::string &parentId)
{
    if (!isOwnGroup(groupId))
        return noSuchSpace();
    return parentId.empty() || parentId == OwnGroup ? drive.rootId() : text(parentId);
}

DriveResult<QString> itemId(CloudDrive &drive, const vela::CloudItemId &item)
{
    return folderId(drive, item.groupId, item.id.empty() ? item.parentId : item.id);
}

DriveResult<QString> namedItemId(CloudDrive &drive, const vela::CloudItemId &item)
{
    if (item.id.empty())
        return DriveError{DriveError::Kind::InvalidName, QStringLiteral("An item's id is needed.")};
    return itemId(drive, item);
}

DriveMaybe<QString> pathInDrive(CloudDrive &drive, const QString &localPath)
{
    const auto root = drive.stat(drive.rootId());
    if (!root)
        return root.error();
    if (root->localPath.isEmpty() || !QDir::isAbsolutePath(localPath))
        return std::optional<QString>();
    const QString path = QDir::cleanPath(localPath);
    const QString base = QDir::cleanPath(root->localPath);
    if (path == base)
        return std::optional(QString());
    if (!path.startsWith(base + QLatin1Char('/')))
        return std::optional<QString>();
    return std::optional(path.mid(base.size() + 1));
}

DriveMaybe<DriveTrashItem> inTrash(CloudDrive &drive, const QString &itemId)
{
    const auto items = drive.listTrash();
    if (!items)
        return items.error();
    for (const DriveTrashItem &item : *items)
        if (item.itemId == itemId)
            return std::optional(item);
    return std::optional<DriveTrashItem>();
}

DriveMaybe<DriveItem> childNamed(CloudDrive &drive, const QString &folder, const QString &name)
{
    const auto item = drive.child(folder, name);
    if (item)
        return std::optional(*item);
    if (item.error().kind != DriveError::Kind::NotFound)
        return item.error();
    return std::optional<DriveItem>();
}

ConflictPolicy policyOf(int number)
{
    return number >= 0 && number <= int(ConflictPolicy::Skip) ? ConflictPolicy(number)
                                                              : ConflictPolicy::Refuse;
}

vela::ConflictItem conflictWith(CloudDrive &drive, const DriveItem &item, const QString &folder,
    const QString &name, const Identity &identity)
{
    vela::ConflictItem conflict;
    conflict.item = cloudItemId(item);
    conflict.name = name.toStdString();
    conflict.size = item.isFolder ? 0 : item.size;
    conflict.mtime = item.mtime;
    QSet<QString> taken;
    const auto children = drive.list(folder);
    for (const DriveItem &child : children ? *children : QVector<DriveItem>()) {
        taken.insert(child.name);
        if (child.name == name)
            conflict.existing = cloudItem(child, identity);
    }
    for (int number = 2; number < MostNumbers && conflict.suggestedName.empty(); ++number) {
        const QString free = numberedDriveName(name, number, item.isFolder);
        if (!taken.contains(free))
            conflict.suggestedName = free.toStdString();
    }
    return conflict;
}

} // namespace zel::service
