#include "base/trash/trashmove.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::trash {
namespace {

// For file systems whose rename() cannot be told to keep what is there. A second name is given to files only.
int moveInSteps(const QByteArray &from, const QByteArray &to)
{
    if (::linkat(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), 0) == 0) {
        // Gone already is as good; otherwise it stays where it is, and only there.
        const int error = ::unlink(from.constData()) == 0 || errno == ENOENT ? 0 : errno;
        if (error != 0)
            ::unlink(to.constData());
        return error;
    }
    if (errno == EEXIST)
        return errno;
    struct stat status = {};
    if (::lstat(to.constData(), &status) == 0)
        return EEXIST;
    return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

} // namespace

int moveTo(const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    return errno == EINVAL || errno == ENOSYS ? moveInSteps(from, to) : errno;
}

Outcome outcomeOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return Outcome::Missing;
    case EEXIST:
        return Outcome::Exists;
    case EACCES:
    case EPERM:
    case EROFS:
    case EXDEV:  // another file system
    case EBUSY:  // a mount point
    case EINVAL: // the folder that the trash is in
        return Outcome::Denied;
    default:
        return Outcome::Failed;
    }
}

Result failure(int error, const char *during)
{
    Result result;
    result.outcome = outcomeOf(error);
    result.logText = QString::fromLatin1(during) + QStringLiteral(": ") + qt_error_string(error);
    return result;
}

} // namespace zel::trash
