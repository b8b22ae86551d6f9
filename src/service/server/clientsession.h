#pragma once

#include "cloud/wire/framechannel.h"
#include "cloud/wire/message.h"
#include "service/dispatch/methodtable.h"
#include "service/server/sessionlimits.h"

namespace zel::service {

/// One connected client: its handshake, its requests, the answers and pushes that it is sent. Main thread. A
/// client that breaks the rules of the link is cut off with one line in the log; nobody else notices.
class ClientSession final : public QObject
{
    Q_OBJECT
public:
    /// `socket` is a non-blocking one whose other end has been checked. `methods` outlives the session.
    ClientSession(ClientId id, posix::UniqueFd socket, const MethodTable &methods,
        const SessionLimits &limits, QObject *parent);

    ClientId id() const { return m_id; }
    bool isWelcome() const { return m_state == State::Open; } ///< may be told things
    void push(const QByteArray &frame);                       ///< nothing unless isWelcome()
    /// Takes no further request, answers what is owed and then closes.
    void finish();
    void drop(const QString &why); ///< closes at once; `why` goes to the log

Q_SIGNALS:
    void welcomed(); ///< the handshake is done and answered
    void closed();   ///< the last thing it says, once

private:
    enum class State { Greeting, Open, Ending, Closed };

    void onFrame(const char *bytes, size_t size);
    bool isGreeting(const wire::MessageHead &head, const char *bytes, size_t size);
    void refuse(const wire::MessageHead &head, const QString &why);
    void serve(const wire::MessageHead &head, wire::MessageReader &message, size_t size);
    Reply makeReply(const wire::MethodType &method, int32_t sequence, size_t size);
    void deliver(const QByteArray &frame, size_t size);
    void send(const QByteArray &frame);
    void onDrained();
    void onStalled();
    void updateReading();
    void watchStall();
    void closeWhenDone();
    void close();

    const ClientId m_id;
    const MethodTable &m_methods;
    const SessionLimits m_limits;
    wire::FrameChannel m_channel;
    QTimer m_handshake;
    QTimer m_stall;
    State m_state = State::Greeting;
    int m_owed = 0;           ///< requests without an answer
    qint64 m_mostWaiting = 0; ///< bytes, since the last time that all was sent
    qint64 m_owedBytes = 0;   ///< of these
    bool m_owesMuch = false;  ///< reading waits for answers
    bool m_backedUp = false;  ///< reading waits for the client to read
    qint64 m_queued = 0;      ///< bytes handed to the channel so far
    qint64 m_takenBefore = 0; ///< bytes that the client had taken when the stall was last looked at
};

} // namespace zel::service
