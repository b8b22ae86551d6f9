#pragma once

#include "base/posix/uniquefd.h"

#include <QObject>
#include <QSocketNotifier>

/// One connected client. Thread of its event loop. Requests are not understood yet: a client that sends
/// anything is refused by closing its connection.
class ClientConnection final : public QObject
{
    Q_OBJECT
public:
    ClientConnection(zel::posix::UniqueFd fd, QObject *parent);

Q_SIGNALS:
    void closed(); ///< the last thing it says; the connection is closed already

private:
    void onReadable();
    void close();

    zel::posix::UniqueFd m_fd;
    QSocketNotifier m_notifier;
};
