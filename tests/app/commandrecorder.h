#pragma once

#include "app/commandtarget.h"

/// Notes what the core is asked for, in order: a word, and behind "=" what it was asked with.
struct CommandRecorder : CommandTarget
{
    virtual ~CommandRecorder() = default;

    QStringList calls;

    void note(const char *what, const QString &value = {})
    {
        const QString word = QLatin1String(what);
        calls.append(value.isEmpty() ? word : word + QLatin1Char('=') + value);
    }

    void setStartOrigin(StartOrigin origin) override
    {
        note(origin == StartOrigin::Tray ? "origin-tray" : "origin-desktop");
    }
    void selectPage(int number) override { note("page", QString::number(number)); }
    void openSettings(const QString &parameter) override { note("settings", parameter); }
    void setTrayState(const QString &state) override { note("traystate", state); }
    void quitLater() override { note("quit"); }
    void showExitDialog() override { note("exitdlg"); }
    void askAboutExit() override { note("exit?"); }
    void showMainWindow() override { note("main"); }
    void showMiniWindow(const QString &startFrom) override { note("mini", startFrom); }
    void showMiniWidget(bool asMainBox) override { note(asMainBox ? "mainbox" : "search"); }
    void openFolderSelector() override { note("folders"); }
    void openSyncFolder(const QString &parameter) override { note("sync", parameter); }
    void sendToBackground() override { note("background"); }
};
