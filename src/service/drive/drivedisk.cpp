#include "drivedisk.h"

#include "drivenames.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>

namespace zel::service::disk {
namespace {

qint64 nanoseconds(const struct statx_timestamp &time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

bool statxOf(int folder, const char *name, int flags, struct statx &status)
{
    constexpr unsigned Wanted = STATX_BASIC_STATS | STATX_BTIME;
    return ::statx(folder, name, flags | AT_NO_AUTOMOUNT, Wanted, &status) == 0;
}

Entry toEntry(const struct statx &status)
{
    Entry entry;
    entry.isFolder = S_ISDIR(status.stx_mode);
    const qint64 birth = (status.stx_mask & STATX_BTIME) ? nanoseconds(status.stx_btime) : 0;
    entry.identity = {quint64(status.stx_dev_major) << 32 | status.stx_dev_minor, status.stx_ino, birth};
    entry.size = entry.isFolder ? 0 : qint64(status.stx_size);
    entry.mtimeNs = nanoseconds(status.stx_mtime);
    entry.ctimeNs = birth ? birth : nanoseconds(status.stx_ctime);
    return entry;
}

bool isInside(const QByteArray &path, const QByteArray &root)
{
    const QByteArray prefix = root.endsWith('/') ? root : root + '/';
    return path.startsWith(prefix) && !path.contains(QByteArray("/") + HiddenPrefix);
}

// The descriptor of what a link leads to is taken first and judged then, so that nothing can be swapped
// between the two. O_PATH opens without any effect on the thing itself.
UniqueFd linkedFile(int folder, const QByteArray &name, const QByteArray &root, struct statx &status)
{
    UniqueFd fd(::openat(folder, name.constData(), O_PATH | O_CLOEXEC));
    char path[PATH_MAX];
    const QByteArray self = descriptorPath(fd.get());
    const ssize_t length = fd ? ::readlink(self.constData(), path, sizeof(path)) : -1;
    const bool good = length > 0 && length < ssize_t(sizeof(path))
        && isInside(QByteArray(path, int(length)), root) && statxOf(fd.get(), "", AT_EMPTY_PATH, status)
        && S_ISREG(status.stx_mode);
    if (!good) {
        errno = ENOENT;
        fd.reset();
    }
    return fd;
}

std::optional<Entry> entryAt(int folder, const QByteArray &name, const QByteArray &root)
{
    struct statx status
    {
    };
    if (!statxOf(folder, name.constData(), AT_SYMLINK_NOFOLLOW, status))
        return {};
    Entry entry = toEntry(status);
    if (S_ISLNK(status.stx_mode)) {
        if (!linkedFile(folder, name, root, status))
            return {};
        const Entry target = toEntry(status);
        entry.isLink = true;
        entry.size = target.size;
        entry.mtimeNs = target.mtimeNs;
    } else if (!S_ISREG(status.stx_mode) && !entry.isFolder) {
        errno = ENOENT;
        return {};
    }
    entry.name = QString::fromUtf8(name);
    return entry;
}

bool existsAt(int folder, const QByteArray &name)
{
    struct statx status
    {
    };
    return statxOf(folder, name.constData(), AT_SYMLINK_NOFOLLOW, status);
}

// For file systems without RENAME_NOREPLACE: a hard link, or an empty folder, claims the name instead.
bool claimingRename(int from, const QByteArray &oldName, int to, const QByteArray &newName, bool isFolder)
{
    if (isFolder) {
        if (::mkdirat(to, newName.constData(), 0700) != 0)
            return false;
        if (::renameat(from, oldName.constData(), to, newName.constData()) == 0)
            return true;
        const int code = errno;
        ::unlinkat(to, newName.constData(), AT_REMOVEDIR);
        errno = code;
        return false;
    }
    if (::linkat(from, oldName.constData(), to, newName.constData(), 0) == 0)
        return ::unlinkat(from, oldName.constData(), 0) == 0;
    if (errno == EEXIST || existsAt(to, newName)) {
        errno = EEXIST;
        return false;
    }
    return ::renameat(from, oldName.constData(), to, newName.constData()) == 0;
}

bool renameWithoutReplacing(
    int from, const QByteArray &oldName, int to, const QByteArray &newName, bool isFolder)
{
    if (::renameat2(from, oldName.constData(), to, newName.constData(), RENAME_NOREPLACE) == 0)
        return true;
    return (errno == EINVAL || errno == ENOSYS) && claimingRename(from, oldName, to, newName, isFolder);
}

DriveError renameError(bool isFolder)
{
    // Into itself, or one kind over the other.
    if (errno == EINVAL)
        return {DriveError::Kind::Denied, QStringLiteral("rename: a folder cannot go into itself")};
    if (errno == EISDIR || errno == ENOTDIR)
        return error("rename", EEXIST);
    if (errno == EEXIST && isFolder)
        return error("rename", ENOTEMPTY);
    return lastError("rename");
}

using Folder = std::unique_ptr<DIR, int (*)(DIR *)>;

// A descriptor of its own, as the position in a folder belongs to the open file.
Folder readFolder(int folder)
{
    UniqueFd fd(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR *handle = fd ? ::fdopendir(fd.get()) : nullptr;
    if (handle)
        fd.release();
    return {handle, ::closedir};
}

bool isDotName(const char *name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// At once, as removing while reading may skip some.
std::optional<QVector<QByteArray>> namesIn(int folder)
{
    const Folder content = readFolder(folder);
    if (!content)
        return {};
    QVector<QByteArray> names;
    while (const dirent *found = ::readdir(content.get())) {
        if (!isDotName(found->d_name))
            names.append(found->d_name);
    }
    return names;
}

bool removeTree(int folder, const QByteArray &name, int depth, bool &begun)
{
    if (::unlinkat(folder, name.constData(), 0) == 0)
        return begun = true;
    if (errno == ENOENT)
        return true;
    if ((errno != EISDIR && errno != EPERM) || depth > 2 * DeepestFolder)
        return false;
    const UniqueFd inner(::openat(folder, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const auto names = inner ? namesIn(inner.get()) : std::nullopt;
    if (!names)
        return false;
    ::fchmod(inner.get(), 0700); // a copy may already have permissions that forbid this
    int problem = 0;             // the first one; what can go goes all the same
    for (const QByteArray &child : *names) {
        if (!removeTree(inner.get(), child, depth + 1, begun) && problem == 0)
            problem = errno;
    }
    if (problem == 0)
        return ::unlinkat(folder, name.constData(), AT_REMOVEDIR) == 0;
    errno = problem;
    return false;
}

} // namespace

DriveError error(const char *what, int code)
{
    using Kind = DriveError::Kind;
    const auto kind = [code] {
        switch (code) {
        case ENOENT:
        case ENOTDIR:
        case ELOOP: // a link where a folder or file was
            return Kind::NotFound;
        case EEXIST:
            return Kind::Exists;
        case EACCES:
        case EPERM:
        case EROFS:
            return Kind::Denied;
        case ENAMETOOLONG:
        case EILSEQ:
            return Kind::InvalidName;
        case ENOTEMPTY:
            return Kind::NotEmpty;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return Kind::DiskFull;
        case ENOTCONN:
        case ESTALE:
        case EHOSTDOWN:
            return Kind::Offline;
        default:
            return Kind::Io;
        }
    };
    const std::string reason = std::generic_category().message(code);
    return {kind(), QLatin1String(what) % QLatin1String(": ") % QString::fromStdString(reason)};
}

DriveError lastError(const char *what)
{
    return error(what, errno);
}

QByteArray descriptorPath(int fd)
{
    return "/proc/self/fd/" + QByteArray::number(fd);
}

UniqueFd openFolder(int parent, const QString &name)
{
    return UniqueFd(
        ::openat(parent, name.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

std::optional<Entry> entryAt(int folder, const QString &name, const QByteArray &root)
{
    return entryAt(folder, name.toUtf8(), root);
}

std::optional<Entry> entryOf(int fd)
{
    struct statx status
    {
    };
    if (!statxOf(fd, "", AT_EMPTY_PATH, status))
        return {};
    return toEntry(status);
}

bool isReadableName(const QByteArray &name)
{
    return QString::fromUtf8(name).toUtf8() == name;
}

DriveResult<QVector<Entry>> entriesOf(int folder, const QByteArray &root, int &unreadable)
{
    const Folder content = readFolder(folder);
    if (!content)
        return lastError("list");
    QVector<Entry> entries;
    errno = 0;
    while (const dirent *found = ::readdir(content.get())) {
        const QByteArray name(found->d_name);
        if (isDotName(found->d_name) || name.startsWith(HiddenPrefix))
            continue;
        if (!isReadableName(name))
            ++unreadable;
        else if (auto entry = entryAt(folder, name, root))
            entries.append(std::move(*entry));
        else if (errno != ENOENT) // not known is not gone
            return lastError("list");
        errno = 0;
    }
    if (errno)
        return lastError("list");
    return entries;
}

UniqueFd openFile(int folder, const QString &name, const QByteArray &root)
{
    constexpr int Flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const QByteArray bytes = name.toUtf8();
    UniqueFd fd(::openat(folder, bytes.constData(), Flags | O_NOFOLLOW));
    struct statx status
    {
    };
    if (fd && statxOf(fd.get(), "", AT_EMPTY_PATH, status) && !S_ISREG(status.stx_mode)) {
        errno = S_ISDIR(status.stx_mode) ? EISDIR : ENOENT;
        return {};
    }
    if (fd || errno != ELOOP)
        return fd;
    const UniqueFd target = linkedFile(folder, bytes, root, status);
    if (!target)
        return {};
    return UniqueFd(::open(descriptorPath(target.get()).constData(), Flags));
}

DriveResult<QString> rename(
    int from, const QString &oldName, int to, const QString &newName, bool isFolder, DriveConflict conflict)
{
    constexpr int MostNumbers = 10000;
    const QByteArray old = oldName.toUtf8();
    if (conflict == DriveConflict::Replace) {
        if (::renameat(from, old.constData(), to, newName.toUtf8().constData()) != 0)
            return renameError(isFolder);
        return newName;
    }
    QString name = newName;
    for (int number = 2; !renameWithoutReplacing(from, old, to, name.toUtf8(), isFolder); ++number) {
        if (errno == EEXIST && conflict == DriveConflict::Fail)
            return lastError("rename");
        if (errno != EEXIST || number > MostNumbers)
            return renameError(false);
        name = numberedDriveName(newName, number, isFolder);
    }
    return name;
}

int modeAt(int folder, const QString &name)
{
    struct stat status
    {
    };
    const bool found = ::fstatat(folder, name.toUtf8().constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    return found && S_ISREG(status.st_mode) ? int(status.st_mode & 0777) : -1;
}

int usualMode()
{
    // The mask can otherwise be read only by changing it, which another thread would notice.
    constexpr char Label[] = "Umask:";
    QFile status(QStringLiteral("/proc/self/status"));
    QByteArray line;
    if (status.open(QIODevice::ReadOnly)) {
        do
            line = status.readLine();
        while (!line.isEmpty() && !line.startsWith(Label));
    }
    bool known = false;
    const int mask = line.mid(int(std::strlen(Label))).trimmed().toInt(&known, 8);
    return known ? 0666 & ~mask : 0600;
}

bool removeTree(int folder, const QString &name, bool *begun)
{
    bool any = false;
    const bool gone = removeTree(folder, name.toUtf8(), 0, any);
    if (begun)
        *begun = any;
    return gone;
}

} // namespace zel::service::disk
