#include "driveitem.h"

#include "drivejournal.h"

#include <QStringBuilder>

namespace zel::service {
namespace {

constexpr qint64 NsPerMs = 1000000;

QString versionOf(const disk::Entry &entry)
{
    return QStringLiteral("%1-%2-%3")
        .arg(entry.identity.inode, 0, 16)
        .arg(entry.mtimeNs, 0, 16)
        .arg(entry.size, 0, 16);
}

} // namespace

DriveItem driveItem(const DriveRecord &record, const QString &root, const QString &folderPath)
{
    const disk::Entry &entry = record.entry;
    DriveItem item;
    item.id = driveIdText(record.id);
    item.parentId = driveIdText(record.parent);
    item.isFolder = entry.isFolder;
    item.size = entry.size;
    item.ctime = entry.ctimeNs / NsPerMs;
    item.mtime = entry.mtimeNs / NsPerMs;
    item.version = versionOf(entry);
    item.localPath = root;
    if (!folderPath.isEmpty())
        item.localPath += QLatin1Char('/') % folderPath;
    if (record.id != DriveIndex::RootId) {
        item.name = entry.name;
        item.localPath += QLatin1Char('/') % entry.name;
    }
    return item;
}

} // namespace zel::service
