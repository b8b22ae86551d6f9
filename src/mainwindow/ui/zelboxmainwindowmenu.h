#pragma once

#include <QMenu>

class CloudSpace;
class MainWindowHost;
class ZelBoxCloudSpaceActionWidget;

/// The main window's menu. GUI thread. What needs a cloud server is there only when one is configured.
class ZelBoxMainWindowMenu : public QMenu
{
    Q_OBJECT
public:
    /// `space` must outlive the menu; `cloudPage` is the number of the cloud documents, whose keys are shown.
    ZelBoxMainWindowMenu(MainWindowHost *host, CloudSpace *space, int cloudPage, QWidget *parent);

public Q_SLOTS:
    void onCloudDiskAction();      ///< shows the cloud documents page
    void onCloudWebsiteAction();   ///< opens the web page of the cloud server
    void onTransferDetailAction(); ///< shows the transfers
    void onUpgradeVipAction();
    void onSettingsAction();
    void onLogoutAction(); ///< signs out, or in again with this computer's account
    void onExitAction();   ///< asks by the exit dialog
    void onUserVipInfoUpdate();

Q_SIGNALS:
    void pageRequested(const QString &sourceKey, const QString &place); ///< empty: the page as it is

private:
    QAction *add(const char *icon, const QString &text, void (ZelBoxMainWindowMenu::*slot)());
    void addServerEntries();

    MainWindowHost *m_host;
    CloudSpace *m_space;
    ZelBoxCloudSpaceActionWidget *m_spaceText;
    QAction *m_sign = nullptr;
};
