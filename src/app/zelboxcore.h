#pragma once

#include "app/commandtarget.h"
#include "app/opendialogs.h"
#include "app/startupnotice.h"
#include "mainwindow/mainwindowhost.h"

#include <QObject>
#include <QPointer>

class BackgroundMode;
class BoxExit;
class BoxPresence;
class BoxWindows;
class KSkin;
class ZelBoxClientSvrProxy;
class ZelBoxCloudSvr;
class ZelBoxIconThemeMgr;
class ZelBoxMainWindow;

/// The process-wide core object: starts the box, owns its windows and turns command lines into actions. GUI
/// thread. Made on first use, destroyed at process exit; the windows are gone before the application object
/// is.
class ZelBoxCore : public QObject, public CommandTarget, public MainWindowHost
{
    Q_OBJECT
public:
    /// The core; made on first use with `cloudService` (null: the core makes its own). Null once the core has
    /// been destroyed, because the process is ending.
    static ZelBoxCore *instance(ZelBoxCloudSvr *cloudService = nullptr);

    /// The start-up work; see docs/architecture.md for its order. False when the user cancelled the wait for
    /// the web engine: the caller then runs no event loop.
    bool init(const QString &cmdline);
    /// Parses and performs a command line. `first` only for the command that init() dispatches.
    void dispatch(const QString &commandLine, bool first);

    ZelBoxMainWindow *mainWindow() const; ///< null until needed

    /// Destroys every window, stops the recent-file store and removes the translations. Called while the
    /// application object still lives; later commands make windows anew. Safe to call again.
    void takeDown();

    // CommandTarget
    void setStartOrigin(StartOrigin origin) override;
    void selectPage(int number) override;
    void openSettings(const QString &parameter) override; // and of MainWindowHost
    void setTrayState(const QString &state) override;
    void quitLater() override;
    void showExitDialog() override; // and of MainWindowHost
    void askAboutExit() override;
    void showMainWindow() override;
    void showMiniWindow(const QString &startFrom) override;
    void showMiniWidget(bool asMainBox) override; // start mode "mainbox" or "miniwidget"
    void openFolderSelector() override;
    void openSyncFolder(const QString &parameter) override;
    void sendToBackground() override;

    // MainWindowHost
    zel::PageList pages() override;
    void mainWindowFirstShown() override;
    ZelBoxCloudSvr *cloudService() override;

Q_SIGNALS:
    void firstMainWindowShown();
    void firstMiniWindowShown();
    void sigMiniWindowAboutToHide();

public Q_SLOTS:
    void onIpcTransmission(const QString &key, const QString &value);
    void onFirstMainWindowShown();
    void onThreadTimingInit();
    void onSendMiniWindowShowEvent();
    void onStashProcessMemory();
    void remakeWindows();    ///< see BoxWindows::remake()
    void onLanguageChosen(); ///< the setting has been changed

private:
    explicit ZelBoxCore(ZelBoxCloudSvr *cloudService);
    ~ZelBoxCore() override;

    void connectWindows();
    void connectExit();
    void followApplication();
    void ensureTranslated();
    void loadIcons();
    bool openFirstWindow();
    bool waitForWebEngine();
    void onMainWindowMade(ZelBoxMainWindow *window);
    void onBackgroundEntered();

    bool first = false;
    KSkin *m_skin;
    QString m_name;
    QString m_startFrom;
    QPointer<ZelBoxCloudSvr> m_cloudService;
    BoxWindows *m_windows;
    ZelBoxIconThemeMgr *m_iconTheme = nullptr;
    ZelBoxClientSvrProxy *m_clientProxy;
    QString m_pendingCommandLine;

    BoxPresence *m_presence;
    BackgroundMode *m_background;
    OpenDialogs m_dialogs;
    BoxExit *m_exit;
    StartupToken m_startupToken; // of the command that comes next
    bool m_translated = false;
};
