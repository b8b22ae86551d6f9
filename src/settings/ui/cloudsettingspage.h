#pragma once

#include "settings/cloudaccount.h"
#include "settings/cloudoptions.h"
#include "settings/ui/settingspage.h"

class QPushButton;
class SettingChoice;
class SettingsRow;
class Toggle;

/// Account, drive, transfers and server. GUI thread. Follows the service: also while it is away.
class CloudSettingsPage final : public SettingsPage
{
    Q_OBJECT
public:
    explicit CloudSettingsPage(KCloudSvrProxy *cloud, QWidget *parent = nullptr);

    QWidget *control(const QString &name) const override; ///< "account"

private:
    void addAccount();
    void addDrive();
    void addTransfers();
    void addServer();
    void update();
    void updateOptions();
    void act();
    void onFailed(CloudAccount::Problem problem, int waitingUploads);
    void askToDropUploads(int count);

    CloudAccount m_account;
    CloudOptions m_options;
    QPushButton *m_sign;
    QPushButton *m_open;
    Toggle *m_listed;
    SettingChoice *m_bubbles;
    SettingsRow *m_accountRow = nullptr;
    SettingsRow *m_folderRow = nullptr;
    SettingsRow *m_spaceRow = nullptr;
    SettingsRow *m_listedRow = nullptr;
    SettingsRow *m_copiesRow = nullptr;
    SettingsRow *m_bubblesRow = nullptr;
};
