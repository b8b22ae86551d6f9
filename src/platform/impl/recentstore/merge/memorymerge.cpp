#include "memorymerge.h"

#include "recentdraft.h"
#include "recentmerge.h"

#include <algorithm>

namespace zel::recent {
namespace {

// Which record of the disk it is: one of the service may have joined a local file there.
QString idOnDisk(const StoredRecord &mine, const Carriers &known)
{
    return mine.isRoamingOnly() && mine.roaming ? known.value(mine.roaming->item.roamingId, mine.id)
                                                : mine.id;
}

void joinRoaming(StoredRecord &record, const StoredRecord &mine, const Carriers &known)
{
    if (!mine.roaming)
        return;
    RoamingPart part = *mine.roaming;
    const QString holder = known.value(part.item.roamingId, record.id);
    if (holder != record.id)
        return; // the service's next list says where it belongs
    if (record.roaming)
        part.forgottenTime = std::max(part.forgottenTime, record.roaming->forgottenTime);
    record.roaming = std::move(part);
}

void joinLooks(StoredRecord &record, const StoredRecord &mine)
{
    if (mine.presence != RecentFileInfo::Presence::Unknown) {
        record.presence = mine.presence;
        record.missingSince = mine.missingSince;
    }
    if (mine.size >= 0)
        record.size = mine.size;
    if (!mine.mimeType.isEmpty())
        record.mimeType = mine.mimeType;
}

} // namespace

RecentDelta mergeMemory(const RecentState &disk, SourceTable &sources, const RecentState &memory,
    const SourceTable &memorySources, qint64 now)
{
    QHash<int, int> sourceIds;
    for (auto it = memorySources.cbegin(); it != memorySources.cend(); ++it)
        sourceIds.insert(it->id, sourceId(sources, it.key()));
    const Carriers known = carriersIn(disk);
    RecentDelta delta;
    for (const StoredRecord &mine : memory) {
        const QString id = idOnDisk(mine, known);
        const StoredRecord *before = find(disk, id);
        StoredRecord after = copyOrNew(before, id);
        const bool isKnown =
            before && before->removedTime == mine.removedTime; // and may have been used since
        if (mine.removedTime >= 0 && !isKnown)
            forgetUses(after, now);
        after.removedTime = std::max(after.removedTime, mine.removedTime);
        for (const RecentAccess &access : mine.accesses)
            after.setAccess(sourceIds.value(access.source), access.time);
        if (mine.openedAt > 0)
            after.openedAt = std::max({after.openedAt, mine.openedAt, after.removedTime + 1});
        if (mine.pinTime > 0)
            after.pinTime = std::max(mine.pinTime, after.removedTime + 1);
        joinRoaming(after, mine, known);
        joinLooks(after, mine);
        note(delta, before, std::move(after));
    }
    return delta;
}

} // namespace zel::recent
