#pragma once

#include "base/posix/uniquefd.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <sys/types.h>

/// The floor to measure against: the same number of bytes there and back over the same kind of socket, with
/// the same event loop at both ends and nothing else done.
class PingPong final : public QObject
{
    Q_OBJECT
public:
    /// Starts `program --echo` as the other end.
    PingPong(const QString &program, int requestSize, int answerSize, QObject *parent = nullptr);
    ~PingPong() override;

    void ping();

    /// What the other end does: `socket` gets answerSize bytes for each requestSize. Ends with the
    /// connection.
    static int echo(int socket, int requestSize, int answerSize);

Q_SIGNALS:
    void pong();

private:
    zel::posix::UniqueFd m_socket;
    std::unique_ptr<QSocketNotifier> m_readable;
    QByteArray m_request;
    int m_answerSize;
    int m_received = 0;
    pid_t m_other = -1;
};
