// Loaded before the C library: lets file calls below one folder fail or take long, as faultcontrol.h says.
#include "faultcontrol.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Kind = FaultControl::Kind;

FaultControl *control()
{
    static FaultControl *const found = [] {
        const char *path = std::getenv("ZEL_FAULTS");
        return path ? openFaultControl(path) : nullptr;
    }();
    return found;
}

thread_local bool inside = false; // of what the layer itself calls

bool isMeant(int fd, const char *name)
{
    char path[PATH_MAX];
    std::string place;
    if (!name || name[0] != '/') {
        const std::string self = fd == AT_FDCWD ? "/proc/self/cwd" : "/proc/self/fd/" + std::to_string(fd);
        const ssize_t length = ::readlink(self.c_str(), path, sizeof(path));
        place.assign(path, size_t(length > 0 ? length : 0));
    } else {
        place = name;
    }
    return place.compare(0, std::strlen(control()->folder), control()->folder) == 0;
}

/// False, and errno set: the call is to fail.
bool allows(Kind kind, int fd, const char *name = nullptr)
{
    if (inside)
        return true;
    inside = true;
    const int earlier = errno;
    bool allowed = true;
    FaultControl *const said = control();
    if (said && said->folder[0] && isMeant(fd, name)) {
        const bool failsNow = ++said->calls == said->failAt;
        if (const int takes = said->takes[kind])
            ::usleep(useconds_t(takes) * 1000);
        allowed = !failsNow && !(said->isFull && (kind == Kind::Writes || kind == Kind::Flushes));
    }
    errno = allowed ? earlier : int(said->error);
    inside = false;
    return allowed;
}

template <class Function> Function next(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

Kind openKind(int flags)
{
    return (flags & (O_CREAT | O_TRUNC)) ? Kind::Writes : Kind::Reads;
}

} // namespace

#define ZEL_LAYER(result, failure, name, kind, where, parameters, arguments)                                 \
    extern "C" __attribute__((visibility("default"))) result name parameters                                 \
    {                                                                                                        \
        static const auto real = next<result(*) parameters>(#name);                                          \
        return allows where ? real arguments : failure;                                                      \
    }
#define ZEL_OPEN(name)                                                                                       \
    extern "C" __attribute__((visibility("default"))) int name(const char *path, int flags, ...)             \
    {                                                                                                        \
        static const auto real = next<int (*)(const char *, int, ...)>(#name);                               \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const mode_t mode = va_arg(more, mode_t);                                                            \
        va_end(more);                                                                                        \
        return allows(openKind(flags), AT_FDCWD, path) ? real(path, flags, mode) : -1;                       \
    }
#define ZEL_OPENAT(name)                                                                                     \
    extern "C" __attribute__((visibility("default"))) int name(int folder, const char *path, int flags, ...) \
    {                                                                                                        \
        static const auto real = next<int (*)(int, const char *, int, ...)>(#name);                          \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const mode_t mode = va_arg(more, mode_t);                                                            \
        va_end(more);                                                                                        \
        return allows(openKind(flags), folder, path) ? real(folder, path, flags, mode) : -1;                 \
    }
#define ZEL_FD(result, name, kind, parameters, arguments)                                                    \
    ZEL_LAYER(result, -1, name, kind, (kind, fd), parameters, arguments)

// The headers' declarations say that these throw nothing; that makes no difference here.
#pragma GCC diagnostic ignored "-Wnonnull-compare"

ZEL_OPEN(open)
ZEL_OPEN(open64)
ZEL_OPENAT(openat)
ZEL_OPENAT(openat64)
ZEL_FD(ssize_t, read, Kind::Reads, (int fd, void *bytes, size_t count), (fd, bytes, count))
ZEL_FD(ssize_t, pread64, Kind::Reads, (int fd, void *bytes, size_t count, off64_t at), (fd, bytes, count, at))
ZEL_FD(ssize_t, write, Kind::Writes, (int fd, const void *bytes, size_t count), (fd, bytes, count))
ZEL_FD(ssize_t, pwrite64, Kind::Writes, (int fd, const void *bytes, size_t count, off64_t at),
    (fd, bytes, count, at))
ZEL_FD(int, ftruncate64, Kind::Writes, (int fd, off64_t size), (fd, size))
ZEL_FD(int, fsync, Kind::Flushes, (int fd), (fd))
ZEL_FD(int, fdatasync, Kind::Flushes, (int fd), (fd))
ZEL_FD(int, syncfs, Kind::Flushes, (int fd), (fd))
ZEL_LAYER(ssize_t, -1, copy_file_range, Kind::Writes, (Kind::Writes, to),
    (int from, off64_t *fromAt, int to, off64_t *toAt, size_t count, unsigned flags),
    (from, fromAt, to, toAt, count, flags))
ZEL_LAYER(int, -1, mkdirat, Kind::Writes, (Kind::Writes, fd, name),
    (int fd, const char *name, mode_t mode) noexcept, (fd, name, mode))
ZEL_LAYER(int, -1, unlinkat, Kind::Reads, (Kind::Reads, fd, name),
    (int fd, const char *name, int flags) noexcept, (fd, name, flags))
ZEL_LAYER(int, -1, unlink, Kind::Reads, (Kind::Reads, AT_FDCWD, name), (const char *name) noexcept, (name))
ZEL_LAYER(int, -1, renameat, Kind::Reads, (Kind::Reads, to, newName),
    (int from, const char *name, int to, const char *newName) noexcept, (from, name, to, newName))
ZEL_LAYER(int, -1, renameat2, Kind::Reads, (Kind::Reads, to, newName),
    (int from, const char *name, int to, const char *newName, unsigned flags) noexcept,
    (from, name, to, newName, flags))
ZEL_LAYER(int, -1, statx, Kind::Looks, (Kind::Looks, fd, name),
    (int fd, const char *name, int flags, unsigned mask, struct statx *status) noexcept,
    (fd, name, flags, mask, status))
ZEL_LAYER(int, -1, stat64, Kind::Looks, (Kind::Looks, AT_FDCWD, name),
    (const char *name, struct stat64 *status) noexcept, (name, status))
ZEL_LAYER(int, -1, lstat64, Kind::Looks, (Kind::Looks, AT_FDCWD, name),
    (const char *name, struct stat64 *status) noexcept, (name, status))
ZEL_LAYER(int, -1, stat, Kind::Looks, (Kind::Looks, AT_FDCWD, name),
    (const char *name, struct stat *status) noexcept, (name, status))
ZEL_LAYER(int, -1, fstatat, Kind::Looks, (Kind::Looks, fd, name),
    (int fd, const char *name, struct stat *status, int flags) noexcept, (fd, name, status, flags))
ZEL_LAYER(int, -1, mkdir, Kind::Writes, (Kind::Writes, AT_FDCWD, name),
    (const char *name, mode_t mode) noexcept, (name, mode))
ZEL_LAYER(dirent *, nullptr, readdir, Kind::Reads, (Kind::Reads, ::dirfd(folder)), (DIR * folder), (folder))
ZEL_FD(int, fstat, Kind::Looks, (int fd, struct stat *status) noexcept, (fd, status))
ZEL_FD(int, fstat64, Kind::Looks, (int fd, struct stat64 *status) noexcept, (fd, status))
