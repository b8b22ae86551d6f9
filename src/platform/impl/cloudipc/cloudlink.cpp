#include "cloudlink.h"

#include "base/logging.h"
#include "base/posix/runtimedir.h"
#include "base/posix/unixsocket.h"
#include "retrydelay.h"

#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <sys/socket.h>

using namespace std::chrono_literals;

namespace zel::cloudipc {
namespace {

// A connection that held this long ends a row of failures; one that breaks at once belongs to the row.
constexpr std::chrono::milliseconds steady = 30s;

} // namespace

CloudLink::CloudLink(QObject *parent) : QObject(parent)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &CloudLink::connectOrLaunch);
    connect(&m_starter, &ServiceStarter::ready, this, &CloudLink::connectToReady);
    connect(&m_starter, &ServiceStarter::failed, this, &CloudLink::pause);
}

CloudLink::~CloudLink() = default;

void CloudLink::start(const QString &program, const QStringList &arguments)
{
    m_program = program;
    m_arguments = arguments;
    if (m_state == State::Connected || m_state == State::Starting)
        return;
    m_failures = 0;
    m_retry.stop();
    connectOrLaunch();
}

void CloudLink::connectOrLaunch()
{
    const auto path = socketPath();
    if (!path)
        return pause();
    posix::UniqueFd fd = posix::connectUnixNow(*path);
    if (fd)
        return adopt(std::move(fd));
    if (errno == ENOENT || errno == ECONNREFUSED)
        return launch();
    qCWarning(lcPlatform, "cannot connect to the cloud service: %s", std::strerror(errno));
    pause();
}

void CloudLink::connectToReady()
{
    const auto path = socketPath();
    posix::UniqueFd fd = path ? posix::connectUnixNow(*path) : posix::UniqueFd();
    if (fd)
        return adopt(std::move(fd));
    qCWarning(lcPlatform, "cannot connect to the started cloud service: %s", std::strerror(errno));
    pause();
}

void CloudLink::launch()
{
    m_state = State::Starting;
    if (!m_starter.start(m_program, m_arguments))
        pause();
}

void CloudLink::adopt(posix::UniqueFd fd)
{
    if (!posix::peerIsSameUser(fd.get())) {
        qCWarning(lcPlatform, "the cloud service's socket is served by another user");
        return pause();
    }
    m_fd = std::move(fd);
    m_notifier = std::make_unique<QSocketNotifier>(m_fd.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &CloudLink::onReadable);
    m_state = State::Connected;
    m_connected.start();
    m_announced = false;
    // Later, also when the service was there already: callers connect to our signals after they have started
    // us.
    QMetaObject::invokeMethod(
        this, [this, number = ++m_connection] { announce(number); }, Qt::QueuedConnection);
}

void CloudLink::announce(int connection)
{
    if (m_state != State::Connected || connection != m_connection)
        return;
    m_announced = true;
    qCInfo(lcPlatform, "connected to the cloud service");
    Q_EMIT up();
}

void CloudLink::onReadable()
{
    char byte = 0;
    const ssize_t got = ::recv(m_fd.get(), &byte, sizeof(byte), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    drop(got > 0 ? "it sent something that we do not understand" : "it closed the connection");
}

void CloudLink::drop(const char *why)
{
    qCWarning(lcPlatform, "cloud service lost: %s", why);
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // this may be its own signal
    m_fd.reset();
    if (m_connected.hasExpired(steady.count()))
        m_failures = 0;
    const bool announced = m_announced;
    pause();
    if (announced)
        Q_EMIT lost();
}

// Counts a failure and waits before the next try, longer each time.
void CloudLink::pause()
{
    const auto delay = retryDelay(++m_failures);
    m_state = delay ? State::Pausing : State::Stopped;
    if (delay)
        m_retry.start(*delay);
    else
        qCWarning(lcPlatform, "gives up on the cloud service after %d tries", m_failures);
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
