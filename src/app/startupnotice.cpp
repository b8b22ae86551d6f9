#include "app/startupnotice.h"

#include "base/logging.h"

#include <QX11Info>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace {

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto cookie = xcb_intern_atom(connection, false, uint16_t(std::strlen(name)), name);
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return result;
}

QByteArray quoted(const QByteArray &text)
{
    QByteArray result = text;
    result.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + result + '"';
}

// One message to all, in pieces of 20 bytes with the terminating zero. The window only names the sender.
void broadcast(const QByteArray &message)
{
    xcb_connection_t *connection = QX11Info::connection();
    const xcb_window_t root = xcb_window_t(QX11Info::appRootWindow());
    const xcb_window_t sender = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, sender, root, -1, -1, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    constexpr int piece = sizeof(event.data.data8);
    for (int sent = 0; sent <= message.size(); sent += piece) {
        std::memset(event.data.data8, 0, piece);
        std::memcpy(event.data.data8, message.constData() + sent, size_t(qMin(piece, message.size() - sent)));
        xcb_send_event(
            connection, false, root, XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char *>(&event));
        event.type = atom(connection, "_NET_STARTUP_INFO");
    }
    xcb_destroy_window(connection, sender);
    xcb_flush(connection);
}

// A time that is yet to come would make the window manager ignore every later request of ours.
bool isPast(quint32 time)
{
    return qint32(quint32(QX11Info::getTimestamp()) - time) >= 0;
}

} // namespace

const QString StartupToken::IpcKey = QStringLiteral("zelbox_startup");

StartupToken StartupToken::fromIpc(const QString &value)
{
    return {value.section(QLatin1Char('\n'), 0, 0).toUtf8(), value.section(QLatin1Char('\n'), 1, 1).toUtf8()};
}

StartupToken StartupToken::fromPlatformData(const QVariantMap &data)
{
    return {data.value(QStringLiteral("desktop-startup-id")).toString().toUtf8(),
        data.value(QStringLiteral("activation-token")).toString().toUtf8()};
}

void StartupToken::dropFromEnvironment()
{
    qunsetenv("DESKTOP_STARTUP_ID");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

quint32 x11TimeOf(const QByteArray &startupId)
{
    const int mark = startupId.lastIndexOf("_TIME");
    bool isNumber = false;
    const quint32 time = mark < 0 ? 0 : startupId.mid(mark + 5).toUInt(&isNumber);
    return isNumber ? time : 0;
}

StartupNotice::StartupNotice(const StartupToken &token)
{
    if (!QX11Info::isPlatformX11()) {
        if (!token.activationToken.isEmpty())
            qCDebug(lcApp, "Qt has no use for the activation token");
        return;
    }
    if (token.startupId.isEmpty())
        return;
    m_startupId = token.startupId;
    QX11Info::setNextStartupId(m_startupId);
    const quint32 time = x11TimeOf(m_startupId);
    if (time == 0 || !isPast(time))
        return;
    QX11Info::setAppTime(time);
    QX11Info::setAppUserTime(time);
}

StartupNotice::~StartupNotice()
{
    // Qt itself ends it with the next window that appears; when all there are were on the screen, we do.
    if (m_startupId.isEmpty() || QX11Info::nextStartupId() != m_startupId)
        return;
    QX11Info::setNextStartupId({});
    broadcast("remove: ID=" + quoted(m_startupId));
}
