#include "settings/ui/privacypage.h"

#include "kdcinfoc.h"
#include "kdocumentopener.h"
#include "krt/krt.h"
#include "settings/ui/confirmdialog.h"
#include "settings/ui/settingscard.h"
#include "settings/ui/storagerow.h"
#include "widgets/noticebar.h"
#include "widgets/toggle.h"

#include <QPushButton>

using zel::settings::StorageKind;
using zel::settings::StoragePlace;
using zel::settings::StorageUse;

namespace {

/// What a person reads before something is cleared.
struct Warning
{
    QString question;
    QStringList texts;
};

Warning warningFor(StorageKind kind)
{
    switch (kind) {
    case StorageKind::RecentHistory:
        return {PrivacyPage::tr("Clear the history of recent documents?"),
            {PrivacyPage::tr(
                 "The list is emptied for good, pins included. The same documents go from the desktop's list "
                 "of recent documents, which other programs show, and from the list of your devices."),
                PrivacyPage::tr("The documents themselves stay where they are.")}};
    case StorageKind::Logs:
        return {PrivacyPage::tr("Clear the logs?"),
            {PrivacyPage::tr("If something has gone wrong lately, its traces are lost.")}};
    case StorageKind::Telemetry:
        return {PrivacyPage::tr("Clear the usage events?"),
            {PrivacyPage::tr(
                "Everything that was written so far is removed. Whether further events are written is up "
                "to the switch above.")}};
    case StorageKind::CloudDrive:
    case StorageKind::CloudDatabase:
    case StorageKind::Settings:
    case StorageKind::Thumbnails:
        break;
    }
    return {};
}

} // namespace

PrivacyPage::PrivacyPage(KCloudSvrProxy *cloud, QWidget *parent)
    : SettingsPage(tr("Privacy"), parent),
      m_account(cloud),
      m_cleaner(cloud),
      m_telemetry(new Toggle(QString(), this))
{
    SettingsCard *events = addCard(tr("Usage events"));
    events->addRow(tr("Write usage events to a file on this computer"),
        tr("Which functions are used how often, for whoever looks for errors. Off unless you switch it on; "
           "the "
           "file never leaves this computer."),
        m_telemetry);
    m_telemetry->setChecked(KDcInfoC::isEnabled());
    connect(m_telemetry, &Toggle::toggled, this, [this](bool on) {
        KDcInfoC::setEnabled(on);
        refresh();
    });
    m_storage = addCard(tr("What is stored where"),
        tr("All of this lies in your own folders, and nobody else is told of it."));
    connect(&m_account, &CloudAccount::changed, this, &PrivacyPage::fillStorage);
    connect(&m_meter, &zel::settings::StorageMeter::measured, this,
        [this](StorageKind kind, const StorageUse &use) {
            if (StorageRow *row = m_rows.value(kind))
                row->setUse(use);
        });
    connect(&m_cleaner, &HistoryCleaner::finished, this, &PrivacyPage::onHistoryCleared);
    fillStorage();
}

// The drive's place is known once the service has told it; the rows then stand anew, in their order.
void PrivacyPage::fillStorage()
{
    const QVector<StoragePlace> places = zel::settings::storagePlaces(m_account.folder());
    if (places == m_places)
        return;
    m_places = places;
    qDeleteAll(m_rows);
    m_rows.clear();
    for (const StoragePlace &place : places)
        addRow(place);
    refresh();
}

void PrivacyPage::addRow(const StoragePlace &place)
{
    auto *row = new StorageRow(place, m_storage);
    m_rows.insert(place.kind, row);
    m_storage->addRow(row);
    connect(row, &StorageRow::showFolderRequested, this,
        [folder = place.folder] { KDocumentOpener::instance()->open(folder); });
    connect(row, &StorageRow::clearRequested, this, [this, kind = place.kind] { askToClear(kind); });
}

void PrivacyPage::refresh()
{
    m_telemetry->setChecked(KDcInfoC::isEnabled());
    if (!m_places.isEmpty())
        m_meter.measure(m_places);
}

void PrivacyPage::askToClear(StorageKind kind)
{
    const Warning warning = warningFor(kind);
    auto *dialog = new ConfirmDialog(tr("Clear"), warning.question, tr("Clear"), window());
    for (const QString &text : warning.texts)
        dialog->addText(text);
    connect(dialog, &QDialog::accepted, this, [this, kind] { clear(kind); });
    dialog->open();
}

void PrivacyPage::clear(StorageKind kind)
{
    switch (kind) {
    case StorageKind::RecentHistory:
        m_rows.value(kind)->clearButton()->setEnabled(false);
        return m_cleaner.clear();
    case StorageKind::Logs:
        return tellCleared(krt::log::clear());
    case StorageKind::Telemetry:
        return tellCleared(KDcInfoC::clear());
    case StorageKind::CloudDrive:
    case StorageKind::CloudDatabase:
    case StorageKind::Settings:
    case StorageKind::Thumbnails:
        return;
    }
}

void PrivacyPage::tellCleared(bool done)
{
    if (done)
        notice()->showText(tr("Cleared."), NoticeBar::Tone::Info);
    else
        notice()->showText(tr("Some of it could not be removed."));
    refresh();
}

void PrivacyPage::onHistoryCleared(HistoryCleaner::Outcome outcome)
{
    using Outcome = HistoryCleaner::Outcome;
    switch (outcome) {
    case Outcome::Cleared:
        return tellCleared(true);
    case Outcome::DesktopListKept:
        notice()->showText(
            tr("Cleared here. The desktop's list could not be changed, so it still names the documents."));
        break;
    case Outcome::ServiceKept:
        notice()->showText(tr("Cleared here. The cloud service could not be asked; its list is as it was."));
        break;
    }
    refresh();
}

QWidget *PrivacyPage::control(const QString &name) const
{
    return name == QLatin1String("telemetry") ? m_telemetry : nullptr;
}
