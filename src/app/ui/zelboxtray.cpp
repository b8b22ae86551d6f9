#include "app/ui/zelboxtray.h"

#include "app/commandtarget.h"
#include "app/tray/statusnotifieritem.h"
#include "app/tray/trayimage.h"
#include "app/tray/traylink.h"
#include "app/tray/traymenu.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

ZelBoxTray::ZelBoxTray(CommandTarget *target, QObject *parent)
    : QObject(parent),
      m_target(target),
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
    m_menu->addAction(tr("Show ZEL Box"), this, [this] { m_target->showMainWindow(); });
    m_menu->addAction(tr("Mini window"), this, [this] { m_target->showMiniWindow(QStringLiteral("tray")); });
    m_menu->addAction(tr("Settings"), this, [this] { m_target->openSettings(QString()); });
    m_menu->addSeparator();
    m_menu->addAction(tr("Exit"), this, [this] { m_target->quitLater(); });
}

void ZelBoxTray::connectItem()
{
    connect(m_item, &StatusNotifierItem::activated, this, &ZelBoxTray::toggleMainWindow);
    connect(m_item, &StatusNotifierItem::secondaryActivated, this,
        [this] { m_target->showMiniWindow(QStringLiteral("tray")); });
    connect(m_item, &StatusNotifierItem::contextMenuRequested, m_menu.get(),
        [this](const QPoint &globalPos) { m_menu->popup(globalPos); });
}

// Away only with the window that the person is looking at; one that others cover is brought to the front.
void ZelBoxTray::toggleMainWindow()
{
    m_item->setAttention(false);
    const QWidget *active = QApplication::activeWindow();
    if (active && active->inherits("ZelBoxMainWindow"))
        m_target->sendToBackground();
    else
        m_target->showMainWindow();
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

void ZelBoxTray::updateText()
{
    QString text = m_state;
    if (text.isEmpty() && m_unread > 0)
        text = tr("%n new or changed document(s)", nullptr, m_unread);
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
                    toggleMainWindow();
                else if (reason == QSystemTrayIcon::MiddleClick)
                    m_target->showMiniWindow(QStringLiteral("tray"));
            });
        m_fallback->show();
    }
    if (const bool now = reachable(); std::exchange(m_told, now) != now)
        Q_EMIT reachableChanged(now);
}
