#include "launcher/connection.h"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>

namespace zel::launcher {

Connection::Connection(posix::UniqueFd fd, std::chrono::milliseconds silence)
    : m_fd(std::move(fd)), m_silence(silence), m_deadline(posix::deadlineIn(silence))
{
}

short Connection::wantedEvents() const
{
    switch (m_state) {
    case State::Reading:
        return POLLIN;
    case State::Waiting:
        return POLLRDHUP;
    case State::Writing:
        return POLLOUT;
    case State::Done:
        break;
    }
    return 0;
}

void Connection::handle(short events)
{
    if (m_state == State::Reading && (events & (POLLIN | POLLHUP | POLLERR)) != 0)
        read();
    else if (m_state == State::Waiting && (events & (POLLRDHUP | POLLHUP | POLLERR)) != 0)
        m_state = State::Done; // whoever asked has given up, so the command must not run any more
    else if (m_state == State::Writing && (events & (POLLOUT | POLLHUP | POLLERR)) != 0)
        write();
}

void Connection::expire()
{
    if (hasDeadline() && std::chrono::steady_clock::now() >= m_deadline)
        m_state = State::Done;
}

Message Connection::message() const
{
    return m_reader.message();
}

void Connection::reply(std::u16string text)
{
    m_reply = encodeFrame({{}, std::move(text)}).value_or(std::string());
    proceed(State::Writing);
    write();
}

void Connection::read()
{
    char buffer[65536];
    const ssize_t got = ::recv(m_fd.get(), buffer, sizeof(buffer), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (got <= 0)
        return proceed(State::Done);
    switch (m_reader.feed({buffer, static_cast<std::size_t>(got)})) {
    case FrameReader::State::Incomplete:
        return proceed(State::Reading);
    case FrameReader::State::Complete:
        return proceed(State::Waiting);
    case FrameReader::State::Broken:
        return proceed(State::Done);
    }
}

void Connection::write()
{
    const ssize_t sent =
        ::send(m_fd.get(), m_reply.data() + m_written, m_reply.size() - m_written, MSG_NOSIGNAL);
    if (sent < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (sent < 0)
        return proceed(State::Done);
    m_written += static_cast<std::size_t>(sent);
    proceed(m_written == m_reply.size() ? State::Done : State::Writing);
}

void Connection::proceed(State state)
{
    m_state = state;
    m_deadline = posix::deadlineIn(m_silence);
}

} // namespace zel::launcher
