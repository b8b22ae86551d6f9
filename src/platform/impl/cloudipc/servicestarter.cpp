#include "servicestarter.h"

#include "base/logging.h"
#include "childprocess.h"

#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zel::cloudipc {
namespace {

constexpr std::chrono::seconds readyTime{10};

} // namespace

ServiceStarter::ServiceStarter(QObject *parent) : QObject(parent)
{
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(readyTime);
    connect(&m_timeout, &QTimer::timeout, this, &ServiceStarter::onTimeout);
}

ServiceStarter::~ServiceStarter() = default;

bool ServiceStarter::start(const QString &program, const QStringList &arguments)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcPlatform, "cannot start the service process: %s", std::strerror(errno));
        return false;
    }
    m_report.reset(ends[0]);
    // Ours is closed again at once: when the process ends early, the pipe does too.
    const posix::UniqueFd handed(ends[1]);
    const QStringList own = {QStringLiteral("--ready-fd"), QString::number(handedFd)};
    if (startDetached(program, own + arguments, handed.get()) < 0) {
        qCWarning(lcPlatform, "cannot start the service process: %s", std::strerror(errno));
        m_report.reset();
        return false;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_report.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ServiceStarter::onReport);
    m_timeout.start();
    return true;
}

void ServiceStarter::onReport()
{
    char byte = 0;
    const ssize_t got = ::read(m_report.get(), &byte, sizeof(byte));
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    stopWaiting();
    if (got > 0) {
        Q_EMIT ready();
    } else {
        qCWarning(lcPlatform, "the service process ended before it was ready");
        Q_EMIT failed();
    }
}

void ServiceStarter::onTimeout()
{
    stopWaiting();
    qCWarning(lcPlatform, "the service process did not get ready in time");
    Q_EMIT failed();
}

void ServiceStarter::stopWaiting()
{
    m_timeout.stop();
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater(); // this may be its own signal
    m_report.reset();
}

} // namespace zel::cloudipc
