#include "app/backgroundmode.h"

#include "app/boxpresence.h"
#include "app/commandtarget.h"
#include "base/settingskeys.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "mainwindow/ui/zelboxmainwindow.h"

namespace {

QString closeAction()
{
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    return settings.value(zel::keys::CloseAction).toString();
}

} // namespace

BackgroundMode::BackgroundMode(CommandTarget &commands, BoxPresence &presence, QObject *parent)
    : QObject(parent), m_commands(commands), m_presence(presence)
{
    connect(&presence, &BoxPresence::trayClicked, this, &BackgroundMode::onTrayClicked);
    connect(&presence, &BoxPresence::trayLost, this, &BackgroundMode::onTrayLost);
}

void BackgroundMode::setWindow(ZelBoxMainWindow *window)
{
    m_window = window;
    connect(window, &ZelBoxMainWindow::windowClose, this, &BackgroundMode::onCloseClicked);
}

void BackgroundMode::onCloseClicked()
{
    if (m_entering)
        return;
    const QString action = closeAction();
    if (action == QLatin1String("exit"))
        m_commands.quitLater();
    else if (action == QLatin1String("hide") || (action.isEmpty() && m_presence.hasTray()))
        leaveScreen();
    else
        m_commands.askAboutExit();
}

// Without a tray a hidden box can only be reached by starting it again, which not everybody guesses: the task
// bar keeps it.
void BackgroundMode::leaveScreen()
{
    if (!m_window)
        return;
    if (m_presence.hasTray())
        hideWindow();
    else
        m_window->showMinimized();
}

void BackgroundMode::enter()
{
    if (!m_window || krt::product::isEnterprise())
        return;
    m_window->saveWindowState();
    m_entering = true;
    Q_EMIT m_window->windowClose();
    m_entering = false;
    hideWindow();
}

void BackgroundMode::hideWindow()
{
    m_window->hide();
    Q_EMIT entered();
}

// Away only with the window that the person is looking at; one that others cover is brought to the front.
void BackgroundMode::onTrayClicked()
{
    if (m_window && m_window->isActiveWindow())
        enter();
    else
        m_commands.showMainWindow();
}

// The way to a hidden window went with the tray.
void BackgroundMode::onTrayLost()
{
    if (m_window && !m_window->isVisible())
        m_window->showMinimized();
}
