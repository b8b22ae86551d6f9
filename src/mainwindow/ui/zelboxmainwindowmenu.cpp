#include "mainwindow/ui/zelboxmainwindowmenu.h"

#include "base/settingskeys.h"
#include "base/sourcekeys.h"
#include "cloud/cloudspace.h"
#include "cloud/upgradequery.h"
#include "cloud/zelboxcloudsvr.h"
#include "ksettings.h"
#include "mainwindow/mainwindowhost.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "widgets/shortcuts.h"
#include "widgets/svgicon.h"

#include <QWidgetAction>

namespace {

QString serverAddress()
{
    KSettings settings;
    settings.beginGroup(zel::keys::Zelbox);
    return settings.value(zel::keys::UserAgentTargetUrl).toString();
}

} // namespace

ZelBoxMainWindowMenu::ZelBoxMainWindowMenu(
    MainWindowHost *host, CloudSpace *space, int cloudPage, QWidget *parent)
    : QMenu(parent), m_host(host), m_space(space), m_spaceText(new ZelBoxCloudSpaceActionWidget(this))
{
    setAccessibleName(tr("Main menu"));
    auto *account = new QWidgetAction(this);
    account->setDefaultWidget(m_spaceText);
    account->setText(tr("Cloud space")); // never seen, but read out
    addAction(account);
    addSeparator();
    zel::Shortcuts::instance()->follow(zel::pageShortcut(cloudPage),
        add("nav_cloud", tr("Cloud Documents"), &ZelBoxMainWindowMenu::onCloudDiskAction));
    add("transfer", tr("Transfers"), &ZelBoxMainWindowMenu::onTransferDetailAction);
    addServerEntries();
    addSeparator();
    zel::Shortcuts::instance()->follow(QStringLiteral("window.settings"),
        add("settings", tr("Settings"), &ZelBoxMainWindowMenu::onSettingsAction));
    m_sign = add("sign", QString(), &ZelBoxMainWindowMenu::onLogoutAction);
    addSeparator();
    zel::Shortcuts::instance()->follow(
        QStringLiteral("window.exit"), add("exit", tr("Exit"), &ZelBoxMainWindowMenu::onExitAction));
    connect(m_space, &CloudSpace::changed, this, &ZelBoxMainWindowMenu::onUserVipInfoUpdate);
    onUserVipInfoUpdate();
}

QAction *ZelBoxMainWindowMenu::add(
    const char *icon, const QString &text, void (ZelBoxMainWindowMenu::*slot)())
{
    QAction *action = addAction(text, this, slot);
    action->setIcon(zel::tintedIcon(QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(icon))));
    return action;
}

void ZelBoxMainWindowMenu::addServerEntries()
{
    if (serverAddress().isEmpty())
        return;
    add("globe", tr("Cloud Website"), &ZelBoxMainWindowMenu::onCloudWebsiteAction);
    add("upgrade", tr("Upgrade Membership"), &ZelBoxMainWindowMenu::onUpgradeVipAction);
}

void ZelBoxMainWindowMenu::onCloudDiskAction()
{
    Q_EMIT pageRequested(zel::source::CloudDoc, QString());
}

void ZelBoxMainWindowMenu::onCloudWebsiteAction()
{
    m_host->cloudService()->openAutoLoginUrl(serverAddress());
}

void ZelBoxMainWindowMenu::onTransferDetailAction()
{
    Q_EMIT pageRequested(zel::source::CloudDoc, zel::place::Transfers);
}

void ZelBoxMainWindowMenu::onUpgradeVipAction()
{
    m_host->cloudService()->showUpgradeVip(
        zel::upgrade::query(QStringLiteral("mainmenu"), QString(), zel::upgrade::Offer::Super));
}

void ZelBoxMainWindowMenu::onLogoutAction()
{
    ZelBoxCloudSvr *cloud = m_host->cloudService();
    if (m_space->isLoggedIn())
        cloud->logout(QStringLiteral("menu"));
    else
        m_host->openSettings(QStringLiteral("cloud"));
}

void ZelBoxMainWindowMenu::onSettingsAction()
{
    m_host->openSettings(QString());
}

void ZelBoxMainWindowMenu::onExitAction()
{
    m_host->showExitDialog();
}

void ZelBoxMainWindowMenu::onUserVipInfoUpdate()
{
    const bool signedIn = m_space->isLoggedIn();
    m_spaceText->setText(signedIn ? tr("Signed in as %1").arg(m_space->accountName()) : tr("Not signed in"));
    m_sign->setText(signedIn ? tr("Sign Out") : tr("Sign In…"));
}
