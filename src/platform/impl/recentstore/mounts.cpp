#include "mounts.h"

#include <QFile>

#include <algorithm>
#include <climits>
#include <unistd.h>

namespace zel::recent {
namespace {

// The kernel writes blank, tab, line feed and backslash as three octal digits.
QByteArray unescaped(const QByteArray &field)
{
    QByteArray text;
    for (int i = 0; i < field.size(); ++i) {
        bool ok = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&ok, 8) : 0;
        text.append(ok ? char(code) : field[i]);
        i += ok ? 3 : 0;
    }
    return text;
}

constexpr int MostLinks = 40; // as many as the kernel follows

QString linkTarget(const QString &path)
{
    char target[PATH_MAX];
    const ssize_t size = ::readlink(QFile::encodeName(path).constData(), target, sizeof target);
    return size > 0 ? QFile::decodeName(QByteArray(target, int(size))) : QString();
}

// Walks a path by its names, as far as that is safe.
class Walk
{
public:
    explicit Walk(const QByteArray &mountInfo) : m_mountInfo(mountInfo) { }

    /// Goes on with the name, and with those that it links to. False: that leads to a mount which may hang.
    bool enter(const QString &name);
    QString mountPoint() const { return m_mount.point; }

private:
    const QByteArray &m_mountInfo;
    QString m_resolved; ///< without a slash at the end
    Mount m_mount;
    int m_links = 0;
};

bool Walk::enter(const QString &name)
{
    QStringList names{name};
    while (!names.isEmpty()) {
        const QString next = names.takeFirst();
        if (next.isEmpty() || next == QLatin1String("."))
            continue;
        if (next == QLatin1String("..")) {
            m_resolved = m_resolved.left(std::max(0, m_resolved.lastIndexOf(QLatin1Char('/'))));
            continue;
        }
        const QString path = m_resolved + QLatin1Char('/') + next;
        m_mount = mountOf(path, m_mountInfo);
        if (!isLocalType(m_mount.type))
            return false;
        const QString target = m_links < MostLinks ? linkTarget(path) : QString();
        if (target.isEmpty()) {
            m_resolved = path;
            continue;
        }
        ++m_links;
        if (target.startsWith(QLatin1Char('/')))
            m_resolved.clear();
        names = target.split(QLatin1Char('/')) + names;
    }
    return true;
}

} // namespace

bool isBelow(const QString &path, const QString &folder)
{
    if (folder == QLatin1String("/"))
        return path.startsWith(folder);
    return path.startsWith(folder)
        && (path.size() == folder.size() || path.at(folder.size()) == QLatin1Char('/'));
}

QString folderOf(const QString &path)
{
    return path.left(std::max(1, path.lastIndexOf(QLatin1Char('/'))));
}

// A line: ids, device, root, mount point, options, optional fields, "-", type, source, options.
Mount mountOf(const QString &path, const QByteArray &mountInfo)
{
    Mount best{QStringLiteral("/"), {}};
    for (const QByteArray &line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const QString point = QString::fromUtf8(unescaped(fields.value(4)));
        // Of several mounts on one point the last hides the others.
        if (point.size() < best.point.size() || !isBelow(path, point))
            continue;
        const int separator = fields.indexOf("-", 6);
        best = {point, separator < 0 ? QString() : QString::fromUtf8(fields.value(separator + 1))};
    }
    return best;
}

bool isLocalType(const QString &type)
{
    static const QStringList local{QStringLiteral("ext2"), QStringLiteral("ext3"), QStringLiteral("ext4"),
        QStringLiteral("xfs"), QStringLiteral("btrfs"), QStringLiteral("bcachefs"), QStringLiteral("zfs"),
        QStringLiteral("f2fs"), QStringLiteral("jfs"), QStringLiteral("reiserfs"), QStringLiteral("vfat"),
        QStringLiteral("exfat"), QStringLiteral("ntfs3"), QStringLiteral("iso9660"), QStringLiteral("udf"),
        QStringLiteral("squashfs"), QStringLiteral("erofs"), QStringLiteral("tmpfs"), QStringLiteral("ramfs"),
        QStringLiteral("devtmpfs"), QStringLiteral("overlay")};
    return local.contains(type);
}

DeadPlace deadPlaceOf(const QString &path, const QByteArray &mountInfo)
{
    Walk walk(mountInfo);
    for (int end = 0; end >= 0 && end < path.size();) {
        const int next = path.indexOf(QLatin1Char('/'), end + 1);
        if (!walk.enter(path.mid(end + 1, next < 0 ? -1 : next - end - 1))) {
            if (walk.mountPoint() == QLatin1String("/"))
                break;
            QStringList mounts{walk.mountPoint()};
            const QString way = path.left(next);
            if (!isBelow(way, mounts.first()))
                mounts.append(way);
            return {mounts, {}};
        }
        end = next;
    }
    return {{}, folderOf(path)};
}

} // namespace zel::recent
