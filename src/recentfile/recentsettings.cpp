#include "recentfile/recentsettings.h"

#include "base/logging.h"
#include "base/settingskeys.h"
#include "krecentfile.h"
#include "ksettings.h"

#include <optional>

namespace zel::recent {

namespace {

static_assert(AllKinds
    == (RecentRecordKind::Roaming | RecentRecordKind::Opened | RecentRecordKind::Desktop
        | RecentRecordKind::Sandbox));
constexpr int DefaultLoadingTimeout = 5000;

std::optional<int> cachedMask;
QString cachedInterval;

int readNumber(QLatin1String key, int defaultValue)
{
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    bool ok = false;
    const int value = settings.value(key, defaultValue).toInt(&ok);
    if (!ok)
        qCWarning(lcRecent) << "setting" << key << "is not a number, using" << defaultValue;
    return ok ? value : defaultValue;
}

QString readInterval()
{
    KSettings settings;
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    return settings.value(keys::UpdateRoamingFilesInterval, QStringLiteral("1800000")).toString();
}

struct SourceKey
{
    int source;
    QLatin1String key;
};
constexpr SourceKey SourceKeys[] = {
    {RecentSource::Desktop, keys::RecentSourceDesktop},
    {RecentSource::Box, keys::RecentSourceBox},
    {RecentSource::Devices, keys::RecentSourceDevices},
};

} // namespace

SettingsEvents *SettingsEvents::instance()
{
    static SettingsEvents events;
    return &events;
}

int kindMask()
{
    if (!cachedMask)
        cachedMask = readNumber(keys::RecentRecordType, AllKinds) & AllKinds;
    return *cachedMask;
}

void setKindMask(int mask)
{
    mask &= AllKinds;
    if (mask == kindMask())
        return;
    cachedMask = mask;
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    settings.setValue(keys::RecentRecordType, mask);
    Q_EMIT SettingsEvents::instance()->kindMaskChanged();
}

int roamingRefreshInterval()
{
    if (cachedInterval.isEmpty())
        cachedInterval = readInterval();
    bool ok = false;
    const int interval = cachedInterval.toInt(&ok, 10);
    if (!ok)
        qCWarning(lcRecent) << "setting" << keys::UpdateRoamingFilesInterval << "is not a number, using 0";
    return interval;
}

int loadingTimeout()
{
    const int timeout = readNumber(keys::RecentFileLoadingOuttimeTime, DefaultLoadingTimeout);
    return timeout > 0 ? timeout : DefaultLoadingTimeout;
}

bool remindersOn()
{
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    return settings.value(keys::RemindMsg, true).toBool() && !settings.value(keys::IgnoreMsg, false).toBool();
}

void setRemindersOn(bool on)
{
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    settings.setValue(keys::RemindMsg, on);
    settings.setValue(keys::IgnoreMsg, !on);
    Q_EMIT SettingsEvents::instance()->remindersChanged(on);
}

int storedSources()
{
    KSettings settings;
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    int sources = 0;
    for (const SourceKey &each : SourceKeys) {
        if (settings.value(each.key, true).toBool())
            sources |= each.source;
    }
    return sources;
}

void storeSources(int sources)
{
    KSettings settings;
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    for (const SourceKey &each : SourceKeys)
        settings.setValue(each.key, (sources & each.source) != 0);
    SetRecentSources(sources);
}

void resetSettingsCache()
{
    cachedMask.reset();
    cachedInterval.clear();
}

} // namespace zel::recent
