#include "rotatingfile.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::platform {
namespace {

posix::UniqueFd openForAppend(const QByteArray &path)
{
    // O_NONBLOCK: a FIFO in the file's place must not stop the process.
    posix::UniqueFd file(
        ::open(path.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    struct stat info
    {
    };
    if (file && (::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)))
        file.reset();
    if (file)
        ::fchmod(file.get(), 0600);
    return file;
}

bool isStillNamed(int file, const QByteArray &path)
{
    struct stat open
    {
    };
    struct stat named
    {
    };
    return ::fstat(file, &open) == 0 && ::stat(path.constData(), &named) == 0 && open.st_ino == named.st_ino
        && open.st_dev == named.st_dev;
}

} // namespace

RotatingFile::RotatingFile(const QString &path, qint64 limit)
    : m_path(QFile::encodeName(path)), m_limit(limit)
{
}

bool RotatingFile::append(const QByteArray &line)
{
    const std::lock_guard lock(m_mutex);
    if (!ensureOpen())
        return false;
    const QByteArray bytes = line + '\n';
    ssize_t written = -1;
    do
        written = ::write(m_file.get(), bytes.constData(), size_t(bytes.size()));
    while (written < 0 && errno == EINTR);
    return written == bytes.size();
}

bool RotatingFile::ensureOpen()
{
    if (m_file)
        rotateIfFull();
    if (!m_file) {
        m_file = openForAppend(m_path);
        if (m_file)
            rotateIfFull(); // it may be full from an earlier run
        if (!m_file)
            m_file = openForAppend(m_path);
    }
    return bool(m_file);
}

// Closes the file when it is no longer the one to write to. Another process that renamed the full file is
// noticed here too, because the file under its old descriptor is full as well.
void RotatingFile::rotateIfFull()
{
    struct stat info
    {
    };
    if (::fstat(m_file.get(), &info) != 0 || info.st_nlink == 0) {
        m_file.reset();
        return;
    }
    if (info.st_size < m_limit)
        return;
    ::flock(m_file.get(), LOCK_EX); // of several writers that see it full, one renames
    if (isStillNamed(m_file.get(), m_path))
        shiftOldFiles();
    m_file.reset();
}

QByteArray RotatingFile::numbered(int n) const
{
    return n == 0 ? m_path : m_path + '.' + QByteArray::number(n);
}

void RotatingFile::shiftOldFiles() const
{
    for (int n = OldFiles; n > 0; --n)
        std::rename(numbered(n - 1).constData(), numbered(n).constData());
}

// Writers notice that the file has no name any more.
bool RotatingFile::clear()
{
    const std::lock_guard lock(m_mutex);
    m_file.reset();
    bool done = true;
    for (int n = 0; n <= OldFiles; ++n)
        done &= ::unlink(numbered(n).constData()) == 0 || errno == ENOENT;
    return done;
}

} // namespace zel::platform
