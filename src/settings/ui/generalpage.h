#pragma once

#include "base/autostart.h"
#include "settings/ui/settingspage.h"

class KSkin;
class SettingChoice;
class Toggle;

/// Start, window, look and language. GUI thread.
class GeneralPage final : public SettingsPage
{
    Q_OBJECT
public:
    GeneralPage(KSkin *skin, const zel::Autostart &autostart, QWidget *parent = nullptr);

    QWidget *control(const QString &name) const override; ///< "autostart", "close", "theme", "language"
    void refresh() override;

Q_SIGNALS:
    void languageChosen(); ///< and stored

private:
    void onAutostart(bool on);
    void fillClose();
    void fillTheme();
    void fillLanguage();

    zel::Autostart m_autostart;
    Toggle *m_start;
    SettingChoice *m_close;
    SettingChoice *m_theme;
    SettingChoice *m_language;
};
