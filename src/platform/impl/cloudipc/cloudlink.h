#pragma once

#include "base/posix/uniquefd.h"
#include "cloud/wire/framechannel.h"
#include "cloud/wire/message.h"
#include "servicestarter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace zel::cloudipc {

/// One connection to the cloud service, kept up once started: starts the service when nobody listens,
/// introduces the client, comes back after a loss, and gives up only when it is refused. GUI thread; never
/// blocks; has no timer running while connected.
class CloudLink final : public QObject
{
    Q_OBJECT
public:
    enum class State { Stopped, Starting, Introducing, Connected, Pausing, Refused };
    /// Gets each message after the introduction. May destroy the link.
    using MessageHandler = std::function<void(const wire::MessageHead &, wire::MessageReader &)>;

    explicit CloudLink(MessageHandler onMessage, QObject *parent = nullptr);
    ~CloudLink() override;

    /// `program` is started with `arguments` when needed. Does nothing while connected or connecting; ends a
    /// pause.
    void start(const QString &program, const QStringList &arguments, const QString &clientName);
    void send(const QByteArray &frame); ///< while connected
    void reject(const QString &why);    ///< ends the connection: the service broke the rules

    State state() const { return m_state; }
    int connectionNumber() const { return m_connection; } ///< of the latest one
    QString error() const { return m_error; }             ///< why it was refused, else empty
    void setHandshakeTimeout(std::chrono::milliseconds timeout) { m_handshakeTimeout.setInterval(timeout); }

Q_SIGNALS:
    void up();                        ///< on a later turn of the loop than start()
    void lost();                      ///< follows each up() at most once
    void unreachable();               ///< a try ended without a connection; perhaps inside start()
    void refused(const QString &why); ///< after unreachable(); no other try follows by itself

private:
    void connectOrLaunch();
    void connectToReady();
    void launch();
    void adopt(posix::UniqueFd fd);
    void onFrame(const char *bytes, size_t size);
    void onHandshake(const wire::MessageHead &head, wire::MessageReader &reader);
    void onRefused(const QString &why);
    void drop(const QString &why);
    void closeChannel();
    void pause();
    void failTry();
    std::optional<std::string> socketPath() const;

    MessageHandler m_onMessage;
    QString m_program;
    QStringList m_arguments;
    QString m_clientName;
    QString m_error;
    State m_state = State::Stopped;
    int m_failures = 0;
    int m_connection = 0;
    QElapsedTimer m_connected;
    std::unique_ptr<wire::FrameChannel> m_channel;
    ServiceStarter m_starter;
    QTimer m_retry;
    QTimer m_handshakeTimeout;
};

} // namespace zel::cloudipc
