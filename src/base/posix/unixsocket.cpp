#include "base/posix/unixsocket.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace zel::posix {
namespace {

bool fillAddress(const std::string &path, sockaddr_un &address)
{
    address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

// Every byte counts in the name of an abstract socket; a path ends at its zero.
socklen_t addressSize(const std::string &path)
{
    return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() + (path[0] == '\0' ? 0 : 1));
}

UniqueFd connected(UniqueFd fd, const std::string &path)
{
    sockaddr_un address;
    if (!fd || !fillAddress(path, address))
        return {};
    int result = 0;
    do {
        result = ::connect(fd.get(), reinterpret_cast<const sockaddr *>(&address), addressSize(path));
    } while (result != 0 && errno == EINTR);
    if (result != 0) {
        const int error = errno; // closing the descriptor may change it
        fd.reset();
        errno = error;
    }
    return fd;
}

} // namespace

UniqueFd listenUnix(const std::string &path, int backlog)
{
    sockaddr_un address;
    if (!fillAddress(path, address))
        return {};
    UniqueFd fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!fd)
        return {};
    ::unlink(path.c_str());
    const auto *generic = reinterpret_cast<const sockaddr *>(&address);
    // The folder is 0700, so nobody can connect between bind and chmod.
    if (::bind(fd.get(), generic, sizeof(address)) != 0 || ::chmod(path.c_str(), 0600) != 0
        || ::listen(fd.get(), backlog) != 0)
        return {};
    return fd;
}

UniqueFd connectUnixUntil(const std::string &path, Deadline deadline)
{
    UniqueFd fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // A send time-out also limits connect; zero would mean "for ever".
    const long long left = std::max<long long>(timeLeft(deadline).count(), 1);
    const timeval wait = {static_cast<time_t>(left / 1000), static_cast<suseconds_t>(left % 1000) * 1000};
    if (!fd || ::setsockopt(fd.get(), SOL_SOCKET, SO_SNDTIMEO, &wait, sizeof(wait)) != 0)
        return {};
    return connected(std::move(fd), path);
}

UniqueFd connectUnixNow(const std::string &path)
{
    UniqueFd fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return connected(std::move(fd), path);
}

UniqueFd acceptUnix(int listener)
{
    return UniqueFd(::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

bool peerIsSameUser(int fd)
{
    ucred credentials = {};
    socklen_t size = sizeof(credentials);
    if (::getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 || size != sizeof(credentials))
        return false;
    return credentials.uid == ::geteuid();
}

} // namespace zel::posix
