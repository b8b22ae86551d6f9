#include "base/dbus/mutebus.h"

#include "base/posix/unixsocket.h"

#include <QDBusConnection>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zel::sessionbus {
namespace {

constexpr char Variable[] = "DBUS_SESSION_BUS_ADDRESS";

// As libdbus finds it. Empty: by ways of its own, which do not wait.
QByteArray busAddress()
{
    const QByteArray address = qgetenv(Variable);
    if (!address.isEmpty())
        return address;
    const QByteArray path = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFileInfo::exists(QFile::decodeName(path)) ? "unix:path=" + path : QByteArray();
}

// The socket of one "unix:path=/run/user/1000/bus,guid=…"; empty for other kinds of address.
std::string socketOf(const QByteArray &address)
{
    if (!address.startsWith("unix:"))
        return {};
    const QList<QByteArray> pairs = address.mid(int(sizeof("unix:")) - 1).split(',');
    for (const QByteArray &pair : pairs) {
        const std::string value =
            QByteArray::fromPercentEncoding(pair.mid(pair.indexOf('=') + 1)).toStdString();
        if (pair.startsWith("path="))
            return value;
        if (pair.startsWith("abstract="))
            return '\0' + value;
    }
    return {};
}

// The first line of the protocol; whatever comes back, somebody is there.
bool answers(int fd, posix::Deadline deadline)
{
    const QByteArray line =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::geteuid()).toHex() + "\r\n";
    if (::send(fd, line.constData(), size_t(line.size()), MSG_NOSIGNAL) != line.size())
        return true; // it hung up
    pollfd entry = {fd, POLLIN, 0};
    int result = 0;
    do {
        result = ::poll(&entry, 1, int(posix::timeLeft(deadline).count()));
    } while (result < 0 && errno == EINTR);
    return result != 0;
}

} // namespace

bool isMute(std::chrono::milliseconds limit)
{
    const posix::Deadline deadline = posix::deadlineIn(limit);
    const QList<QByteArray> addresses = busAddress().split(';');
    for (const QByteArray &address : addresses) {
        const std::string path = socketOf(address);
        if (path.empty())
            return false;
        const posix::UniqueFd fd = posix::connectUnixUntil(path, deadline);
        if (fd)
            return !answers(fd.get(), deadline);
        if (errno == EAGAIN)
            return true; // its queue is full, so nobody takes connections any more
    }
    return false;
}

bool giveUpIfMute(std::chrono::milliseconds limit)
{
    if (!isMute(limit))
        return false;
    const QByteArray address = qgetenv(Variable);
    qputenv(Variable, "unix:path=/dev/null"); // fails at once; Qt opens the bus a single time
    QDBusConnection::sessionBus();
    if (address.isEmpty())
        qunsetenv(Variable);
    else
        qputenv(Variable, address);
    return true;
}

} // namespace zel::sessionbus
