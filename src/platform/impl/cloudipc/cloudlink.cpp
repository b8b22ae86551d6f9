#include "cloudlink.h"

#include "base/logging.h"
#include "base/posix/runtimedir.h"
#include "base/posix/unixsocket.h"
#include "handshake.h"
#include "retrydelay.h"

#include <QPointer>
#include <cerrno>
#include <cstring>

using namespace std::chrono_literals;

namespace zel::cloudipc {
namespace {

// A connection that held this long ends a row of failures; one that breaks at once belongs to the row.
constexpr std::chrono::milliseconds steady = 30s;
// A service that takes no byte for so long hangs; what waits for it must not grow for ever.
constexpr std::chrono::milliseconds stalled = 60s;

} // namespace

CloudLink::CloudLink(MessageHandler onMessage, QObject *parent)
    : QObject(parent), m_onMessage(std::move(onMessage))
{
    m_retry.setSingleShot(true);
    m_handshakeTimeout.setSingleShot(true);
    m_handshakeTimeout.setInterval(10s);
    connect(&m_retry, &QTimer::timeout, this, &CloudLink::connectOrLaunch);
    connect(&m_handshakeTimeout, &QTimer::timeout, this,
        [this] { drop(QStringLiteral("it did not answer the introduction in time")); });
    connect(&m_starter, &ServiceStarter::ready, this, &CloudLink::connectToReady);
    connect(&m_starter, &ServiceStarter::failed, this, &CloudLink::failTry);
}

CloudLink::~CloudLink() = default;

void CloudLink::start(const QString &program, const QStringList &arguments, const QString &clientName)
{
    m_program = program;
    m_arguments = arguments;
    m_clientName = clientName;
    if (m_state == State::Connected || m_state == State::Starting || m_state == State::Introducing)
        return;
    m_failures = 0;
    m_error.clear();
    m_retry.stop();
    connectOrLaunch();
}

void CloudLink::connectOrLaunch()
{
    const auto path = socketPath();
    if (!path)
        return failTry();
    posix::UniqueFd fd = posix::connectUnixNow(*path);
    if (fd)
        return adopt(std::move(fd));
    if (errno == ENOENT || errno == ECONNREFUSED)
        return launch();
    qCWarning(lcPlatform, "cannot connect to the cloud service: %s", std::strerror(errno));
    failTry();
}

void CloudLink::connectToReady()
{
    const auto path = socketPath();
    posix::UniqueFd fd = path ? posix::connectUnixNow(*path) : posix::UniqueFd();
    if (fd)
        return adopt(std::move(fd));
    qCWarning(lcPlatform, "cannot connect to the started cloud service: %s", std::strerror(errno));
    failTry();
}

void CloudLink::launch()
{
    m_state = State::Starting;
    if (!m_starter.start(m_program, m_arguments))
        failTry();
}

void CloudLink::adopt(posix::UniqueFd fd)
{
    if (!posix::peerIsSameUser(fd.get())) {
        qCWarning(lcPlatform, "the cloud service's socket is served by another user");
        return failTry();
    }
    m_channel = std::make_unique<wire::FrameChannel>(
        std::move(fd), [this](const char *bytes, size_t size) { onFrame(bytes, size); });
    connect(m_channel.get(), &wire::FrameChannel::closed, this, [this](const QString &why) {
        drop(why.isEmpty() ? QStringLiteral("it closed the connection") : why);
    });
    m_channel->setSendTimeout(stalled);
    m_state = State::Introducing;
    ++m_connection;
    m_handshakeTimeout.start();
    m_channel->send(handshakeFrame(m_clientName));
}

void CloudLink::send(const QByteArray &frame)
{
    if (m_state == State::Connected)
        m_channel->send(frame);
}

void CloudLink::onFrame(const char *bytes, size_t size)
{
    wire::MessageReader reader(bytes, size);
    wire::MessageHead head;
    if (!reader.readHead(head))
        reject(reader.error());
    else if (m_state == State::Introducing)
        onHandshake(head, reader);
    else
        m_onMessage(head, reader);
}

void CloudLink::onHandshake(const wire::MessageHead &head, wire::MessageReader &reader)
{
    QString why;
    switch (readHandshake(head, reader, &why)) {
    case Handshake::Damaged:
        return reject(why);
    case Handshake::Refused:
        return onRefused(why);
    case Handshake::Accepted:
        break;
    }
    m_handshakeTimeout.stop();
    m_state = State::Connected;
    m_connected.start();
    qCInfo(lcPlatform, "connected to the cloud service");
    Q_EMIT up();
}

// Another try would end the same way: somebody has to replace one of the two programs first.
void CloudLink::onRefused(const QString &why)
{
    qCWarning(lcPlatform, "%s", qUtf8Printable(why));
    closeChannel();
    m_state = State::Refused;
    m_error = why;
    const QPointer<CloudLink> self(this);
    Q_EMIT unreachable();
    if (self)
        Q_EMIT refused(why);
}

void CloudLink::reject(const QString &why)
{
    drop(QStringLiteral("it sent something that we do not understand: ") + why);
}

void CloudLink::drop(const QString &why)
{
    if (!m_channel)
        return;
    qCWarning(lcPlatform, "cloud service lost: %s", qUtf8Printable(why));
    closeChannel();
    if (m_state != State::Connected)
        return failTry();
    if (m_connected.hasExpired(steady.count()))
        m_failures = 0;
    pause();
    Q_EMIT lost();
}

// It may be the one that is calling us.
void CloudLink::closeChannel()
{
    m_handshakeTimeout.stop();
    m_channel->close();
    m_channel.release()->deleteLater();
}

// Counts a failure and waits before the next try, longer each time.
void CloudLink::pause()
{
    m_state = State::Pausing;
    m_retry.start(retryDelay(++m_failures));
}

void CloudLink::failTry()
{
    pause();
    Q_EMIT unreachable();
}

std::optional<std::string> CloudLink::socketPath() const
{
    const posix::RuntimeDir folder = posix::openRuntimeDir();
    if (!folder.path.empty())
        return folder.path + "/cloud.sock";
    qCWarning(lcPlatform, "no cloud service: %s", folder.error.c_str());
    return std::nullopt;
}

} // namespace zel::cloudipc
