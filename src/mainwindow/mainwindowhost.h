#pragma once

#include "mainwindow/pageinfo.h"

class ZelBoxCloudSvr;

/// What the main window asks of the object that owns it (the core). GUI thread.
class MainWindowHost
{
public:
    virtual zel::PageList pages() = 0; ///< that the window has; asked once for each window
    /// The window was shown for the first time; told exactly once per window.
    virtual void mainWindowFirstShown() = 0;
    virtual void openSettings(const QString &page) = 0; ///< empty: where the user left them
    virtual void showExitDialog() = 0;
    virtual ZelBoxCloudSvr *cloudService() = 0; ///< never null

protected:
    ~MainWindowHost() = default;
};
