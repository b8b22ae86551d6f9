#include "recenttypes.h"

#include <algorithm>

namespace zel::recent {
namespace {

int kindOf(int source)
{
    return source == DesktopSource ? RecentRecordKind::Desktop : RecentRecordKind::Sandbox;
}

void addRoaming(RecentFileInfo &info, const RoamingPart &part, qint64 lastUseHere)
{
    using Presence = RecentFileInfo::Presence;
    const RoamingItem &item = part.item;
    copyShown(RoamingItemFields, item, info);
    info.cloudFileId = item.fileId.toLongLong();
    info.cloudBacked = !item.fileId.isEmpty();
    if (item.time > lastUseHere)
        info.deviceName = item.deviceName;
    if (info.size < 0)
        info.size = item.size;
    if (!info.path.isEmpty())
        return;
    info.roaming = true;
    info.displayText = item.name;
    info.path = part.foundPath;
    info.presence = part.foundPath.isEmpty() ? Presence::Unknown : Presence::Present;
}

} // namespace

bool StoredRecord::isRoamingOnly() const
{
    return !id.startsWith(QLatin1Char('/'));
}

bool StoredRecord::hasLocalUse() const
{
    return openedAt > 0 || pinTime > 0 || !accesses.isEmpty();
}

qint64 StoredRecord::lastLocalUse() const
{
    qint64 newest = openedAt;
    for (const RecentAccess &access : accesses)
        newest = std::max(newest, access.time);
    return newest;
}

qint64 StoredRecord::lastAccess() const
{
    const qint64 newest = std::max(lastLocalUse(), pinTime);
    return roaming ? std::max(newest, roaming->time()) : newest;
}

int StoredRecord::kind() const
{
    int best = 0;
    qint64 newest = -1;
    const auto offer = [&](int kind, qint64 time) {
        if (time > newest || (time == newest && kind < best)) {
            newest = time;
            best = kind;
        }
    };
    if (openedAt > 0 || pinTime > 0)
        offer(RecentRecordKind::Opened, openedAt);
    for (const RecentAccess &access : accesses)
        offer(kindOf(access.source), access.time);
    const bool roamed = roaming && roaming->time() > removedTime;
    return roamed && (isRoamingOnly() || newest <= removedTime) ? int(RecentRecordKind::Roaming) : best;
}

bool StoredRecord::isVisible() const
{
    if (isFolder())
        return false;
    if (hasLocalUse() && !isRoamingOnly() && std::max(lastLocalUse(), pinTime) > removedTime)
        return true;
    return roaming && roaming->time() > removedTime;
}

bool StoredRecord::isNeeded() const
{
    return hasLocalUse() || removedTime >= 0 || roaming;
}

bool StoredRecord::isBoxOnly() const
{
    return openedAt > 0 && accesses.isEmpty() && pinTime == 0;
}

const RecentAccess *StoredRecord::accessOf(int source) const
{
    const auto found = std::find_if(
        accesses.cbegin(), accesses.cend(), [source](const RecentAccess &a) { return a.source == source; });
    return found == accesses.cend() ? nullptr : &*found;
}

void StoredRecord::setAccess(int source, qint64 time)
{
    for (RecentAccess &access : accesses) {
        if (access.source == source) {
            if (access.time != -time)
                access.time = time;
            return;
        }
    }
    accesses.append({source, time});
}

void StoredRecord::dropAccess(int source)
{
    const auto end = std::remove_if(
        accesses.begin(), accesses.end(), [source](const RecentAccess &a) { return a.source == source; });
    accesses.resize(int(end - accesses.begin()));
}

RecentFileInfo StoredRecord::toInfo() const
{
    RecentFileInfo info;
    copyShown(StoredRecordFields, *this, info);
    info.kind = kind();
    info.lastAccess = lastAccess();
    info.pinned = pinTime > 0;
    if (!isRoamingOnly()) {
        info.path = id;
        info.displayText = id.mid(id.lastIndexOf(QLatin1Char('/')) + 1);
    }
    if (roaming)
        addRoaming(info, *roaming, lastLocalUse());
    return info;
}

QString roamingRecordId(const QString &roamingId)
{
    return QLatin1String("roaming:") + roamingId;
}

RecentDelta &RecentDelta::operator+=(const RecentDelta &other)
{
    stored += other.stored;
    erased += other.erased;
    added += other.added;
    removed += other.removed;
    changed += other.changed;
    return *this;
}

} // namespace zel::recent
