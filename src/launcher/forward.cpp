#include "launcher/forward.h"

#include "base/posix/unixsocket.h"
#include "launcher/frame.h"

#include <cerrno>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>

namespace zel::launcher {
namespace {

using Result = Forwarding::Result;

constexpr char silent[] = "the running box does not answer";

Forwarding failed(std::string error)
{
    return {Result::Failed, {}, std::move(error), 0};
}

Forwarding failedWithErrno(const char *what)
{
    return failed(std::string(what) + ": " + std::strerror(errno));
}

Forwarding notConnected()
{
    if (errno == ECONNREFUSED || errno == ENOENT)
        return {Result::Gone, {}, {}, 0};
    return errno == EAGAIN ? failed(silent) : failedWithErrno("cannot reach the running box");
}

// The far end closed, or broke with a message of ours unread.
Forwarding closedBy(int fd)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    const bool known = ::getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
    return {Result::Gone, {}, {}, known ? peer.pid : 0};
}

bool waitFor(int fd, short events, posix::Deadline deadline)
{
    pollfd entry = {fd, events, 0};
    int result = 0;
    do {
        result = ::poll(&entry, 1, static_cast<int>(posix::timeLeft(deadline).count()));
    } while (result < 0 && errno == EINTR);
    return result > 0;
}

bool wouldBlock()
{
    return errno == EAGAIN || errno == EINTR;
}

Forwarding receiveReply(int fd, posix::Deadline deadline)
{
    FrameReader reader;
    char buffer[1024];
    while (waitFor(fd, POLLIN, deadline)) {
        const ssize_t got = ::recv(fd, buffer, sizeof(buffer), MSG_DONTWAIT);
        if (got < 0 && wouldBlock())
            continue;
        if (got == 0 || (got < 0 && errno == ECONNRESET))
            return closedBy(fd);
        if (got < 0)
            return failedWithErrno("no answer from the running box");
        const auto state = reader.feed({buffer, static_cast<std::size_t>(got)});
        if (state == FrameReader::State::Complete)
            return {Result::Answered, reader.message().text, {}, 0};
        if (state == FrameReader::State::Broken)
            return failed("the running box gave an answer that makes no sense");
    }
    return failed(silent);
}

Forwarding exchange(int fd, std::string_view frame, posix::Deadline deadline)
{
    while (!frame.empty()) {
        if (!waitFor(fd, POLLOUT, deadline))
            return failed(silent);
        const ssize_t sent = ::send(fd, frame.data(), frame.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && wouldBlock())
            continue;
        if (sent < 0)
            return errno == EPIPE || errno == ECONNRESET ? closedBy(fd)
                                                         : failedWithErrno("cannot reach the running box");
        frame.remove_prefix(static_cast<std::size_t>(sent));
    }
    return receiveReply(fd, deadline);
}

} // namespace

Forwarding forwardMessage(const std::string &socketPath, const Message &message, posix::Deadline deadline)
{
    const std::optional<std::string> frame = encodeFrame(message);
    if (!frame)
        return failed("the command line is too long");
    const posix::UniqueFd fd = posix::connectUnixUntil(socketPath, deadline);
    if (!fd)
        return notConnected();
    if (!posix::peerIsSameUser(fd.get()))
        return failed(socketPath + " is served by another user");
    return exchange(fd.get(), *frame, deadline);
}

} // namespace zel::launcher
