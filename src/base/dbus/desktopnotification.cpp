#include "base/dbus/desktopnotification.h"

#include "base/dbus/sessionbus.h"
#include "base/logging.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <chrono>

using namespace std::chrono_literals;

namespace zel {
namespace {

constexpr std::chrono::milliseconds Patience = 5s;
constexpr int ByTheDesktop = -1; // how long it is shown

const QLatin1String Service("org.freedesktop.Notifications");
const QLatin1String Path("/org/freedesktop/Notifications");
const QLatin1String ClickAction("default"); // by the standard, a click on the message itself

QDBusMessage callOf(const char *method)
{
    return QDBusMessage::createMethodCall(Service, Path, Service, QLatin1String(method));
}

} // namespace

DesktopNotification::DesktopNotification(QObject *parent) : QObject(parent) { }

DesktopNotification::~DesktopNotification()
{
    if (m_id != 0)
        m_bus.send(callOf("CloseNotification") << m_id);
}

void DesktopNotification::show(const QString &title, const QString &text)
{
    m_title = title;
    m_text = text;
    sessionbus::open(this, [this] {
        if (!m_bus.isConnected()) {
            m_bus = QDBusConnection::sessionBus();
            // Without a service name: naming it would make Qt look up its owner and wait for the answer.
            m_bus.connect({}, Path, Service, QStringLiteral("ActionInvoked"), this,
                SLOT(onActionInvoked(uint, QString)));
            m_bus.connect(
                {}, Path, Service, QStringLiteral("NotificationClosed"), this, SLOT(onClosed(uint)));
        }
        askForMarkup();
    });
}

template <class Answer> void DesktopNotification::call(const QDBusMessage &message, Answer answer)
{
    auto *pending = new QDBusPendingCallWatcher(m_bus.asyncCall(message, int(Patience.count())), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answer] {
        pending->deleteLater();
        if (pending->isError())
            qCInfo(lcApp, "no message of the desktop can be shown: %ls",
                qUtf16Printable(pending->error().name()));
        else
            answer(*pending);
    });
}

// Some show marks as such, the others show the letters.
void DesktopNotification::askForMarkup()
{
    call(callOf("GetCapabilities"), [this](const QDBusPendingReply<QStringList> &reply) {
        send(reply.value().contains(QLatin1String("body-markup")));
    });
}

void DesktopNotification::send(bool understandsMarkup)
{
    const QStringList actions{ClickAction, m_title};
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("org.zelbox.ZelBox")}};
    QDBusMessage message = callOf("Notify");
    message << QStringLiteral("ZEL Box") << m_id << QStringLiteral("zelbox") << m_title
            << (understandsMarkup ? m_text.toHtmlEscaped() : m_text) << actions << hints << ByTheDesktop;
    call(message, [this](const QDBusPendingReply<uint> &reply) { m_id = reply.value(); });
}

void DesktopNotification::onActionInvoked(uint id, const QString &action)
{
    if (id == m_id && action == ClickAction)
        Q_EMIT chosen();
}

void DesktopNotification::onClosed(uint id)
{
    if (id == m_id)
        m_id = 0;
}

} // namespace zel
