#include "launcher/instanceserver.h"

#include "base/posix/unixsocket.h"
#include "launcher/hostmessages.h"
#include "launcher/protocol.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace zel::launcher {
namespace {

constexpr std::size_t fixedEntries = 3; // wake-up, exit signal, listener; the connections follow
constexpr std::chrono::milliseconds acceptPause{1000};

void drain(int eventFd)
{
    std::uint64_t count = 0;
    [[maybe_unused]] const auto got = ::read(eventFd, &count, sizeof(count));
}

Message exitMessage()
{
    return {transmissionChannel, std::u16string(activateKey) + exitCommand};
}

} // namespace

InstanceServer::InstanceServer(int listener, HostMessages &messages, int exitSignal, Limits limits)
    : m_listener(listener), m_messages(messages), m_exitSignal(exitSignal), m_limits(limits)
{
}

InstanceServer::~InstanceServer()
{
    stop();
}

bool InstanceServer::start()
{
    m_wake.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!m_wake)
        return false;
    m_messages.onRegistration([this] { wake(); });
    try {
        m_thread = std::thread(&InstanceServer::run, this);
    } catch (const std::system_error &error) {
        errno = error.code().value();
        return false;
    }
    return true;
}

void InstanceServer::stop()
{
    if (!m_thread.joinable())
        return;
    m_messages.onRegistration({});
    m_stop = true;
    wake();
    m_thread.join();
    m_connections.clear();
}

void InstanceServer::wake()
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(m_wake.get(), &one, sizeof(one));
}

void InstanceServer::run()
{
    std::vector<pollfd> polled;
    while (!m_stop) {
        collect(polled);
        if (::poll(polled.data(), polled.size(), pollTimeout()) < 0 && errno != EINTR) {
            std::perror("zelbox: cannot take messages of later starts any more");
            return;
        }
        handle(polled);
        deliver();
        dropFinished();
    }
}

void InstanceServer::collect(std::vector<pollfd> &polled) const
{
    // A negative descriptor is skipped by poll.
    polled.assign(
        {{m_wake.get(), POLLIN, 0}, {m_exitSignal, POLLIN, 0}, {mayAccept() ? m_listener : -1, POLLIN, 0}});
    for (const Connection &connection : m_connections)
        polled.push_back({connection.fd(), connection.wantedEvents(), 0});
}

// The nearest deadline, or for ever.
int InstanceServer::pollTimeout() const
{
    std::optional<posix::Deadline> nearest;
    for (const Connection &connection : m_connections) {
        if (connection.hasDeadline() && (!nearest || connection.deadline() < *nearest))
            nearest = connection.deadline();
    }
    const bool paused = m_connections.size() < m_limits.connections && !mayAccept();
    if (paused && (!nearest || m_acceptAgain < *nearest))
        nearest = m_acceptAgain;
    return nearest ? static_cast<int>(posix::timeLeft(*nearest).count()) : -1;
}

void InstanceServer::handle(const std::vector<pollfd> &polled)
{
    if (polled[0].revents != 0)
        drain(m_wake.get());
    if (polled[1].revents != 0) {
        m_exitWanted = true;
        m_exitSignal = -1; // comes once: the next signal ends the process
    }
    auto entry = polled.begin() + fixedEntries;
    for (Connection &connection : m_connections) {
        connection.handle((entry++)->revents);
        connection.expire();
    }
    handleListener(polled[2].revents);
}

void InstanceServer::handleListener(short events)
{
    if (events == 0)
        return;
    posix::UniqueFd fd = posix::acceptUnix(m_listener);
    if (fd && posix::peerIsSameUser(fd.get()))
        m_connections.emplace_back(std::move(fd), m_limits.silence);
    else if (!fd && errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
        m_acceptAgain = posix::deadlineIn(acceptPause); // else poll would report the same connection for ever
}

void InstanceServer::deliver()
{
    if (m_exitWanted && m_messages.deliver(exitMessage()))
        m_exitWanted = false;
    bool held = false;
    for (Connection &connection : m_connections) {
        if (connection.state() == Connection::State::Waiting)
            held = !deliverTo(connection, held) || held;
    }
}

// False when the message has to wait. `held`: an earlier one waits, and the box gets them in the order of
// arrival.
bool InstanceServer::deliverTo(Connection &connection, bool held)
{
    const Message message = connection.message();
    const bool forBox = message.channel == transmissionChannel;
    if (forBox && held)
        return false;
    std::optional<std::u16string> reply = m_messages.deliver(message);
    if (!reply && forBox)
        return false;
    connection.reply(reply.value_or(errorReply)); // nobody will ever listen on another channel
    return true;
}

void InstanceServer::dropFinished()
{
    m_connections.remove_if([](const Connection &c) { return c.state() == Connection::State::Done; });
}

bool InstanceServer::mayAccept() const
{
    return m_connections.size() < m_limits.connections && std::chrono::steady_clock::now() >= m_acceptAgain;
}

} // namespace zel::launcher
