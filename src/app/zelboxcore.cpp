#include "app/zelboxcore.h"

#include "app/backgroundmode.h"
#include "app/boxexit.h"
#include "app/boxlook.h"
#include "app/boxpresence.h"
#include "app/boxwindows.h"
#include "app/commanddispatcher.h"
#include "app/commandline.h"
#include "app/memory.h"
#include "app/pagelist.h"
#include "app/selftest.h"
#include "app/ui/folderselectordlg.h"
#include "app/ui/syncfolderdlg.h"
#include "app/zelboxiconthememgr.h"
#include "app/zelboxipc.h"
#include "base/logging.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "cloud/zelboxcloudsvr.h"
#include "kcefloadingprogressdlg.h"
#include "kcoreapplication.h"
#include "kdcinfoc.h"
#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "krecentfile.h"
#include "krt/kapptranslators.h"
#include "krt/krt.h"
#include "kskin.h"
#include "kthreadtiming.h"
#include "kxcefpluginstate.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "settings/ui/kzelboxcloudsettingsdlg.h"

#include <QApplication>
#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

namespace {

// Outlives the static core, so that a late start or command can tell that the core is gone.
bool s_coreDestroyed = false;

constexpr int EngineReady = 1;
constexpr auto StashDelay = 200ms;
constexpr auto MiniShowEventDelay = 2000ms;

void takeDownCore()
{
    if (!s_coreDestroyed)
        ZelBoxCore::instance()->takeDown();
}

} // namespace

ZelBoxCore *ZelBoxCore::instance(ZelBoxCloudSvr *cloudService)
{
    if (s_coreDestroyed)
        return nullptr;
    static ZelBoxCore core(cloudService);
    // A later application object of the same process brings a service of its own; the first one went with its
    // parent.
    if (cloudService && !core.m_cloudService)
        core.m_cloudService = cloudService;
    return &core;
}

ZelBoxCore::ZelBoxCore(ZelBoxCloudSvr *cloudService)
    : m_skin(new KSkin(this)),
      m_name(QStringLiteral("ZelBox")),
      m_cloudService(cloudService),
      m_windows(new BoxWindows(*this, *this, m_skin, this)),
      m_clientProxy(new ZelBoxClientSvrProxy(this)),
      m_presence(new BoxPresence(
          *this, [this] { return m_windows->hasAttention(); }, this)),
      m_background(new BackgroundMode(*this, *m_presence, this)),
      m_exit(new BoxExit(*m_windows, m_dialogs, this))
{
    connect(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission, this, &ZelBoxCore::onIpcTransmission);
    connect(this, &ZelBoxCore::firstMainWindowShown, this, &ZelBoxCore::onFirstMainWindowShown);
    connect(m_clientProxy, &ZelBoxClientSvrProxy::activateRequested, this, &ZelBoxCore::showMainWindow);
    // Sizes are set when windows are made, so they are made anew; queued, because one of them may be asking.
    connect(m_skin, &KSkin::metricsChanged, this, &ZelBoxCore::remakeWindows, Qt::QueuedConnection);
    connectWindows();
    connectExit();
    ZelBoxCore::cloudService();
}

void ZelBoxCore::connectWindows()
{
    connect(m_windows, &BoxWindows::mainWindowMade, this, &ZelBoxCore::onMainWindowMade);
    connect(m_windows, &BoxWindows::miniWidgetMade, this, [this](ZelBoxMiniWidget *widget) {
        connect(
            widget, &ZelBoxMiniWidget::sigMiniWindowAboutToHide, this, &ZelBoxCore::sigMiniWindowAboutToHide);
    });
    connect(m_windows, &BoxWindows::languageChosen, this, &ZelBoxCore::onLanguageChosen);
    connect(m_presence, &BoxPresence::transfersRequested, m_windows, &BoxWindows::showTransfers);
    connect(m_windows, &BoxWindows::remade, m_presence, &BoxPresence::remakeTray);
    connect(m_background, &BackgroundMode::entered, this, &ZelBoxCore::onBackgroundEntered);
}

void ZelBoxCore::connectExit()
{
    connect(m_exit, &BoxExit::backgroundChosen, m_background, &BackgroundMode::leaveScreen);
    connect(m_exit, &BoxExit::declined, m_clientProxy, &ZelBoxClientSvrProxy::onWindowOpened);
    connect(m_exit, &BoxExit::hostLeft, this, &ZelBoxCore::takeDown);
}

