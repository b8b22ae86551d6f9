#include "service/server/clientsession.h"

#include "base/logging.h"
#include "cloud/wire/limits.h"
#include "common_types.h"

#include <QPointer>
#include <algorithm>
#include <malloc.h>

namespace zel::service {
namespace {

constexpr qint64 KeptBytes = 1 << 20; // of memory that waiting answers took

} // namespace

using wire::MessageHead;
using wire::MessageKind;
using wire::ServiceError;

ClientSession::ClientSession(ClientId id, posix::UniqueFd socket, const MethodTable &methods,
    const SessionLimits &limits, QObject *parent)
    : QObject(parent),
      m_id(id),
      m_methods(methods),
      m_limits(limits),
      m_channel(std::move(socket), [this](const char *bytes, size_t size) { onFrame(bytes, size); })
{
    m_channel.setSendingTogether(true);
    m_channel.setFrameTimeout(limits.frameTime);
    connect(&m_channel, &wire::FrameChannel::drained, this, &ClientSession::onDrained);
    connect(&m_channel, &wire::FrameChannel::closed, this, [this](const QString &why) {
        if (why.isEmpty())
            close();
        else
            drop(why);
    });
    m_stall.setInterval(limits.stallTime);
    connect(&m_stall, &QTimer::timeout, this, &ClientSession::onStalled);
    m_handshake.setSingleShot(true);
    connect(
        &m_handshake, &QTimer::timeout, this, [this] { drop(QStringLiteral("it did not say who it is")); });
    m_handshake.start(limits.handshakeTime);
}

void ClientSession::push(const QByteArray &frame)
{
    if (isWelcome())
        send(frame);
}

void ClientSession::finish()
{
    if (m_state == State::Closed || m_state == State::Ending)
        return;
    m_state = State::Ending;
    m_handshake.stop();
    updateReading();
    closeWhenDone();
}

void ClientSession::drop(const QString &why)
{
    if (m_state == State::Closed)
        return;
    qCWarning(lcService, "client %llu: %s; connection closed", quint64(m_id), qUtf8Printable(why));
    close();
}

void ClientSession::close()
{
    if (m_state == State::Closed)
        return;
    m_state = State::Closed;
    m_handshake.stop();
    m_stall.stop();
    m_channel.close();
    Q_EMIT closed();
}

void ClientSession::onFrame(const char *bytes, size_t size)
{
    wire::MessageReader message(bytes, size);
    MessageHead head;
    if (!message.readHead(head))
        return drop(message.error());
    if (head.kind != MessageKind::Call)
        return drop(QStringLiteral("it sent what only a service sends"));
    if (m_state == State::Greeting && !isGreeting(head, bytes, size))
        return;
    serve(head, message, size);
    if (m_state == State::Greeting) {
        m_state = State::Open; // now, so that nothing is pushed before the greeting is answered
        Q_EMIT welcomed();
    }
}

// The first request is read twice: here for the version, afterwards by its method like any other.
bool ClientSession::isGreeting(const MessageHead &head, const char *bytes, size_t size)
{
    m_handshake.stop();
    wire::MessageReader message(bytes, size);
    MessageHead same;
    vela::GetVersionArg who;
    if (head.method != "getVersion" || !message.readHead(same) || !message.readRequest(who)) {
        refuse(head,
            QStringLiteral("The first request must be getVersion of version %1.").arg(wire::ProtocolVersion));
        return false;
    }
    if (who.protocolVersion != wire::ProtocolVersion) {
        refuse(head,
            QStringLiteral("The client speaks version %1 of the link, this service version %2.")
                .arg(who.protocolVersion)
                .arg(wire::ProtocolVersion));
        return false;
    }
    qCInfo(lcService, "client %llu is process %lld", quint64(m_id), qlonglong(who.processId));
    return true;
}

void ClientSession::refuse(const MessageHead &head, const QString &why)
{
    qCWarning(lcService, "client %llu was refused: %s", quint64(m_id), qUtf8Printable(why));
    const wire::MethodType *method = wire::findMethod(head.method);
    if (head.method == "getVersion") {
        vela::GetVersionResult answer;
        answer.state = int32_t(ServiceError::VersionMismatch);
        answer.errorInfo = wire::errorInfo(ServiceError::VersionMismatch, why);
        answer.protocolVersion = wire::ProtocolVersion;
        send(wire::replyFrame(head.method, head.sequence, answer));
    } else if (method) {
        ++m_owed;
        makeReply(*method, head.sequence, 0).fail(ServiceError::VersionMismatch, why);
    } else {
        send(wire::refusalFrame(head.method, head.sequence, wire::Refusal::InvalidMessage, why));
    }
    finish();
}

void ClientSession::serve(const MessageHead &head, wire::MessageReader &message, size_t size)
{
    const wire::MethodType *method = wire::findMethod(head.method);
    if (!method) {
        return send(wire::refusalFrame(head.method, head.sequence, wire::Refusal::UnknownMethod,
            QStringLiteral("There is no such method.")));
    }
    ++m_owed;
    m_owedBytes += qint64(size);
    if (!m_methods.call(*method, message, makeReply(*method, head.sequence, size))) {
        qCWarning(
            lcService, "client %llu: %s; connection closed", quint64(m_id), qUtf8Printable(message.error()));
        finish();
    }
    updateReading();
}

Reply ClientSession::makeReply(const wire::MethodType &method, int32_t sequence, size_t size)
{
    return Reply(method, sequence, m_id, [self = QPointer(this), size](const QByteArray &frame) {
        if (self)
            self->deliver(frame, size);
    });
}

void ClientSession::deliver(const QByteArray &frame, size_t size)
{
    --m_owed;
    m_owedBytes -= qint64(size);
    send(frame);
    updateReading();
    if (m_state == State::Ending)
        closeWhenDone();
}

void ClientSession::send(const QByteArray &frame)
{
    if (m_state == State::Closed)
        return;
    if (m_channel.bytesWaiting() > m_limits.mostBytes)
        return drop(QStringLiteral("it does not read what it is sent"));
    m_queued += frame.size();
    m_channel.send(frame);
    updateReading();
}

void ClientSession::onDrained()
{
    if (m_mostWaiting > KeptBytes)
        ::malloc_trim(0); // it waited in small pieces, which the C library would keep
    m_mostWaiting = 0;
    updateReading();
    closeWhenDone();
}

// Both pauses end later than they begin, so that a slow client does not switch them with every answer.
void ClientSession::updateReading()
{
    if (m_state == State::Closed)
        return;
    const qint64 waiting = m_channel.bytesWaiting();
    m_mostWaiting = std::max(m_mostWaiting, waiting);
    m_backedUp = waiting > m_limits.pauseBytes || (m_backedUp && waiting > 0);
    const bool owesTooMuch = m_owed >= m_limits.mostOwed || m_owedBytes >= m_limits.mostOwedBytes;
    const bool owesLittle = m_owed <= m_limits.mostOwed / 2 && m_owedBytes <= m_limits.mostOwedBytes / 2;
    m_owesMuch = owesTooMuch || (m_owesMuch && !owesLittle);
    m_channel.setPaused(m_backedUp || m_owesMuch || m_state == State::Ending);
    watchStall();
}

void ClientSession::watchStall()
{
    const bool waits = m_backedUp || (m_state == State::Ending && m_channel.bytesWaiting() > 0);
    if (!waits) {
        m_stall.stop();
    } else if (!m_stall.isActive()) {
        m_takenBefore = m_queued - m_channel.bytesWaiting();
        m_stall.start();
    }
}

void ClientSession::onStalled()
{
    const qint64 taken = m_queued - m_channel.bytesWaiting();
    if (taken == m_takenBefore)
        drop(QStringLiteral("it has stopped reading"));
    m_takenBefore = taken;
}

// On a later turn: what was answered together is sent once the frame's handling has ended.
void ClientSession::closeWhenDone()
{
    if (m_state != State::Ending || m_owed > 0)
        return;
    const auto look = [this] {
        if (m_state == State::Ending && m_owed == 0 && m_channel.bytesWaiting() == 0)
            close();
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

} // namespace zel::service
