#pragma once

#include <QStringList>

namespace zel::recent {

struct Mount
{
    QString point;
    QString type; ///< of the file system, as the kernel names it
};

/// Mount that the path lies on, by the kernel's table `mountInfo` (the text of /proc/self/mountinfo); nothing
/// of the file system itself is touched. "/" when none fits.
Mount mountOf(const QString &path, const QByteArray &mountInfo);

/// File systems on disks and in memory of this machine, which always answer sooner or later.
bool isLocalType(const QString &type);

/// What to leave alone after a look at a file has not returned.
struct DeadPlace
{
    QStringList mounts; ///< everything below: the mount point and the link that leads there; never "/"
    QString folder;     ///< only what lies right in it; empty when there are mounts
};

/// `path` is absolute and clean. Links are followed by reading them one by one, as far as they lie on local
/// file systems; nothing on another one is touched.
DeadPlace deadPlaceOf(const QString &path, const QByteArray &mountInfo);

QString folderOf(const QString &path);
bool isBelow(const QString &path, const QString &folder);

} // namespace zel::recent
