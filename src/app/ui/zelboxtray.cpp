#include "app/ui/zelboxtray.h"

#include "app/commandtarget.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

ZelBoxTray::ZelBoxTray(CommandTarget *target, QObject *parent)
    : QObject(parent),
      m_target(target),
      m_icon(new QSystemTrayIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")), this)),
      m_menu(new QMenu)
{
    m_menu->addAction(tr("Show ZEL Box"), this, [this] { m_target->showMainWindow(); });
    m_menu->addAction(tr("Mini window"), this, [this] { m_target->showMiniWindow(QStringLiteral("tray")); });
    m_menu->addAction(tr("Settings"), this, [this] { m_target->openSettings(QString()); });
    m_menu->addSeparator();
    m_menu->addAction(tr("Exit"), this, [this] { m_target->quitLater(); });
    m_icon->setContextMenu(m_menu);
    connect(m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            m_target->showMainWindow();
    });
    setState(QString());
    m_icon->show();
}

ZelBoxTray::~ZelBoxTray()
{
    m_icon->hide();
    delete m_menu;
}

void ZelBoxTray::setState(const QString &state)
{
    const QString name = QStringLiteral("ZEL Box");
    m_icon->setToolTip(state.isEmpty() ? name : tr("%1: %2").arg(name, state));
}