void ZelBoxCore::onMainWindowMade(ZelBoxMainWindow *window)
{
    connect(window, &ZelBoxMainWindow::windowClose, m_clientProxy, &ZelBoxClientSvrProxy::onWindowClose);
    connect(
        window, &ZelBoxMainWindow::windowShowToFront, m_clientProxy, &ZelBoxClientSvrProxy::onWindowOpened);
    connect(window, &ZelBoxMainWindow::unreadCountChanged, m_presence, &BoxPresence::setUnread);
    m_presence->setUnread(window->unreadCount());
    m_background->setWindow(window);
}

void ZelBoxCore::followApplication()
{
    // Qt 5 cannot destroy a shown widget, nor remove a translator, once the application object is gone. The
    // windows go when the loop ends; the post routine, which ~QApplication runs first of all, serves a host
    // that never ran one.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ZelBoxCore::takeDown, Qt::UniqueConnection);
    qRemovePostRoutine(takeDownCore);
    qAddPostRoutine(takeDownCore);
}

ZelBoxCore::~ZelBoxCore()
{
    s_coreDestroyed = true;
    // The windows are gone by now, unless exit() was called from inside the loop (Qt does when it loses the
    // display): then they are in use further up the stack and only what the user would miss is saved.
    if (QCoreApplication::instance() && mainWindow())
        mainWindow()->saveWindowState();
}

void ZelBoxCore::takeDown()
{
    m_presence->stop();
    m_dialogs.takeDown();
    m_windows->takeDown();
    UninitRecentFile();
    if (qExchange(m_translated, false))
        krt::KAppTranslators::uninstallTranslation(krt::applicationName());
}

ZelBoxCloudSvr *ZelBoxCore::cloudService()
{
    if (!m_cloudService)
        m_cloudService = new ZelBoxCloudSvr(this);
    // Unique, because the one handed in by the application comes through here as well.
    connect(this, &ZelBoxCore::firstMainWindowShown, m_cloudService, &ZelBoxCloudSvr::onFirstMainWindowShown,
        Qt::UniqueConnection);
    m_cloudService->addClientProxy(m_clientProxy);
    m_presence->follow(m_cloudService);
    return m_cloudService;
}

bool ZelBoxCore::init(const QString &cmdline)
{
    followApplication();
    cloudService();
    zel::describeLook();
    ensureTranslated();
    QApplication::setFont(KLiteStyle::applicationFont());
    loadIcons();
    m_pendingCommandLine = cmdline;

    KThreadTiming *timing = KCoreApplication::getThreadTiming();
    if (timing && !timing->isThreadTimingFinished()) {
        connect(timing, &KThreadTiming::threadTiming, this, &ZelBoxCore::onThreadTimingInit,
            Qt::UniqueConnection);
        return true;
    }
    return openFirstWindow();
}

// Again after takeDown(), when a host sends the next command.
void ZelBoxCore::ensureTranslated()
{
    if (!qExchange(m_translated, true))
        krt::KAppTranslators::installTranslation(krt::applicationName());
}

void ZelBoxCore::loadIcons()
{
    zel::loadSkinLibrary();
    if (!m_iconTheme)
        m_iconTheme = new ZelBoxIconThemeMgr(this);
    KFileIconProvider::instance()->initIconItems(m_iconTheme->fileIconSet());
}

void ZelBoxCore::onThreadTimingInit()
{
    disconnect(KCoreApplication::getThreadTiming(), nullptr, this, nullptr);
    if (!openFirstWindow())
        quitLater();
}

bool ZelBoxCore::openFirstWindow()
{
    if (!waitForWebEngine())
        return false;
    ZelBoxMainWindow *window = m_windows->ensureMainWindow();
    SelfTest::startIfAsked(this);
    const CommandLine command = parseCommandLine(m_pendingCommandLine);
    if (const QString source = command.value(QStringLiteral("from")); !source.isEmpty())
        window->setShowSource(source);
    if (startsInBackground(command)) {
        window->startHidden();
        m_presence->start();
        cloudService()->onFirstMainWindowShown();
    } else {
        window->show();
    }
    dispatch(m_pendingCommandLine, true);
    return true;
}

bool ZelBoxCore::waitForWebEngine()
{
    if (KxCefPluginState(this, 0, false).state() == EngineReady)
        return true;
    return KCefLoadingProgressDlg().exec() != QDialog::Rejected;
}

