#include "app/zelboxcore.h"

#include "app/commanddispatcher.h"
#include "app/commandline.h"
#include "app/desktopactivation.h"
#include "app/selftest.h"
#include "app/zelboxiconthememgr.h"
#include "app/zelboxipc.h"
#include "base/logging.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "cloud/zelboxcloudsvr.h"
#include "kcefloadingprogressdlg.h"
#include "kcoreapplication.h"
#include "kfileiconprovider.h"
#include "kliteskin.h"
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
#include "tray/ui/zelboxtray.h"

#include <QApplication>
#include <QDialog>
#include <QLibrary>

namespace {

// Outlives the static core, so that a late start or command can tell that the core is gone.
bool s_coreDestroyed = false;

constexpr int EngineReady = 1;

void takeDownCore()
{
    if (!s_coreDestroyed)
        ZelBoxCore::instance()->takeDown();
}

QStringList resourceDirs()
{
    QStringList dirs;
    for (const QString &root :
        {krt::dirs::office(), krt::dirs::officeHome(), krt::dirs::localHalvornHome()}) {
        if (!root.isEmpty())
            dirs.append(root + QStringLiteral("/res/2019zelbox"));
    }
    return dirs;
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
      m_clientProxy(new ZelBoxClientSvrProxy(this))
{
    connect(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission, this, &ZelBoxCore::onIpcTransmission);
    connect(this, &ZelBoxCore::firstMainWindowShown, this, &ZelBoxCore::onFirstMainWindowShown);
    connect(m_clientProxy, &ZelBoxClientSvrProxy::activateRequested, this, &ZelBoxCore::showMainWindow);
    // Sizes are set when windows are made, so they are made anew; queued, because one of them may be asking.
    connect(m_skin, &KSkin::metricsChanged, this, &ZelBoxCore::remakeWindows, Qt::QueuedConnection);
    ZelBoxCore::cloudService();
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
    if (QCoreApplication::instance() && m_mainWindow)
        m_mainWindow->saveWindowState();
}

void ZelBoxCore::takeDown()
{
    delete std::exchange(m_activation, nullptr);
    delete std::exchange(m_tray, nullptr);
    for (const QPointer<QDialog> &dialog : qExchange(m_dialogs, {}))
        delete dialog;
    delete m_settings;
    delete m_miniWidget;
    delete m_miniWindow;
    if (m_mainWindow)
        m_mainWindow->onAppAboutToQuit();
    delete m_mainWindow;
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
    return m_cloudService;
}

bool ZelBoxCore::init(const QString &cmdline)
{
    followApplication();
    cloudService();
    describeLook();
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

void ZelBoxCore::describeLook()
{
    KLitOfficeInfo info;
    info.resourceDirs = resourceDirs();
    info.skinDescription = QStringLiteral("res/2019zelbox/zelbox.kuip");
    info.productName = krt::productName();
    info.organization = krt::organization();
    info.productVersion = krt::productVersion();
    KLiteSkin::setOfficeInfo(info);
    KLiteSkin::setDefaultBaseSkinInfo(KLiteSkinInfo());
}

// Again after takeDown(), when a host sends the next command.
void ZelBoxCore::ensureTranslated()
{
    if (!qExchange(m_translated, true))
        krt::KAppTranslators::installTranslation(krt::applicationName());
}

void ZelBoxCore::loadIcons()
{
    // A skin may bring code of its own; ours does not, so there is usually nothing to load.
    const QString skinLibrary = KLiteSkin::resourcePath(QStringLiteral("libzelboxres.so"));
    if (!skinLibrary.isEmpty())
        QLibrary(skinLibrary).load();
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
    ZelBoxMainWindow *window = ensureMainWindow();
    SelfTest::startIfAsked(this);
    const CommandLine command = parseCommandLine(m_pendingCommandLine);
    if (const QString source = command.value(QStringLiteral("from")); !source.isEmpty())
        window->setShowSource(source);
    if (startsInBackground(command)) {
        window->startHidden();
        startPresence();
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
        startPresence(); // the bus does not know that the box is there
    dispatchCommand(command, isFirst, *this);
}

// What brings the token of a start comes before its command.
void ZelBoxCore::onIpcTransmission(const QString &key, const QString &value)
{
    if (key == StartupToken::IpcKey)
        m_startupToken = StartupToken::fromIpc(value);
    if (key != QLatin1String("zelbox_active_window"))
        return;
    const StartupNotice notice(std::exchange(m_startupToken, {}));
    dispatch(value, false);
}
