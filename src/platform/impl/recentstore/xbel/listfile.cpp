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

} // namespace zel::recent
