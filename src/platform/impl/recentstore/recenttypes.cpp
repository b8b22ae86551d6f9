#include "recenttypes.h"

#include <algorithm>

namespace zel::recent {
namespace {

int kindOf(int source)
{
    return source == DesktopSource ? RecentRecordKind::Desktop : RecentRecordKind::Sandbox;
}

} // namespace

qint64 StoredRecord::lastAccess() const
{
    qint64 newest = openedAt;
    for (const RecentAccess &access : accesses)
        newest = std::max(newest, access.time);
    return newest;
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
    if (openedAt > 0)
        offer(RecentRecordKind::Opened, openedAt);
    for (const RecentAccess &access : accesses)
        offer(kindOf(access.source), access.time);
    return best;
}

bool StoredRecord::isVisible() const
{
    return (openedAt > 0 || !accesses.isEmpty()) && lastAccess() > removedTime;
}

bool StoredRecord::isNeeded() const
{
    return openedAt > 0 || removedTime >= 0 || !accesses.isEmpty();
}

bool StoredRecord::isBoxOnly() const
{
    return openedAt > 0 && accesses.isEmpty();
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
    info.id = path;
    info.kind = kind();
    info.path = path;
    info.displayText = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    info.mimeType = mimeType;
    info.lastAccess = lastAccess();
    info.presence = presence;
    return info;
}

} // namespace zel::recent
