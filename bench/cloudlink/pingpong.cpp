#include "pingpong.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Reads what is there; a short read has emptied the socket.
int take(int socket)
{
    char bytes[1 << 16];
    const ssize_t got = ::recv(socket, bytes, sizeof(bytes), MSG_DONTWAIT);
    return int(got);
}

void give(int socket, const QByteArray &bytes)
{
    if (::send(socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) != bytes.size())
        std::abort();
}

} // namespace

PingPong::PingPong(const QString &program, int requestSize, int answerSize, QObject *parent)
    : QObject(parent), m_request(requestSize, 'x'), m_answerSize(answerSize)
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        std::abort();
    m_socket.reset(ends[0]);
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    const zel::posix::UniqueFd other(ends[1]);
    QList<QByteArray> texts = {QFile::encodeName(program), "--echo", QByteArray::number(ends[1]),
        QByteArray::number(requestSize), QByteArray::number(answerSize)};
    char *argv[] = {
        texts[0].data(), texts[1].data(), texts[2].data(), texts[3].data(), texts[4].data(), nullptr};
    if (::posix_spawn(&m_other, argv[0], nullptr, nullptr, argv, environ) != 0)
        std::abort();
    m_readable = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    connect(m_readable.get(), &QSocketNotifier::activated, this, [this] {
        m_received += take(m_socket.get());
        if (m_received < m_answerSize)
            return;
        m_received -= m_answerSize;
        Q_EMIT pong();
    });
}

PingPong::~PingPong()
{
    m_readable.reset();
    m_socket.reset();
    ::waitpid(m_other, nullptr, 0);
}

void PingPong::ping()
{
    give(m_socket.get(), m_request);
}

int PingPong::echo(int socket, int requestSize, int answerSize)
{
    const QByteArray answer(answerSize, 'y');
    int received = 0;
    QSocketNotifier readable(socket, QSocketNotifier::Read);
    QObject::connect(&readable, &QSocketNotifier::activated, [&] {
        const int got = take(socket);
        if (got <= 0)
            QCoreApplication::quit();
        for (received += got; received >= requestSize; received -= requestSize)
            give(socket, answer);
    });
    return QCoreApplication::exec();
}
