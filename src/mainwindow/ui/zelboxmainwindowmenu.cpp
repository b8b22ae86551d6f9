#include "mainwindow/ui/zelboxmainwindowmenu.h"

#include "base/logging.h"
#include "base/sourcekeys.h"
#include "cloud/zelboxcloudsvr.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "widgets/svgicon.h"

#include <QWidgetAction>

ZelBoxMainWindowMenu::ZelBoxMainWindowMenu(MainWindowHost *host, QWidget *parent)
    : QMenu(parent), m_host(host), m_space(new ZelBoxCloudSpaceActionWidget(this))
{
    setAccessibleName(tr("Main menu"));
    auto *space = new QWidgetAction(this);
    space->setDefaultWidget(m_space);
    addAction(space);
    addSeparator();

    const auto add = [this](const char *icon, const QString &text, auto slot) {
        QAction *action = addAction(text, this, slot);
        action->setIcon(zel::tintedIcon(QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(icon))));
        return action;
    };
    add("nav_cloud", tr("Cloud documents"), &ZelBoxMainWindowMenu::onCloudDiskAction);
    m_accountActions << add("share", tr("Cloud website"), &ZelBoxMainWindowMenu::onCloudWebsiteAction)
                     << add("nav_sync", tr("Transfers"), &ZelBoxMainWindowMenu::onTransferDetailAction)
                     << add("info", tr("Upgrade membership"), &ZelBoxMainWindowMenu::onUpgradeVipAction);
    addSeparator();
    add("settings", tr("Settings"), &ZelBoxMainWindowMenu::onSettingsAction)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    m_accountActions << addAction(tr("Sign out"), this, &ZelBoxMainWindowMenu::onLogoutAction);
    addSeparator();
    addAction(tr("Exit"), this, &ZelBoxMainWindowMenu::onExitAction)
        ->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    setLoggedIn(false);
}

void ZelBoxMainWindowMenu::setLoggedIn(bool loggedIn)
{
    for (QAction *action : qAsConst(m_accountActions))
        action->setEnabled(loggedIn);
    onUserVipInfoUpdate();
}

void ZelBoxMainWindowMenu::onCloudDiskAction()
{
    Q_EMIT pageRequested(zel::source::CloudDoc);
}

// The next four need an account; without one they are disabled, so a call can only come from a keyboard
// shortcut of a later version or a script.
void ZelBoxMainWindowMenu::onCloudWebsiteAction()
{
    qCInfo(lcMainWindow, "no cloud server is configured");
}

void ZelBoxMainWindowMenu::onTransferDetailAction()
{
    Q_EMIT pageRequested(zel::source::CloudDoc);
}

void ZelBoxMainWindowMenu::onUpgradeVipAction()
{
    qCInfo(lcMainWindow, "no cloud server is configured");
}

void ZelBoxMainWindowMenu::onLogoutAction()
{
    qCInfo(lcMainWindow, "nobody is signed in");
}

void ZelBoxMainWindowMenu::onSettingsAction()
{
    m_host->openSettings();
}

void ZelBoxMainWindowMenu::onExitAction()
{
    m_host->showExitDialog();
}

void ZelBoxMainWindowMenu::onUserVipInfoUpdate()
{
    m_space->setText(tr("On this computer only"));
}
