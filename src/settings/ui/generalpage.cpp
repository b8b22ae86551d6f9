#include "settings/ui/generalpage.h"

#include "base/settingskeys.h"
#include "ksettings.h"
#include "kskin.h"
#include "settings/ui/settingchoice.h"
#include "settings/ui/settingscard.h"
#include "widgets/noticebar.h"
#include "widgets/toggle.h"

namespace {

void enterBox(KSettings &settings)
{
    settings.beginGroup(zel::keys::Plugins);
    settings.beginGroup(zel::keys::Zelbox);
}

QVariant stored(const QString &key)
{
    KSettings settings;
    enterBox(settings);
    return settings.value(key, QString());
}

void store(const QString &key, const QVariant &value)
{
    KSettings settings;
    enterBox(settings);
    settings.setValue(key, value);
}

} // namespace

GeneralPage::GeneralPage(KSkin *skin, const zel::Autostart &autostart, QWidget *parent)
    : SettingsPage(tr("General"), parent),
      m_autostart(autostart),
      m_start(new Toggle(QString(), this)),
      m_close(new SettingChoice(this)),
      m_theme(new SettingChoice(this)),
      m_language(new SettingChoice(this))
{
    SettingsCard *running = addCard(tr("Start and end"));
    running->addRow(tr("Start with the session"),
        tr("When you log in, ZEL Box starts in the background, without a window."), m_start);
    fillClose();
    running->addRow(tr("When the window is closed"),
        tr("Automatic: it keeps running in the background where the desktop has a tray, and asks elsewhere."),
        m_close);
    SettingsCard *look = addCard(tr("Look and language"));
    fillTheme();
    look->addRow(tr("Appearance"), QString(), m_theme);
    fillLanguage();
    look->addRow(tr("Language"), QString(), m_language);

    connect(m_start, &Toggle::toggled, this, &GeneralPage::onAutostart);
    connect(skin, &KSkin::themeChanged, this, &GeneralPage::refresh);
    GeneralPage::refresh();
}

void GeneralPage::fillClose()
{
    m_close->addItem(tr("Automatic"), QString());
    m_close->addItem(tr("Keep running"), QStringLiteral("hide"));
    m_close->addItem(tr("Ask each time"), QStringLiteral("ask"));
    m_close->addItem(tr("Exit"), QStringLiteral("exit"));
    connect(m_close, &SettingChoice::chosen, this,
        [](const QVariant &action) { store(zel::keys::CloseAction, action); });
}

void GeneralPage::fillTheme()
{
    m_theme->addItem(tr("Like the desktop"), int(KSkin::Theme::Auto));
    m_theme->addItem(tr("Light"), int(KSkin::Theme::Light));
    m_theme->addItem(tr("Dark"), int(KSkin::Theme::Dark));
    connect(m_theme, &SettingChoice::chosen, this,
        [](const QVariant &theme) { KSkin::setTheme(KSkin::Theme(theme.toInt())); });
}

// Each language by its own name, so that its speakers find it whatever the box speaks now.
void GeneralPage::fillLanguage()
{
    m_language->addItem(tr("Like the desktop"), QString());
    m_language->addItem(QStringLiteral("English"), QStringLiteral("en"));
    m_language->addItem(QStringLiteral("简体中文"), QStringLiteral("zh_CN"));
    connect(m_language, &SettingChoice::chosen, this, [this](const QVariant &language) {
        if (stored(zel::keys::Language) == language)
            return;
        store(zel::keys::Language, language);
        Q_EMIT languageChosen();
    });
}

void GeneralPage::refresh()
{
    m_start->setChecked(m_autostart.isOn());
    m_close->choose(stored(zel::keys::CloseAction));
    m_theme->choose(int(KSkin::theme()));
    m_language->choose(stored(zel::keys::Language));
}

void GeneralPage::onAutostart(bool on)
{
    if (m_autostart.setOn(on)) // also when it has been so before
        return;
    notice()->showText(on ? tr("The entry for the start with the session cannot be written.")
                          : tr("The entry for the start with the session cannot be changed."));
    refresh();
}

QWidget *GeneralPage::control(const QString &name) const
{
    if (name == QLatin1String("autostart"))
        return m_start;
    if (name == QLatin1String("close"))
        return m_close;
    if (name == QLatin1String("theme"))
        return m_theme;
    return name == QLatin1String("language") ? m_language : nullptr;
}
