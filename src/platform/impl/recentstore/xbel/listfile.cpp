#include "listfile.h"

#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::recent {
namespace {

FileStamp toStamp(const struct stat &status)
{
    return {qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec, qint64(status.st_size),
        qint64(status.st_ino)};
}

} // namespace

ListFileState openListFile(const QString &path, QFile &file, FileStamp &stamp)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0)
        return errno == ENOENT || errno == ENOTDIR ? ListFileState::Missing : ListFileState::Unusable;
    struct stat status
    {
    };
    const bool regular = ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
    if (!regular || !file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        return ListFileState::Unusable;
    }
    stamp = toStamp(status);
    return ListFileState::Opened;
}

FileStamp stampOf(const QFile &file)
{
    struct stat status
    {
    };
    return ::fstat(file.handle(), &status) == 0 ? toStamp(status) : FileStamp{};
}

std::optional<FileStamp> stampOf(const QString &path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return toStamp(status);
}

// A link that leads nowhere may do so again tomorrow, and so may a folder that is not there.
std::optional<FileStamp> stampOfCleared(const QString &path)
{
    const std::optional<FileStamp> stamp = stampOf(path);
    if (stamp)
        return stamp->size == 0 && QFileInfo(path).isFile() ? stamp : std::nullopt;
    struct stat status
    {
    };
    const bool isGone = ::lstat(QFile::encodeName(path).constData(), &status) != 0 && errno == ENOENT;
    return isGone && QFileInfo(QFileInfo(path).path()).isDir() ? std::optional(FileStamp()) : std::nullopt;
}

} // namespace zel::recent
