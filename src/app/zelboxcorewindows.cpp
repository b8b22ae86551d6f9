// The part of the core that makes, shows and hides windows.

#include "app/zelboxcore.h"

#include "app/desktopactivation.h"
#include "app/memory.h"
#include "app/pagelist.h"
#include "app/ui/folderselectordlg.h"
#include "app/ui/syncfolderdlg.h"
#include "app/ui/zelboxexitdialog.h"
#include "app/zelboxapplication.h"
#include "app/zelboxipc.h"
#include "base/logging.h"
#include "base/settingskeys.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "cloud/zelboxcloudsvr.h"
#include "kdcinfoc.h"
#include "krecentfile.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "recentfile/recentsettings.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"
#include "tray/ui/zelboxtray.h"

#include <QDialog>
#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto StashDelay = 200ms;
constexpr auto MiniShowEventDelay = 2000ms;
constexpr auto TrayAwayDelay = 10s;

bool isOwnProcess()
{
    return qobject_cast<ZelBoxApplicationIndependentProcesses *>(qApp);
}

QString closeAction()
{
    KSettings settings;
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
    return settings.value(zel::keys::CloseAction).toString();
}

} // namespace

ZelBoxMainWindow *ZelBoxCore::mainWindow() const
{
    return m_mainWindow;
}

// Roaming records come through the one cloud service that the box has.
void ZelBoxCore::startRecentStore()
{
    SetRecentSources(zel::recent::storedSources());
    InitRecentFile(WorkMode::Full);
    KRecentFileProxy::instance()->setCloudService(cloudService());
}

ZelBoxMainWindow *ZelBoxCore::ensureMainWindow()
{
    if (!m_mainWindow) {
        startRecentStore();
        m_mainWindow = new ZelBoxMainWindow(this);
        m_mainWindow->restoreWindowState();
        connect(m_mainWindow, &ZelBoxMainWindow::windowClose, this, &ZelBoxCore::onMainWindowClose);
        connect(m_mainWindow, &ZelBoxMainWindow::windowClose, m_clientProxy,
            &ZelBoxClientSvrProxy::onWindowClose);
        connect(m_mainWindow, &ZelBoxMainWindow::windowShowToFront, m_clientProxy,
            &ZelBoxClientSvrProxy::onWindowOpened);
        connect(m_mainWindow, &ZelBoxMainWindow::unreadCountChanged, this, [this](int count) {
            if (m_tray)
                m_tray->setUnread(count);
        });
    }
    return m_mainWindow;
}

void ZelBoxCore::showMainWindow()
{
    const bool existed = m_mainWindow;
    ZelBoxMainWindow *window = ensureMainWindow();
    if (existed && window->isVisible())
        window->saveWindowState();
    window->showToFront();
}

void ZelBoxCore::selectPage(int number)
{
    ensureMainWindow()->selectPage(number);
    showMainWindow();
}

zel::PageList ZelBoxCore::pages()
{
    return zel::boxPages();
}

void ZelBoxCore::mainWindowFirstShown()
{
    m_clientProxy->onWindowOpened();
    Q_EMIT firstMainWindowShown();
}

void ZelBoxCore::onFirstMainWindowShown()
{
    startPresence();
}

void ZelBoxCore::startPresence()
{
    if (!m_tray) {
        m_tray = new ZelBoxTray(this);
        connect(m_tray, &ZelBoxTray::activated, this, &ZelBoxCore::onTrayActivated);
        connect(m_tray, &ZelBoxTray::mainWindowRequested, this, &ZelBoxCore::showMainWindow);
        connect(m_tray, &ZelBoxTray::miniWindowRequested, this,
            [this] { showMiniWindow(QStringLiteral("tray")); });
        connect(m_tray, &ZelBoxTray::settingsRequested, this, [this] { openSettings(QString()); });
        connect(m_tray, &ZelBoxTray::exitRequested, this, &ZelBoxCore::quitLater);
        connect(m_tray, &ZelBoxTray::reachableChanged, this, &ZelBoxCore::onTrayReachable);
    }
    m_tray->setState(m_trayState);
    m_tray->setUnread(m_mainWindow ? m_mainWindow->unreadCount() : 0);
    // As a guest, the bus name and the windows of the process are the host's affair.
    if (!isOwnProcess())
        return;
    if (!m_activation)
        m_activation = new DesktopActivation(*this, this);
    m_activation->start(); // again, if another program had the name
}

void ZelBoxCore::makeMiniWindow()
{
    startRecentStore();
    m_miniWindow = new ZelBoxMiniWindow;
    connect(m_miniWindow, &ZelBoxMiniWindow::mainWindowRequested, this, &ZelBoxCore::showMainWindow);
}

// Away only with the window that the person is looking at; one that others cover is brought to the front.
void ZelBoxCore::onTrayActivated()
{
    if (m_mainWindow && m_mainWindow->isActiveWindow())
        sendToBackground();
    else
        showMainWindow();
}

// A panel that crashes comes back at once; one that stays away takes the way to a hidden window with it.
void ZelBoxCore::onTrayReachable(bool reachable)
{
    if (reachable)
        return;
    QTimer::singleShot(TrayAwayDelay, this, [this] {
        const bool hidden = m_mainWindow && !m_mainWindow->isVisible();
        if (hidden && m_tray && !m_tray->reachable())
            m_mainWindow->showMinimized();
    });
}

void ZelBoxCore::showMiniWindow(const QString &startFrom)
{
    m_startFrom = startFrom;
    if (!m_miniWindow) {
        makeMiniWindow();
        connect(
            m_miniWindow, &ZelBoxMiniWindow::sigMiniWindowFirstShow, this, &ZelBoxCore::firstMiniWindowShown);
        QTimer::singleShot(MiniShowEventDelay, this, &ZelBoxCore::onSendMiniWindowShowEvent);
    }
    m_miniWindow->showToFront();
}

