#include "cloud/wire/framechannel.h"

#include "cloud/wire/limits.h"

#include <QPointer>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <endian.h>
#include <sys/socket.h>

using namespace std::chrono_literals;

namespace zel::wire {
namespace {

constexpr int LengthSize = 4;
constexpr int UsualRoom = 64 << 10;
constexpr int KeptRoom = 1 << 20;    // a larger buffer is given back when it is empty
constexpr int MostReceipts = 16;     // then the loop's other sources have their turn
constexpr qint64 MostHeld = 1 << 18; // bytes held back to be sent together
constexpr size_t MostParts = 64;     // of one system call

uint32_t lengthAt(const char *bytes)
{
    uint32_t length = 0;
    std::memcpy(&length, bytes, sizeof(length));
    return be32toh(length);
}

} // namespace

FrameChannel::FrameChannel(posix::UniqueFd socket, FrameHandler onFrame, QObject *parent)
    : QObject(parent),
      m_socket(std::move(socket)),
      m_onFrame(std::move(onFrame)),
      m_readable(m_socket.get(), QSocketNotifier::Read),
      m_writable(m_socket.get(), QSocketNotifier::Write)
{
    m_writable.setEnabled(false);
    m_frameTimeout.setSingleShot(true);
    m_frameTimeout.setInterval(30s);
    m_sendTimeout.setSingleShot(true);
    connect(&m_sendTimeout, &QTimer::timeout, this,
        [this] { fail(QStringLiteral("the other end does not read")); });
    connect(&m_readable, &QSocketNotifier::activated, this, &FrameChannel::onReadable);
    connect(&m_writable, &QSocketNotifier::activated, this, &FrameChannel::onWritable);
    connect(&m_frameTimeout, &QTimer::timeout, this,
        [this] { fail(QStringLiteral("half a frame, then silence")); });
}

FrameChannel::~FrameChannel() = default;

void FrameChannel::send(const QByteArray &frame)
{
    if (!m_socket || frame.isEmpty())
        return;
    const bool held = m_sendingTogether && m_handling && m_waitingBytes < MostHeld;
    if (m_output.empty() && !held && sendWhole(frame))
        return;
    m_output.push_back(frame);
    m_waitingBytes += frame.size();
    if (!held && !m_writable.isEnabled())
        flush();
}

// The usual case, which needs no queue. False when nothing was taken; flush() then finds out why.
bool FrameChannel::sendWhole(const QByteArray &frame)
{
    const ssize_t sent =
        ::send(m_socket.get(), frame.constData(), size_t(frame.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent <= 0 || sent == frame.size())
        return sent > 0;
    m_output.push_back(frame.mid(int(sent)));
    m_waitingBytes += frame.size() - sent;
    waitForRoom();
    return true;
}

void FrameChannel::waitForRoom()
{
    m_writable.setEnabled(true);
    if (m_sendTimeout.interval() > 0)
        m_sendTimeout.start();
}

void FrameChannel::setPaused(bool paused)
{
    if (m_paused == paused || !m_socket)
        return;
    m_paused = paused;
    m_readable.setEnabled(!paused);
    if (!paused && m_inputEnd > m_inputStart && !m_handling)
        QMetaObject::invokeMethod(
            this, [this] { handleFrames(); }, Qt::QueuedConnection);
}

void FrameChannel::close()
{
    m_readable.setEnabled(false);
    m_writable.setEnabled(false);
    m_frameTimeout.stop();
    m_sendTimeout.stop();
    m_socket.reset();
    m_output.clear();
    m_waitingBytes = 0;
}

void FrameChannel::fail(const QString &why)
{
    if (!m_socket)
        return;
    close();
    Q_EMIT closed(why);
}

void FrameChannel::onReadable()
{
    const QPointer<FrameChannel> self(this);
    for (int i = 0; i < MostReceipts; ++i) {
        const Received received = receive();
        if (received == Received::Failed || !handleFrames() || !self || !m_socket || m_paused)
            return;
        if (received == Received::All)
            return;
    }
}

// One system call. A short one has emptied the socket, which spares the next.
FrameChannel::Received FrameChannel::receive()
{
    makeRoom();
    const int room = m_input.size() - m_inputEnd;
    const ssize_t got = ::recv(m_socket.get(), m_input.data() + m_inputEnd, size_t(room), 0);
    if (got > 0) {
        m_inputEnd += int(got);
        return got < room ? Received::All : Received::Some;
    }
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return Received::All;
    if (got < 0)
        fail(QString::fromLocal8Bit(std::strerror(errno)));
    else
        fail(m_inputEnd > m_inputStart ? QStringLiteral("the connection ended inside a frame") : QString());
    return Received::Failed;
}

// Room grows with the bytes that really came, never with what a length claims.
void FrameChannel::makeRoom()
{
    const int held = m_inputEnd - m_inputStart;
    if (m_inputStart > 0 && held > 0)
        std::memmove(m_input.data(), m_input.constData() + m_inputStart, size_t(held));
    m_inputStart = 0;
    m_inputEnd = held;
    if (held == 0 && m_input.size() > KeptRoom)
        m_input = QByteArray();
    const int wanted = held + std::max(UsualRoom, std::min(held, KeptRoom));
    if (m_input.size() < wanted)
        m_input.resize(wanted);
}

// False when the channel is gone or closed.
bool FrameChannel::handleFrames()
{
    const QPointer<FrameChannel> self(this);
    m_handling = true;
    const char *bytes = nullptr;
    size_t size = 0;
    bool handled = false;
    while (m_socket && !m_paused && takeFrame(&bytes, &size)) {
        handled = true;
        goOnInsideHandler();
        m_onFrame(bytes, size);
        if (!self)
            return false;
    }
    m_handling = false;
    if (!m_socket)
        return false;
    if (m_waitingBytes > 0 && !m_writable.isEnabled())
        flush();
    watchFrame(handled);
    return true;
}

// The time of a frame begins with its first byte, however slowly the others drip in.
void FrameChannel::watchFrame(bool isAnother)
{
    const bool incomplete = m_inputEnd > m_inputStart && !m_paused;
    if (incomplete && (isAnother || !m_frameTimeout.isActive()))
        m_frameTimeout.start();
    else if (!incomplete && m_frameTimeout.isActive())
        m_frameTimeout.stop();
}

// An event loop inside the handler hears of no bytes that are here already.
void FrameChannel::goOnInsideHandler()
{
    if (m_sendingTogether || m_goOnPosted || !holdsFrame())
        return;
    m_goOnPosted = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_goOnPosted = false;
            if (m_socket && holdsFrame())
                handleFrames();
        },
        Qt::QueuedConnection);
}

