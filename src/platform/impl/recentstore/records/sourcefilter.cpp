#include "sourcefilter.h"

#include "recentlist.h"

#include <algorithm>

namespace zel::recent {
namespace {

// What the service knows of a file that is used here, without the uses elsewhere.
RoamingPart withoutOtherDevices(RoamingPart part)
{
    part.item.unread = -1;
    if (!part.item.deviceName.isEmpty())
        part.forgottenTime = part.item.time;
    part.item.deviceName.clear();
    return part;
}

} // namespace

std::optional<RecentFileInfo> seenThrough(const StoredRecord &record, int sources)
{
    StoredRecord seen = record;
    if (!(sources & RecentSource::Desktop))
        seen.accesses.clear();
    if (!(sources & RecentSource::Box)) {
        seen.openedAt = 0;
        seen.pinTime = 0;
    }
    if (!(sources & RecentSource::Devices) && seen.roaming)
        seen.roaming = seen.isRoamingOnly() ? RoamingRef() : RoamingRef(withoutOtherDevices(*seen.roaming));
    if (!seen.isVisible())
        return {};
    RecentFileInfo info = seen.toInfo();
    info.pinned = record.pinTime > 0;
    return info;
}

RecordInfoList SourceFilter::records(const RecentState &state)
{
    m_shown.clear();
    if (isWhole())
        return visibleRecords(state);
    RecordInfoList list;
    for (const StoredRecord &record : state) {
        if (std::optional<RecentFileInfo> info = seenThrough(record, m_sources)) {
            m_shown.insert(record.id, *info);
            list.append(std::move(*info));
        }
    }
    std::sort(list.begin(), list.end(), newerFirst);
    return list;
}

RecentDelta SourceFilter::visiblePart(const RecentDelta &change, const RecentState &after)
{
    if (isWhole())
        return change;
    RecentDelta delta;
    for (const StoredRecord &record : change.stored)
        note(delta, record.id, after);
    for (const StoredRecord &record : change.erased)
        note(delta, record.id, after);
    return delta;
}

void SourceFilter::note(RecentDelta &delta, const QString &id, const RecentState &after)
{
    const auto record = after.constFind(id);
    const auto was = m_shown.find(id);
    const std::optional<RecentFileInfo> is =
        record == after.cend() ? std::nullopt : seenThrough(*record, m_sources);
    if (!is && was == m_shown.end())
        return;
    if (!is) {
        delta.removed.append(*was);
        m_shown.erase(was);
        return;
    }
    if (was == m_shown.end())
        delta.added.append(*is);
    else if (*was != *is)
        delta.changed.append(*is);
    m_shown.insert(id, *is);
}

} // namespace zel::recent
