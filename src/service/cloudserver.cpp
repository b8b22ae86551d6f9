#include "service/cloudserver.h"

#include "base/logging.h"
#include "base/posix/unixsocket.h"
#include "service/clientconnection.h"

#include <cerrno>
#include <cstring>

namespace {

constexpr std::chrono::seconds acceptPause{1};
constexpr std::chrono::seconds startLockTime{1};

} // namespace

CloudServer::CloudServer(zel::posix::SingleInstance &instance, QObject *parent)
    : QObject(parent), m_instance(instance), m_listening(instance.listener(), QSocketNotifier::Read)
{
    m_acceptAgain.setSingleShot(true);
    m_acceptAgain.setInterval(acceptPause);
    m_grace.setSingleShot(true);
    connect(&m_listening, &QSocketNotifier::activated, this, &CloudServer::acceptClients);
    connect(&m_acceptAgain, &QTimer::timeout, this, [this] { m_listening.setEnabled(true); });
    connect(&m_grace, &QTimer::timeout, this, &CloudServer::finishUnlessWanted);
}

void CloudServer::finishWithoutClients(std::chrono::milliseconds grace)
{
    m_finishWithoutClients = true;
    m_grace.setInterval(grace);
    if (m_clients == 0)
        m_grace.start();
}

void CloudServer::acceptClients()
{
    while (acceptOne()) { }
}

// False when none waits.
bool CloudServer::acceptOne()
{
    zel::posix::UniqueFd fd = zel::posix::acceptUnix(m_instance.listener());
    if (!fd) {
        const bool another = errno == EINTR || errno == ECONNABORTED;
        if (!another && errno != EAGAIN) {
            qCWarning(lcService, "cannot accept a client: %s", std::strerror(errno));
            // Else the waiting client would wake us for ever.
            m_listening.setEnabled(false);
            m_acceptAgain.start();
        }
        return another;
    }
    if (!zel::posix::peerIsSameUser(fd.get())) {
        qCWarning(lcService, "a process of another user was refused");
        return true;
    }
    auto *client = new ClientConnection(std::move(fd), this);
    connect(client, &ClientConnection::closed, this, [this, client] { onClientClosed(client); });
    ++m_clients;
    m_grace.stop();
    qCInfo(lcService, "client connected, %d in all", m_clients);
    return true;
}

void CloudServer::onClientClosed(ClientConnection *client)
{
    client->deleteLater();
    --m_clients;
    qCInfo(lcService, "client gone, %d left", m_clients);
    if (m_clients == 0 && m_finishWithoutClients)
        m_grace.start();
}

// Whoever starts a service meanwhile waits; a client that has just connected keeps this one.
void CloudServer::finishUnlessWanted()
{
    const auto starts = m_instance.holdStarts(zel::posix::deadlineIn(startLockTime));
    acceptClients();
    if (m_clients > 0)
        return;
    m_listening.setEnabled(false);
    m_acceptAgain.stop();
    m_instance.release();
    Q_EMIT finished();
}
