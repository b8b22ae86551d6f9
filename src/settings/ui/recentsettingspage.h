#pragma once

#include "settings/ui/settingspage.h"

#include <QVector>

class SettingsCard;
class SettingsRow;
class Toggle;

/// What the list of recent documents is made of, and whether marks remind. GUI thread.
class RecentSettingsPage final : public SettingsPage
{
    Q_OBJECT
public:
    explicit RecentSettingsPage(QWidget *parent = nullptr);

    void refresh() override;

private:
    /// A switch that stands for some bits of a mask.
    struct Switch
    {
        int bits;
        Toggle *toggle;
        SettingsRow *row;
        int source; ///< of a kind: the source without which there is none of it
    };

    void addSources();
    void addKinds();
    Switch add(SettingsCard *card, int bits, const QString &title, const QString &text);
    void storeSources();
    void storeKinds();
    void showDependence();

    QVector<Switch> m_sources;
    QVector<Switch> m_kinds;
    Toggle *m_reminders;
    bool m_reading = false; ///< the switches follow the settings, not the other way round
};
