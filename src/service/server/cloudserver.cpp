#include "service/server/cloudserver.h"

#include "base/logging.h"
#include "base/posix/unixsocket.h"
#include "service/server/clientsession.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zel::service {
namespace {

constexpr std::chrono::seconds acceptPause{1};
constexpr std::chrono::seconds startLockTime{1};

QByteArray framed(std::string_view method, const apache::thrift::TBase &record)
{
    Q_ASSERT_X(wire::findPush(method), "CloudServer", "only pushes are pushed");
    const QByteArray frame = wire::pushFrame(method, record);
    if (frame.isEmpty())
        qCWarning(lcService, "a push was left out: it is larger than a message may be");
    return frame;
}

} // namespace

CloudServer::CloudServer(
    posix::SingleInstance &instance, const MethodTable &methods, const SessionLimits &limits, QObject *parent)
    : QObject(parent),
      m_instance(instance),
      m_methods(methods),
      m_limits(limits),
      m_listening(instance.listener(), QSocketNotifier::Read)
{
    m_acceptAgain.setSingleShot(true);
    m_acceptAgain.setInterval(acceptPause);
    m_grace.setSingleShot(true);
    m_patience.setSingleShot(true);
    connect(&m_listening, &QSocketNotifier::activated, this, &CloudServer::acceptClients);
    connect(&m_acceptAgain, &QTimer::timeout, this, [this] { m_listening.setEnabled(true); });
    connect(&m_grace, &QTimer::timeout, this, &CloudServer::leaveUnlessWanted);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        for (ClientSession *session : std::vector(m_sessions))
            session->drop(QStringLiteral("the service ends"));
    });
}

CloudServer::~CloudServer() = default;

void CloudServer::push(std::string_view method, const apache::thrift::TBase &record)
{
    if (m_sessions.empty())
        return;
    const QByteArray frame = framed(method, record);
    // A copy: a client that has too much waiting is dropped by this.
    for (ClientSession *session : std::vector(m_sessions))
        session->push(frame);
}

void CloudServer::pushTo(ClientId client, std::string_view method, const apache::thrift::TBase &record)
{
    const auto it = std::find_if(
        m_sessions.begin(), m_sessions.end(), [client](auto *session) { return session->id() == client; });
    if (it != m_sessions.end())
        (*it)->push(framed(method, record));
}

int CloudServer::welcomeCount() const
{
    return int(std::count_if(
        m_sessions.begin(), m_sessions.end(), [](auto *session) { return session->isWelcome(); }));
}

void CloudServer::finishWithoutClients(std::chrono::milliseconds grace, std::function<bool()> hasWork)
{
    m_finishWithoutClients = true;
    m_hasWork = std::move(hasWork);
    m_grace.setInterval(grace);
    workEnded();
}

void CloudServer::workEnded()
{
    if (m_finishWithoutClients && !m_finishing && m_sessions.empty())
        m_grace.start();
}

void CloudServer::finish(std::chrono::milliseconds patience)
{
    if (m_finishing)
        return;
    m_finishing = true;
    m_listening.setEnabled(false);
    m_acceptAgain.stop();
    m_grace.stop();
    m_patience.start(patience);
    for (ClientSession *session : std::vector(m_sessions))
        session->finish();
    if (m_sessions.empty())
        leave();
}

void CloudServer::acceptClients()
{
    while (acceptOne()) { }
}

// False when none waits.
bool CloudServer::acceptOne()
{
    posix::UniqueFd fd = posix::acceptUnix(m_instance.listener());
    if (fd) {
        admit(std::move(fd));
        return true;
    }
    const bool another = errno == EINTR || errno == ECONNABORTED;
    if (!another && errno != EAGAIN) {
        qCWarning(lcService, "cannot accept a client: %s", std::strerror(errno));
        // Else the waiting client would wake us for ever.
        m_listening.setEnabled(false);
        m_acceptAgain.start();
    }
    return another;
}

void CloudServer::admit(posix::UniqueFd socket)
{
    if (!posix::peerIsSameUser(socket.get())) {
        qCWarning(lcService, "a process of another user was refused");
        return;
    }
    if (clientCount() >= MostClients) {
        qCWarning(lcService, "a client was refused: %d are there already", MostClients);
        return;
    }
    auto *session = new ClientSession(ClientId(++m_lastId), std::move(socket), m_methods, m_limits, this);
    connect(session, &ClientSession::closed, this, [this, session] { onClosed(session); });
    connect(session, &ClientSession::welcomed, this, [this, session] { Q_EMIT welcomed(session->id()); });
    m_sessions.push_back(session);
    m_grace.stop();
    qCInfo(lcService, "client %llu connected, %d in all", m_lastId, clientCount());
}

void CloudServer::onClosed(ClientSession *session)
{
    m_sessions.erase(std::find(m_sessions.begin(), m_sessions.end(), session));
    session->deleteLater();
    qCInfo(lcService, "client %llu gone, %d left", quint64(session->id()), clientCount());
    Q_EMIT gone(session->id());
    if (!m_sessions.empty())
        return;
    if (m_finishing)
        leave();
    else
        workEnded();
}

// Whoever starts a service meanwhile waits; a client that has just connected keeps this one.
void CloudServer::leaveUnlessWanted()
{
    if (m_hasWork && m_hasWork()) {
        qCInfo(lcService, "nobody is there; the service stays for the work that is left");
        return;
    }
    const auto starts = m_instance.holdStarts(posix::deadlineIn(startLockTime));
    acceptClients();
    if (!m_sessions.empty())
        return;
    m_listening.setEnabled(false);
    m_acceptAgain.stop();
    m_instance.release();
    leave();
}

void CloudServer::leave()
{
    m_patience.stop();
    if (!std::exchange(m_finished, true))
        Q_EMIT finished();
}

} // namespace zel::service
