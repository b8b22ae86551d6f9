#pragma once

#include "app/commandtarget.h"

#include <QStringList>

/// Notes what the core is asked for.
struct CommandRecorder final : CommandTarget
{
    QStringList calls;

    void setStartOrigin(StartOrigin) override { calls.append(QStringLiteral("origin")); }
    void selectPage(int) override { calls.append(QStringLiteral("page")); }
    void openSettings(const QString &parameter) override
    {
        calls.append(QStringLiteral("settings") + parameter);
    }
    void setTrayState(const QString &) override { calls.append(QStringLiteral("tray")); }
    void quitLater() override { calls.append(QStringLiteral("quit")); }
    void showExitDialog() override { calls.append(QStringLiteral("ask")); }
    void showMainWindow() override { calls.append(QStringLiteral("main")); }
    void showMiniWindow(const QString &from) override { calls.append(QStringLiteral("mini") + from); }
    void openFolderSelector() override { calls.append(QStringLiteral("selector")); }
    void openSyncFolder(const QString &) override { calls.append(QStringLiteral("sync")); }
    void sendToBackground() override { calls.append(QStringLiteral("background")); }
};
