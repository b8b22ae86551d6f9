#include "service/methods/drive/driverecords.h"

#include "service/roaming/roamingrecord.h"

#include <QCryptographicHash>
#include <QtEndian>

namespace zel::service {

QStringList texts(const std::vector<std::string> &values)
{
    QStringList list;
    list.reserve(int(values.size()));
    for (const std::string &value : values)
        list.append(text(value));
    return list;
}

std::vector<std::string> strings(const QStringList &values)
{
    std::vector<std::string> list;
    list.reserve(size_t(values.size()));
    for (const QString &value : values)
        list.push_back(value.toStdString());
    return list;
}

bool isOwnGroup(const std::string &groupId)
{
    return groupId.empty() || groupId == OwnGroup;
}

wire::ServiceError errorNamed(const std::string &name)
{
    for (int number = 0; number <= int(wire::ServiceError::Internal); ++number)
        if (name == wire::errorName(wire::ServiceError(number)))
            return wire::ServiceError(number);
    return wire::ServiceError::Internal;
}

// The record has a number where a drive has a text of its own kind.
int64_t versionNumber(const QString &version)
{
    const QByteArray hash = QCryptographicHash::hash(version.toUtf8(), QCryptographicHash::Sha256);
    const auto number =
        qFromBigEndian<quint64>(hash.constData()) >> 11; // exact in a double, as scripts read it
    return int64_t(number ? number : 1);
}

namespace {

vela::UserAcl ownerAcl(bool isRoot)
{
    vela::UserAcl acl;
    acl.canRead = acl.canWrite = acl.canCopy = acl.canCreate = acl.canUpload = acl.canDownload = true;
    acl.canRename = acl.canMove = acl.canRemove = !isRoot;
    return acl;
}

const char *typeName(bool isFolder)
{
    return isFolder ? "folder" : "file";
}

} // namespace

vela::CloudItem cloudItem(const DriveItem &item, const Identity &identity)
{
    vela::CloudItem record;
    record.groupId = OwnGroup;
    record.parentId = item.parentId.toStdString();
    record.id = item.id.toStdString();
    record.fileId = record.id;
    record.size = item.size;
    record.name = item.name.toStdString();
    record.type = typeName(item.isFolder);
    record.creator = identity.userId.toStdString();
    record.modifier = record.creator;
    record.ctime = item.ctime;
    record.mtime = item.mtime;
    record.cache = item.localPath.toStdString();
    record.progress = 100;
    record.userAcl = ownerAcl(item.parentId.isEmpty());
    record.cloudVersion = versionNumber(item.version);
    return record;
}

vela::CloudItem cloudItem(const DriveChange &change, const Identity &identity)
{
    vela::CloudItem record;
    record.groupId = OwnGroup;
    record.parentId = change.parentId.toStdString();
    record.id = change.id.toStdString();
    record.fileId = record.id;
    record.name = change.name.toStdString();
    record.type = typeName(change.isFolder);
    record.creator = identity.userId.toStdString();
    record.deleted = true;
    return record;
}

vela::CloudItemId cloudItemId(const DriveItem &item)
{
    vela::CloudItemId id;
    id.groupId = OwnGroup;
    id.parentId = item.parentId.toStdString();
    id.id = item.id.toStdString();
    return id;
}

vela::ItemPathInfoV5 pathInfo(const QVector<DriveItem> &steps)
{
    vela::ItemPathInfoV5 info;
    QStringList names;
    for (const DriveItem &item : steps) {
        vela::CloudItemPathInfo step;
        step.id = item.id.toStdString();
        step.name = item.name.toStdString();
        step.type = typeName(item.isFolder);
        info.steps.push_back(step);
        if (!item.parentId.isEmpty())
            names.append(item.name);
    }
    if (!steps.isEmpty())
        info.item = cloudItemId(steps.last());
    info.path = names.join(QLatin1Char('/')).toStdString();
    return info;
}

vela::RecycleBinItem recycleItem(const DriveTrashItem &item, const Identity &identity)
{
    vela::RecycleBinItem record;
    record.recycleId = item.id.toStdString();
    record.fileId = item.itemId.toStdString();
    record.groupId = OwnGroup;
    record.name = item.name.toStdString();
    record.type = typeName(item.isFolder);
    record.size = item.size;
    const QString path = item.folder.isEmpty() ? item.name : item.folder + QLatin1Char('/') + item.name;
    record.originPath = path.toStdString();
    record.parentExists = true; // a folder that is gone is made again
    record.deleterId = identity.userId.toStdString();
    record.deleterName = identity.userName.toStdString();
    record.deleteTime = item.deletedAt;
    record.userAcl = ownerAcl(false);
    return record;
}

bool comesBefore(const DriveItem &left, const DriveItem &right, const std::string &orderBy)
{
    const auto byName = [&] {
        const int order = QString::localeAwareCompare(left.name, right.name);
        return order != 0 ? order < 0 : left.id < right.id;
    };
    if (orderBy == "size" && left.size != right.size)
        return left.size < right.size;
    if (orderBy == "ctime" && left.ctime != right.ctime)
        return left.ctime < right.ctime;
    if (orderBy == "mtime" && left.mtime != right.mtime)
        return left.mtime < right.mtime;
    if (orderBy == "type") {
        const QString leftSuffix = suffixOf(left.name);
        const QString rightSuffix = suffixOf(right.name);
        if (leftSuffix != rightSuffix)
            return leftSuffix < rightSuffix;
    }
    return byName();
}

} // namespace zel::service
