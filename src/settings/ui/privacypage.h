#pragma once

#include "settings/cloudaccount.h"
#include "settings/historycleaner.h"
#include "settings/storage.h"
#include "settings/ui/settingspage.h"

#include <QMap>

class SettingsCard;
class StorageRow;
class Toggle;

/// Usage events, and what is stored where. GUI thread.
class PrivacyPage final : public SettingsPage
{
    Q_OBJECT
public:
    explicit PrivacyPage(KCloudSvrProxy *cloud, QWidget *parent = nullptr);

    QWidget *control(const QString &name) const override; ///< "telemetry"
    void refresh() override;

private:
    void fillStorage();
    void addRow(const zel::settings::StoragePlace &place);
    void askToClear(zel::settings::StorageKind kind);
    void clear(zel::settings::StorageKind kind);
    void onHistoryCleared(HistoryCleaner::Outcome outcome);
    void tellCleared(bool done);

    CloudAccount m_account;
    HistoryCleaner m_cleaner;
    zel::settings::StorageMeter m_meter;
    QVector<zel::settings::StoragePlace> m_places;
    QMap<zel::settings::StorageKind, StorageRow *> m_rows;
    Toggle *m_telemetry;
    SettingsCard *m_storage = nullptr;
};
