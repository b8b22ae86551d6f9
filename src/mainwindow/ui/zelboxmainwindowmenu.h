#pragma once

#include <QMenu>

class MainWindowHost;
class ZelBoxCloudSpaceActionWidget;

/// The main window's menu. GUI thread. Entries whose feature needs a cloud account are disabled without one.
class ZelBoxMainWindowMenu : public QMenu
{
    Q_OBJECT
public:
    ZelBoxMainWindowMenu(MainWindowHost *host, QWidget *parent);

    void setLoggedIn(bool loggedIn);

public Q_SLOTS:
    void onCloudDiskAction();    ///< shows the cloud documents page
    void onCloudWebsiteAction(); ///< opens the web page of the cloud server
    void onTransferDetailAction();
    void onUpgradeVipAction();
    void onSettingsAction();
    void onLogoutAction();
    void onExitAction(); ///< asks by the exit dialog
    void onUserVipInfoUpdate();

Q_SIGNALS:
    void pageRequested(const QString &sourceKey);

private:
    MainWindowHost *m_host;
    ZelBoxCloudSpaceActionWidget *m_space;
    QVector<QAction *> m_accountActions; ///< need an account
};