void ZelBoxCore::onSendMiniWindowShowEvent()
{
    KDcInfoC::postGeneralEvent(
        QStringLiteral("zelbox_miniwidget_show"), {{QStringLiteral("start_from"), m_startFrom}});
}

void ZelBoxCore::showMiniWidget(bool asMainBox)
{
    if (!m_miniWidget) {
        startRecentStore();
        m_miniWidget = new ZelBoxMiniWidget;
        connect(m_miniWidget, &ZelBoxMiniWidget::sigMiniWindowAboutToHide, this,
            &ZelBoxCore::sigMiniWindowAboutToHide);
    }
    m_miniWidget->setStartMode(asMainBox ? QStringLiteral("mainbox") : QStringLiteral("miniwidget"));
    if (asMainBox) {
        if (m_mainWindow)
            m_miniWidget->centerOn(m_mainWindow->geometry());
        return;
    }
    m_miniWidget->clearPendingHide();
    m_miniWidget->showWithFocus();
}

template <typename Dialog> Dialog *ZelBoxCore::openDialog() const
{
    for (const QPointer<QDialog> &dialog : m_dialogs) {
        if (auto *found = qobject_cast<Dialog *>(dialog.data()))
            return found;
    }
    return nullptr;
}

void ZelBoxCore::present(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialogs.removeAll(nullptr);
    if (!m_dialogs.contains(dialog))
        m_dialogs.append(dialog);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void ZelBoxCore::openSettings(const QString &parameter)
{
    if (!m_settings) {
        m_settings = new KZelBoxCloudSettingsDlg(m_skin, cloudService());
        m_settings->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_settings, &KZelBoxCloudSettingsDlg::languageChosen, this, &ZelBoxCore::onLanguageChosen);
    }
    m_settings->show();
    m_settings->raise();
    m_settings->activateWindow();
    if (!parameter.isEmpty())
        m_settings->setParameter(parameter);
}

void ZelBoxCore::openFolderSelector()
{
    auto *open = openDialog<FolderSelectorDlg>();
    present(open ? open : new FolderSelectorDlg);
}

void ZelBoxCore::openSyncFolder(const QString &parameter)
{
    auto *dialog = openDialog<SyncFolderDlg>();
    if (!dialog)
        dialog = new SyncFolderDlg;
    present(dialog);
    dialog->setParameter(parameter);
}

void ZelBoxCore::showExitDialog()
{
    if (auto *open = openDialog<ZelBoxExitDialog>())
        return present(open);
    auto *dialog = new ZelBoxExitDialog;
    connect(dialog, &ZelBoxExitDialog::exitChosen, this, &ZelBoxCore::quitLater);
    connect(dialog, &ZelBoxExitDialog::backgroundChosen, this, &ZelBoxCore::leaveScreen);
    connect(dialog, &QDialog::rejected, m_clientProxy, &ZelBoxClientSvrProxy::onWindowOpened);
    present(dialog);
}

void ZelBoxCore::onMainWindowClose()
{
    if (m_hiding)
        return; // the core's own notice
    const QString action = closeAction();
    if (action == QLatin1String("exit"))
        return quitLater();
    const bool hide = action == QLatin1String("hide") || (action.isEmpty() && m_tray && m_tray->reachable());
    if (hide)
        leaveScreen();
    else
        showExitDialog();
}

// Without a tray a hidden box can only be reached by starting it again, which not everybody guesses: the task
// bar keeps it.
void ZelBoxCore::leaveScreen()
{
    if (m_tray && m_tray->reachable())
        goToBackground();
    else if (m_mainWindow)
        m_mainWindow->showMinimized();
}

void ZelBoxCore::sendToBackground()
{
    if (!m_mainWindow || krt::product::isEnterprise())
        return;
    m_mainWindow->saveWindowState();
    m_hiding = true;
    Q_EMIT m_mainWindow->windowClose();
    m_hiding = false;
    goToBackground();
}

void ZelBoxCore::goToBackground()
{
    if (!m_mainWindow)
        return;
    m_mainWindow->hide();
    m_clientProxy->onWindowClose();
    QTimer::singleShot(StashDelay, this, &ZelBoxCore::onStashProcessMemory);
}

void ZelBoxCore::onStashProcessMemory()
{
    // Shown again in the meantime: what would be given back is in use.
    if (!m_mainWindow || m_mainWindow->isVisible())
        return;
    m_mainWindow->onStashProcessMemory();
    zel::memory::giveBack();
}

void ZelBoxCore::setStartOrigin(StartOrigin origin)
{
    qCInfo(lcApp, "asked for by %s", origin == StartOrigin::Tray ? "the tray icon" : "a desktop shortcut");
}

void ZelBoxCore::setTrayState(const QString &state)
{
    m_trayState = state;
    if (m_tray)
        m_tray->setState(state);
}

void ZelBoxCore::quitLater()
{
    // As a guest, the loop is the host's: only the box's own windows go.
    const bool ownProcess = isOwnProcess();
    if (ownProcess)
        ZelBoxIpc::instance()->setLeaving(true);
    QTimer::singleShot(0, this, [this, ownProcess] {
        if (ownProcess)
            QCoreApplication::quit();
        else
            leaveHost();
    });
}

void ZelBoxCore::leaveHost()
{
    if (QObject *drag = runningDrag())
        connect(drag, &QObject::destroyed, this, &ZelBoxCore::leaveHost,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    else
        takeDown();
}