bool FrameChannel::holdsFrame() const
{
    const int held = m_inputEnd - m_inputStart;
    return held >= LengthSize && uint32_t(held - LengthSize) >= lengthAt(m_input.constData() + m_inputStart);
}

// The frame counts as handled before it is, so that an event loop inside the handler goes on with the next.
bool FrameChannel::takeFrame(const char **bytes, size_t *size)
{
    const int held = m_inputEnd - m_inputStart;
    if (held < LengthSize)
        return false;
    const uint32_t length = lengthAt(m_input.constData() + m_inputStart);
    if (length > LargestFrame) {
        fail(QStringLiteral("a frame of %1 bytes").arg(length));
        return false;
    }
    if (uint32_t(held - LengthSize) < length)
        return false;
    *bytes = m_input.constData() + m_inputStart + LengthSize;
    *size = length;
    m_inputStart += LengthSize + int(length);
    return true;
}

void FrameChannel::onWritable()
{
    m_writable.setEnabled(false);
    m_sendTimeout.stop();
    flush();
    if (m_socket && m_waitingBytes == 0)
        Q_EMIT drained();
}

void FrameChannel::flush()
{
    while (m_waitingBytes > 0) {
        std::array<iovec, MostParts> parts;
        size_t count = 0;
        for (auto it = m_output.begin(); it != m_output.end() && count < MostParts; ++it, ++count) {
            const int offset = count == 0 ? m_outputOffset : 0;
            parts[count] = {const_cast<char *>(it->constData()) + offset, size_t(it->size() - offset)};
        }
        msghdr message = {};
        message.msg_iov = parts.data();
        message.msg_iovlen = count;
        const ssize_t sent = ::sendmsg(m_socket.get(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent < 0 && (errno == EPIPE || errno == ECONNRESET))
            return giveUpSending();
        if (sent <= 0)
            return waitForRoom();
        dropOutput(size_t(sent));
    }
}

void FrameChannel::dropOutput(size_t sent)
{
    m_waitingBytes -= qint64(sent);
    while (sent > 0) {
        const size_t left = size_t(m_output.front().size() - m_outputOffset);
        if (sent < left) {
            m_outputOffset += int(sent);
            return;
        }
        sent -= left;
        m_outputOffset = 0;
        m_output.pop_front();
    }
}

// The other end has gone, but what it sent before may still wait; the end of that closes the channel.
void FrameChannel::giveUpSending()
{
    m_output.clear();
    m_outputOffset = 0;
    m_waitingBytes = 0;
    QMetaObject::invokeMethod(this, &FrameChannel::drained, Qt::QueuedConnection);
}

} // namespace zel::wire