void ZelBoxCore::dispatch(const QString &commandLine, bool isFirst)
{
    followApplication();
    ensureTranslated();
    first = true;
    const CommandLine command = parseCommandLine(commandLine);
    if (!isFirst && startsInBackground(command))
        m_presence->start(); // the bus does not know that the box is there
    dispatchCommand(command, isFirst, *this);
}

// What brings the token of a start comes before its command.
void ZelBoxCore::onIpcTransmission(const QString &key, const QString &value)
{
    if (key == StartupToken::IpcKey)
        m_startupToken = StartupToken::fromIpc(value);
    if (key != ZelBoxIpc::CommandKey)
        return;
    const StartupNotice notice(std::exchange(m_startupToken, {}));
    dispatch(value, false);
}

ZelBoxMainWindow *ZelBoxCore::mainWindow() const
{
    return m_windows->mainWindow();
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
    m_presence->start();
}

void ZelBoxCore::showMainWindow()
{
    m_windows->showMainWindow();
}

void ZelBoxCore::selectPage(int number)
{
    m_windows->ensureMainWindow()->selectPage(number);
    showMainWindow();
}

void ZelBoxCore::showMiniWindow(const QString &startFrom)
{
    m_startFrom = startFrom;
    const bool existed = m_windows->miniWindow();
    ZelBoxMiniWindow *window = m_windows->ensureMiniWindow();
    if (!existed) {
        connect(window, &ZelBoxMiniWindow::sigMiniWindowFirstShow, this, &ZelBoxCore::firstMiniWindowShown);
        QTimer::singleShot(MiniShowEventDelay, this, &ZelBoxCore::onSendMiniWindowShowEvent);
    }
    window->showToFront();
}

void ZelBoxCore::onSendMiniWindowShowEvent()
{
    KDcInfoC::postGeneralEvent(
        QStringLiteral("zelbox_miniwidget_show"), {{QStringLiteral("start_from"), m_startFrom}});
}

void ZelBoxCore::showMiniWidget(bool asMainBox)
{
    ZelBoxMiniWidget *widget = m_windows->ensureMiniWidget();
    widget->setStartMode(asMainBox ? QStringLiteral("mainbox") : QStringLiteral("miniwidget"));
    if (asMainBox) {
        if (mainWindow())
            widget->centerOn(mainWindow()->geometry());
        return;
    }
    widget->clearPendingHide();
    widget->showWithFocus();
}

void ZelBoxCore::openSettings(const QString &parameter)
{
    KZelBoxCloudSettingsDlg *settings = m_windows->ensureSettings();
    OpenDialogs::bringToFront(settings);
    if (!parameter.isEmpty())
        settings->setParameter(parameter);
}

void ZelBoxCore::openFolderSelector()
{
    m_dialogs.present<FolderSelectorDlg>(nullptr);
}

void ZelBoxCore::openSyncFolder(const QString &parameter)
{
    m_dialogs.present<SyncFolderDlg>(nullptr)->setParameter(parameter);
}

void ZelBoxCore::showExitDialog()
{
    m_exit->ask(true, m_cloudService);
}

void ZelBoxCore::askAboutExit()
{
    m_exit->ask(false, m_cloudService);
}

void ZelBoxCore::sendToBackground()
{
    m_background->enter();
}

void ZelBoxCore::onBackgroundEntered()
{
    m_clientProxy->onWindowClose();
    QTimer::singleShot(StashDelay, this, &ZelBoxCore::onStashProcessMemory);
}

void ZelBoxCore::onStashProcessMemory()
{
    // Shown again in the meantime: what would be given back is in use.
    if (!mainWindow() || mainWindow()->isVisible())
        return;
    mainWindow()->onStashProcessMemory();
    zel::memory::giveBack();
}

void ZelBoxCore::setStartOrigin(StartOrigin origin)
{
    qCInfo(lcApp, "asked for by %s", origin == StartOrigin::Tray ? "the tray icon" : "a desktop shortcut");
}

void ZelBoxCore::setTrayState(const QString &state)
{
    m_presence->setTrayState(state);
}

void ZelBoxCore::onLanguageChosen()
{
    krt::KAppTranslators::uninstallTranslation(krt::applicationName());
    krt::KAppTranslators::installTranslation(krt::applicationName());
    QApplication::setFont(KLiteStyle::applicationFont());
    // The chooser is one of the windows that go.
    QMetaObject::invokeMethod(this, &ZelBoxCore::remakeWindows, Qt::QueuedConnection);
}

void ZelBoxCore::remakeWindows()
{
    m_windows->remake();
}

void ZelBoxCore::quitLater()
{
    m_exit->quitLater();
}
