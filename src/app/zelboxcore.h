#pragma once

#include "app/commandtarget.h"
#include "app/startupnotice.h"
#include "mainwindow/mainwindowhost.h"

#include <QObject>
#include <QPointer>

class DesktopActivation;
class KSkin;
class KZelBoxCloudSettingsDlg;
class QDialog;
class SelfTest;
class ZelBoxClientSvrProxy;
class ZelBoxCloudSvr;
class ZelBoxIconThemeMgr;
class ZelBoxMainWindow;
class ZelBoxMiniWidget;
class ZelBoxMiniWindow;
class ZelBoxTray;

/// The process-wide core object: owns the top-level windows and turns command lines into actions. GUI thread.
/// Made on first use, destroyed at process exit; the windows are gone before the application object is.
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

    void showMiniWidget(bool asMainBox); ///< start mode "mainbox" or "miniwidget"

    ZelBoxMainWindow *mainWindow() const;                         ///< null until needed
    ZelBoxIconThemeMgr *iconTheme() const { return m_iconTheme; } ///< null before init()

    /// Destroys every window, stops the recent-file store and removes the translations. Called while the
    /// application object still lives; later commands make windows anew. Safe to call again.
    void takeDown();

    // CommandTarget
    void setStartOrigin(StartOrigin origin) override;
    void selectPage(int number) override;
    void openSettings(const QString &parameter) override; // and of MainWindowHost
    void setTrayState(const QString &state) override;
    void quitLater() override;
    void showExitDialog() override;
    void showMainWindow() override;
    void showMiniWindow(const QString &startFrom) override;
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
    void onMainWindowClose(); ///< the close button: hides, asks or ends, by the user's setting
    /// Makes every window anew, where it was, in the language and at the sizes that hold now. Waits for the
    /// end of what the user is in the middle of.
    void remakeWindows();
    void leaveHost();        ///< the box's own windows go
    void onLanguageChosen(); ///< the setting has been changed

private:
    explicit ZelBoxCore(ZelBoxCloudSvr *cloudService);
    ~ZelBoxCore() override;

    void followApplication();
    void describeLook();
    void ensureTranslated();
    void loadIcons();
    bool openFirstWindow();
    bool waitForWebEngine();
    ZelBoxMainWindow *ensureMainWindow();
    void startRecentStore();
    void startPresence(); ///< tray and bus name, by which the box is reached without a window
    void makeMiniWindow();
    void onTrayActivated();
    void onTrayReachable(bool reachable);
    void goToBackground();
    void leaveScreen(); ///< hides the window, or minimises it where only the task bar could bring it back
    QVector<QWidget *> ownWindows() const; ///< that are made anew
    QObject *runningDrag() const;          ///< null: none
    QObject *runningTask() const;          ///< a drag, or a dialog that a window waits for
    void onTaskEnded();
    void remakeMainWindow();
    void remakeMiniWindow();
    void present(QDialog *dialog);
    template <typename Dialog> Dialog *openDialog() const; ///< null when none of this kind is open

    bool first = false;
    KSkin *m_skin;
    QString m_name;
    QString m_startFrom;
    QPointer<ZelBoxCloudSvr> m_cloudService;
    QPointer<ZelBoxMainWindow> m_mainWindow;
    QPointer<ZelBoxMiniWindow> m_miniWindow;
    QPointer<ZelBoxMiniWidget> m_miniWidget;
    QPointer<KZelBoxCloudSettingsDlg> m_settings;
    ZelBoxIconThemeMgr *m_iconTheme = nullptr;
    ZelBoxClientSvrProxy *m_clientProxy;
    QString m_pendingCommandLine;

    ZelBoxTray *m_tray = nullptr;
    DesktopActivation *m_activation = nullptr;
    StartupToken m_startupToken;          // of the command that comes next
    QString m_trayState;                  // told before there was a tray icon, too
    QVector<QPointer<QDialog>> m_dialogs; // open ones that no window owns
    bool m_translated = false;
    bool m_remakingWaits = false;
    bool m_hiding = false; // the core itself is hiding the main window
};
