#include "app/boxpresence.h"

#include "app/commandtarget.h"
#include "app/desktopactivation.h"
#include "app/goingon.h"
#include "app/transferbubbles.h"
#include "app/zelboxapplication.h"
#include "tray/ui/zelboxtray.h"

#include <QTimer>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {
constexpr auto TrayAwayDelay = 10s;
}

BoxPresence::BoxPresence(CommandTarget &commands, std::function<bool()> isWatched, QObject *parent)
    : QObject(parent),
      m_commands(commands),
      m_goingOn(new GoingOn(this)),
      m_bubbles(new TransferBubbles(std::move(isWatched), this))
{
    connect(m_goingOn, &GoingOn::changed, this, &BoxPresence::setTransfers);
    connect(m_bubbles, &TransferBubbles::transfersRequested, this, &BoxPresence::transfersRequested);
}

void BoxPresence::follow(KCloudSvrProxy *cloud)
{
    m_goingOn->follow(cloud);
    m_bubbles->follow(cloud);
}

void BoxPresence::start()
{
    if (!m_tray)
        startTray();
    // As a guest, the bus name and the windows of the process are the host's affair.
    if (!ZelBoxApplicationIndependentProcesses::isRunning())
        return;
    if (!m_activation)
        m_activation = new DesktopActivation(m_commands, this);
    m_activation->start();
}

void BoxPresence::startTray()
{
    m_tray = new ZelBoxTray(this);
    connect(m_tray, &ZelBoxTray::reachableChanged, this, &BoxPresence::onTrayReachable);
    connect(m_tray, &ZelBoxTray::activated, this, &BoxPresence::trayClicked);
    connect(m_tray, &ZelBoxTray::mainWindowRequested, this, [this] { m_commands.showMainWindow(); });
    connect(m_tray, &ZelBoxTray::miniWindowRequested, this,
        [this] { m_commands.showMiniWindow(QStringLiteral("tray")); });
    connect(m_tray, &ZelBoxTray::quickSearchRequested, this, [this] { m_commands.showMiniWidget(false); });
    connect(m_tray, &ZelBoxTray::settingsRequested, this, [this] { m_commands.openSettings(QString()); });
    connect(m_tray, &ZelBoxTray::exitRequested, this, [this] { m_commands.quitLater(); });
    m_tray->setState(m_trayState);
    m_tray->setUnread(m_unread);
    m_tray->setTransfers(m_transfers);
}

void BoxPresence::stop()
{
    delete std::exchange(m_activation, nullptr);
    delete std::exchange(m_tray, nullptr);
}

void BoxPresence::remakeTray()
{
    if (!m_tray)
        return;
    delete std::exchange(m_tray, nullptr); // first: its name on the bus is wanted again
    startTray();
}

bool BoxPresence::hasTray() const
{
    return m_tray && m_tray->reachable();
}

void BoxPresence::setTrayState(const QString &state)
{
    m_trayState = state;
    if (m_tray)
        m_tray->setState(state);
}

void BoxPresence::setUnread(int count)
{
    m_unread = count;
    if (m_tray)
        m_tray->setUnread(count);
}

void BoxPresence::setTransfers(int underWay)
{
    m_transfers = underWay;
    if (m_tray)
        m_tray->setTransfers(underWay);
}

// A panel that crashes comes back at once.
void BoxPresence::onTrayReachable(bool reachable)
{
    if (reachable)
        return;
    QTimer::singleShot(TrayAwayDelay, this, [this] {
        if (m_tray && !m_tray->reachable())
            Q_EMIT trayLost();
    });
}
