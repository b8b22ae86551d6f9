#include "settings/ui/recentsettingspage.h"

#include "krecentfile.h"
#include "recentfile/recentsettings.h"
#include "settings/ui/settingscard.h"
#include "widgets/toggle.h"

#include <QScopedValueRollback>

using zel::recent::SettingsEvents;

namespace {

template <class Switches> int maskOf(const Switches &switches)
{
    int mask = 0;
    for (const auto &each : switches)
        mask |= each.toggle->isChecked() ? each.bits : 0;
    return mask;
}

} // namespace

RecentSettingsPage::RecentSettingsPage(QWidget *parent)
    : SettingsPage(tr("Recent"), parent), m_reminders(new Toggle(QString(), this))
{
    addSources();
    addKinds();
    SettingsCard *devices = addCard(tr("Other devices"));
    devices->addRow(tr("Remind of changes on other devices"),
        tr("Documents that another device has added or modified get a mark, and the page shows how many "
           "there "
           "are."),
        m_reminders);
    RecentSettingsPage::refresh();
    connect(m_reminders, &Toggle::toggled, this, [this](bool on) {
        if (!m_reading)
            zel::recent::setRemindersOn(on);
    });
    const SettingsEvents *events = SettingsEvents::instance();
    connect(events, &SettingsEvents::remindersChanged, this, &RecentSettingsPage::refresh);
    connect(events, &SettingsEvents::kindMaskChanged, this, &RecentSettingsPage::refresh);
}

void RecentSettingsPage::addSources()
{
    SettingsCard *card = addCard(tr("Sources"),
        tr("What the list is made of. A source that is switched off is hidden; nothing of it is lost."));
    m_sources << add(card, RecentSource::Desktop, tr("This desktop's list"),
        tr("Documents that any program of this desktop has opened, including sandboxed programs."));
    m_sources << add(card, RecentSource::Box, tr("Documents used in ZEL Box"),
        tr("Documents that you opened or pinned here."));
    m_sources << add(card, RecentSource::Devices, tr("Other devices"),
        tr("Documents that you used on other devices, as the cloud service tells."));
    for (const Switch &each : qAsConst(m_sources))
        connect(each.toggle, &Toggle::toggled, this, &RecentSettingsPage::storeSources);
}

void RecentSettingsPage::addKinds()
{
    SettingsCard *card =
        addCard(tr("Shown in the list"), tr("Which of these documents the list shows, by their last use."));
    const auto kind = [&](int bit, const QString &title, int source) {
        Switch made = add(card, bit, title, QString());
        made.source = source;
        connect(made.toggle, &Toggle::toggled, this, &RecentSettingsPage::storeKinds);
        m_kinds << made;
    };
    kind(RecentRecordKind::Opened, tr("Last used in ZEL Box"), RecentSource::Box);
    kind(RecentRecordKind::Desktop, tr("Last used in programs of this desktop"), RecentSource::Desktop);
    kind(RecentRecordKind::Sandbox, tr("Last used in sandboxed programs"), RecentSource::Desktop);
    kind(RecentRecordKind::Roaming, tr("Last used on other devices"), RecentSource::Devices);
}

RecentSettingsPage::Switch RecentSettingsPage::add(
    SettingsCard *card, int bits, const QString &title, const QString &text)
{
    auto *toggle = new Toggle(QString(), this);
    return {bits, toggle, card->addRow(title, text, toggle), 0};
}

void RecentSettingsPage::storeSources()
{
    if (m_reading)
        return;
    zel::recent::storeSources(maskOf(m_sources));
    showDependence();
}

void RecentSettingsPage::storeKinds()
{
    if (!m_reading)
        zel::recent::setKindMask(maskOf(m_kinds));
}

// Nothing can be shown of a source that is off.
void RecentSettingsPage::showDependence()
{
    const int sources = maskOf(m_sources);
    for (const Switch &kind : qAsConst(m_kinds))
        kind.row->setRowEnabled((sources & kind.source) != 0);
}

void RecentSettingsPage::refresh()
{
    const int sources = zel::recent::storedSources();
    const int kinds = zel::recent::kindMask();
    const QScopedValueRollback reading(m_reading, true);
    for (const Switch &each : qAsConst(m_sources))
        each.toggle->setChecked(sources & each.bits);
    for (const Switch &each : qAsConst(m_kinds))
        each.toggle->setChecked(kinds & each.bits);
    m_reminders->setChecked(zel::recent::remindersOn());
    showDependence();
}
