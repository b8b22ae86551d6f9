#include "service/clientconnection.h"

#include "base/logging.h"

#include <cerrno>
#include <sys/socket.h>

ClientConnection::ClientConnection(zel::posix::UniqueFd fd, QObject *parent)
    : QObject(parent), m_fd(std::move(fd)), m_notifier(m_fd.get(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &ClientConnection::onReadable);
}

void ClientConnection::onReadable()
{
    char byte = 0;
    const ssize_t got = ::recv(m_fd.get(), &byte, sizeof(byte), 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (got > 0)
        qCWarning(lcService, "a client sent a request, which is not supported; connection closed");
    close();
}

void ClientConnection::close()
{
    m_notifier.setEnabled(false);
    m_fd.reset();
    Q_EMIT closed();
}
