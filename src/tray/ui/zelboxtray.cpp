#include "tray/ui/zelboxtray.h"

#include "tray/statusnotifieritem.h"
#include "tray/trayimage.h"
#include "tray/traylink.h"
#include "tray/ui/traymenu.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

ZelBoxTray::ZelBoxTray(QObject *parent)
    : QObject(parent),
      m_menu(std::make_unique<QMenu>()),
      m_item(new StatusNotifierItem(this)),
      m_link(new TrayLink(m_item, this))
{
    makeMenu();
    connectItem();
    updateText();
    m_link->prepare = [this](const QDBusConnection &bus) {
        if (zel::tray::exportMenu(m_menu.get(), bus))
            m_item->setMenuPath(QLatin1String(zel::tray::MenuPath));
    };
    connect(m_link, &TrayLink::settled, this, &ZelBoxTray::updateFallback);
    m_link->start();
}

ZelBoxTray::~ZelBoxTray() = default;

void ZelBoxTray::makeMenu()
{
    m_menu->addAction(tr("Show ZEL Box"), this, &ZelBoxTray::mainWindowRequested);
    m_menu->addAction(tr("Mini Window"), this, &ZelBoxTray::miniWindowRequested);
    m_menu->addAction(tr("Quick Search"), this, &ZelBoxTray::quickSearchRequested);
    m_menu->addAction(tr("Settings"), this, &ZelBoxTray::settingsRequested);
    m_menu->addSeparator();
    m_menu->addAction(tr("Exit"), this, &ZelBoxTray::exitRequested);
}

void ZelBoxTray::connectItem()
{
    connect(m_item, &StatusNotifierItem::activated, this, &ZelBoxTray::onClicked);
    connect(m_item, &StatusNotifierItem::secondaryActivated, this, &ZelBoxTray::miniWindowRequested);
    connect(m_item, &StatusNotifierItem::contextMenuRequested, m_menu.get(),
        [this](const QPoint &globalPos) { m_menu->popup(globalPos); });
}

void ZelBoxTray::onClicked()
{
    m_item->setAttention(false);
    Q_EMIT activated();
}

void ZelBoxTray::setState(const QString &state)
{
    m_state = state;
    updateText();
}

void ZelBoxTray::setUnread(int count)
{
    if (count > m_unread)
        m_item->setAttention(true);
    else if (count <= 0)
        m_item->setAttention(false);
    m_unread = count;
    m_item->setUnread(count);
    updateText();
}

void ZelBoxTray::setTransfers(int underWay)
{
    m_transfers = underWay;
    updateText();
}

void ZelBoxTray::updateText()
{
    QStringList parts{m_state};
    if (m_state.isEmpty() && m_unread > 0)
        parts << tr("%Ln new or changed document(s)", nullptr, m_unread);
    if (m_transfers > 0)
        parts << tr("%Ln transfer(s) under way", nullptr, m_transfers);
    parts.removeAll(QString());
    const QString text = parts.join(QStringLiteral(" · "));
    m_item->setText(text);
    if (!m_fallback)
        return;
    const QString name = m_item->title();
    m_fallback->setToolTip(text.isEmpty() ? name : tr("%1: %2").arg(name, text));
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48})
        icon.addPixmap(QPixmap::fromImage(zel::tray::image(size, m_unread)));
    m_fallback->setIcon(icon);
}

bool ZelBoxTray::reachable() const
{
    return m_link->isShown() || (m_fallback && QSystemTrayIcon::isSystemTrayAvailable());
}

// Not before the bus has answered: Qt's own icon asks the bus as well, and waits for it.
void ZelBoxTray::updateFallback()
{
    const bool wanted = !m_link->isShown() && QGuiApplication::platformName() == QLatin1String("xcb");
    if (!wanted) {
        m_fallback.reset();
    } else if (!m_fallback) {
        m_fallback = std::make_unique<QSystemTrayIcon>();
        updateText();
        m_fallback->setContextMenu(m_menu.get());
        connect(m_fallback.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    onClicked();
                else if (reason == QSystemTrayIcon::MiddleClick)
                    Q_EMIT miniWindowRequested();
            });
        m_fallback->show();
    }
    if (const bool now = reachable(); std::exchange(m_told, now) != now)
        Q_EMIT reachableChanged(now);
}
