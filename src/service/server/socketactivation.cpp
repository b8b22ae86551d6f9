#include "service/server/socketactivation.h"

#include "base/logging.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/socket.h>

namespace zel::service {
namespace {

constexpr int FirstDescriptor = 3;

int socketOption(int fd, int option)
{
    int value = 0;
    socklen_t size = sizeof(value);
    return ::getsockopt(fd, SOL_SOCKET, option, &value, &size) == 0 ? value : -1;
}

bool isListeningUnixStream(int fd)
{
    return socketOption(fd, SO_DOMAIN) == AF_UNIX && socketOption(fd, SO_TYPE) == SOCK_STREAM
        && socketOption(fd, SO_ACCEPTCONN) == 1;
}

bool makeOurs(int fd)
{
    const int flags = ::fcntl(fd, F_GETFL);
    return flags >= 0 && ::fcntl(fd, F_SETFL, flags | O_NONBLOCK) == 0
        && ::fcntl(fd, F_SETFD, FD_CLOEXEC) == 0;
}

std::string taken(const char *variable)
{
    const char *value = std::getenv(variable);
    const std::string text = value ? value : "";
    ::unsetenv(variable);
    return text;
}

} // namespace

posix::UniqueFd takeActivationSocket()
{
    const std::string process = taken("LISTEN_PID");
    const std::string count = taken("LISTEN_FDS");
    ::unsetenv("LISTEN_FDNAMES");
    if (process != std::to_string(::getpid()) || count.empty())
        return {};
    if (count == "1" && isListeningUnixStream(FirstDescriptor) && makeOurs(FirstDescriptor))
        return posix::UniqueFd(FirstDescriptor);
    qCWarning(lcService, "the service manager passed something else than one listening socket");
    return {};
}

} // namespace zel::service
