#include "localsource.h"

#include "drivedisk.h"

#include <QFile>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <memory>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace zel::service {
namespace {

constexpr quint32 MadeUp[] = {PROC_SUPER_MAGIC, SYSFS_MAGIC, DEBUGFS_MAGIC, TRACEFS_MAGIC, SECURITYFS_MAGIC,
    SELINUX_MAGIC, CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC, BPF_FS_MAGIC, EFIVARFS_MAGIC, PSTOREFS_MAGIC,
    DEVPTS_SUPER_MAGIC};

bool isMadeUp(const struct statfs &status)
{
    return std::find(std::begin(MadeUp), std::end(MadeUp), quint32(status.f_type)) != std::end(MadeUp);
}

} // namespace

DriveResult<posix::UniqueFd> openLocalFile(const QString &path)
{
    constexpr int Flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    posix::UniqueFd file(::open(QFile::encodeName(path).constData(), Flags));
    if (!file)
        return disk::lastError("open local file");
    struct stat status
    {
    };
    struct statfs system
    {
    };
    if (::fstat(file.get(), &status) != 0 || ::fstatfs(file.get(), &system) != 0)
        return disk::lastError("look at local file");
    if (!S_ISREG(status.st_mode))
        return DriveError{DriveError::Kind::NotFound, QStringLiteral("the local file is no regular file")};
    if (isMadeUp(system))
        return DriveError{
            DriveError::Kind::Denied, QStringLiteral("the local file is made up by the system")};
    return file;
}

bool isMadeUp(const QString &path)
{
    struct statfs system
    {
    };
    return ::statfs(QFile::encodeName(path).constData(), &system) == 0 && isMadeUp(system);
}

int countUnstorable(const QString &folder, bool withHidden)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> content(
        ::opendir(QFile::encodeName(folder).constData()), [](DIR *dir) { return dir ? ::closedir(dir) : 0; });
    int count = 0;
    while (const dirent *found = content ? ::readdir(content.get()) : nullptr) {
        const QByteArray name(found->d_name);
        count += (withHidden || !name.startsWith('.')) && !disk::isReadableName(name);
    }
    return count;
}

} // namespace zel::service
