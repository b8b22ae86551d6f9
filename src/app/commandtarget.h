#pragma once

#include <QString>

/// Where a start or command came from, when its command line says so.
enum class StartOrigin { Tray, DesktopShortcut };

/// What the dispatcher can ask of the core. GUI thread.
class CommandTarget
{
public:
    virtual void setStartOrigin(StartOrigin origin) = 0;
    virtual void selectPage(int number) = 0; ///< makes and shows the main window when needed
    virtual void openSettings(const QString &parameter) = 0;
    virtual void setTrayState(const QString &state) = 0;
    virtual void quitLater() = 0; ///< on the next turn of the loop
    virtual void showExitDialog() = 0;
    virtual void askAboutExit() = 0;   ///< the same dialog for who closed the window: to stay is the default
    virtual void showMainWindow() = 0; ///< and brings it to the front
    virtual void showMiniWindow(const QString &startFrom) = 0;
    /// The quick search; as the main box ("mainbox") it is only placed over the main window.
    virtual void showMiniWidget(bool asMainBox) = 0;
    virtual void openFolderSelector() = 0;
    virtual void openSyncFolder(const QString &parameter) = 0;
    virtual void sendToBackground() = 0; ///< does nothing without a main window or in the enterprise product

protected:
    ~CommandTarget() = default;
};
