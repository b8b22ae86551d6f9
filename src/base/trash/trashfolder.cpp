#include "base/trash/trashfolder.h"

#include "base/paths.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace zel::trash {
namespace {

enum class Links { Follow, Refuse };

QByteArray userId()
{
    return QByteArray::number(::getuid());
}

bool isOwnFolder(const QByteArray &path, Links links)
{
    struct stat status = {};
    const int flags = links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
    return ::fstatat(AT_FDCWD, path.constData(), &status, flags) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == ::getuid();
}

bool makeOwnFolder(const QByteArray &path, Links links)
{
    if (::mkdir(path.constData(), 0700) != 0 && errno != EEXIST)
        return false;
    return isOwnFolder(path, links);
}

bool makeInsides(const QByteArray &trash)
{
    return makeOwnFolder(trash + "/files", Links::Refuse) && makeOwnFolder(trash + "/info", Links::Refuse);
}

QByteArray homeTrash()
{
    return QFile::encodeName(paths::dataHome()) + "/Trash";
}

bool makePath(const QByteArray &path)
{
    if (::mkdir(path.constData(), 0700) == 0 || errno == EEXIST)
        return true;
    if (errno != ENOENT || path.size() < 2 || !makePath(parentOf(path)))
        return false;
    return ::mkdir(path.constData(), 0700) == 0 || errno == EEXIST;
}

// The sticky bit keeps users out of one another's folders in it; a link could lead anywhere.
bool isSharedTrash(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX);
}

QByteArray mountPoint(QByteArray folder, const MountId &mount)
{
    while (folder != "/") {
        const QByteArray parent = parentOf(folder);
        if (mountOf(parent) != mount)
            break;
        folder = parent;
    }
    return folder;
}

bool isMountPoint(const QByteArray &folder)
{
    const auto mount = mountOf(folder);
    return mount && (folder == "/" || mountOf(parentOf(folder)) != mount);
}

} // namespace

QByteArray parentOf(const QByteArray &path)
{
    return path.left(std::max(1, path.lastIndexOf('/')));
}

QByteArray below(const QByteArray &folder, const QByteArray &name)
{
    return (folder.endsWith('/') ? folder : QByteArray(folder + '/')) + name;
}

bool isInside(const QByteArray &path, const QByteArray &folder)
{
    return path == folder || path.startsWith(below(folder, {}));
}

std::optional<MountId> mountOf(const QByteArray &path)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, path.constData(), AT_NO_AUTOMOUNT, STATX_BASIC_STATS | STATX_MNT_ID, &status) != 0)
        return {};
    const bool knowsMount = (status.stx_mask & STATX_MNT_ID) != 0;
    return MountId{
        makedev(status.stx_dev_major, status.stx_dev_minor), knowsMount ? quint64(status.stx_mnt_id) : 0};
}

std::optional<Folder> homeFolder(const MountId &mount)
{
    const QByteArray trash = homeTrash();
    if (!makePath(parentOf(trash)))
        return {};
    const auto found = mountOf(trash);
    if ((found ? found : mountOf(parentOf(trash))) != mount)
        return {};
    if (!makeOwnFolder(trash, Links::Follow) || !makeInsides(trash)) // people move their trash by a link
        return {};
    return Folder{trash, {}};
}

std::optional<Folder> mountFolder(const QByteArray &folder, const MountId &mount)
{
    const QByteArray top = mountPoint(folder, mount);
    const QByteArray shared = below(top, ".Trash");
    if (isSharedTrash(shared)) {
        const QByteArray trash = shared + '/' + userId();
        if (makeOwnFolder(trash, Links::Refuse) && makeInsides(trash))
            return Folder{trash, top};
    }
    const QByteArray trash = below(top, ".Trash-" + userId());
    if (makeOwnFolder(trash, Links::Refuse) && makeInsides(trash))
        return Folder{trash, top};
    return {};
}

std::optional<Folder> folderOfInfo(const QByteArray &infoPath)
{
    const QByteArray info = parentOf(infoPath);
    const QByteArray trash = parentOf(info);
    if (!info.endsWith("/info") || !isOwnFolder(info, Links::Refuse)
        || !isOwnFolder(trash + "/files", Links::Refuse))
        return {};
    if (trash == homeTrash())
        return Folder{trash, {}};
    if (!isOwnFolder(trash, Links::Refuse))
        return {};
    QByteArray top = parentOf(trash);
    if (trash == below(top, userId()) && top.endsWith("/.Trash") && isSharedTrash(top))
        top = parentOf(top);
    else if (trash != below(top, ".Trash-" + userId()))
        return {};
    if (!isMountPoint(top))
        return {};
    return Folder{trash, top};
}

} // namespace zel::trash
