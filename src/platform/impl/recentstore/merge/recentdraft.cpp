#include "recentdraft.h"

#include <algorithm>

namespace zel::recent {
namespace {

void noteShown(RecentDelta &delta, const StoredRecord *before, const StoredRecord &after)
{
    const bool was = before && before->isVisible();
    const bool is = after.isVisible();
    if (is && !was) {
        delta.added.append(after.toInfo());
    } else if (was && !is) {
        delta.removed.append(before->toInfo());
    } else if (was && is) {
        RecentFileInfo info = after.toInfo();
        if (info != before->toInfo())
            delta.changed.append(std::move(info));
    }
}

} // namespace

void note(RecentDelta &delta, const StoredRecord *before, StoredRecord after)
{
    if (after.pinTime > 0)
        after.pinTime = after.lastAccess();
    if (before && *before == after)
        return;
    noteShown(delta, before, after);
    if (after.isNeeded())
        delta.stored.append(std::move(after));
    else if (before)
        delta.erased.append(*before);
}

const StoredRecord *find(const RecentState &state, const QString &id)
{
    const auto found = state.constFind(id);
    return found == state.constEnd() ? nullptr : &*found;
}

StoredRecord copyOrNew(const StoredRecord *record, const QString &id)
{
    if (record)
        return *record;
    StoredRecord made;
    made.id = id;
    return made;
}

Carriers carriersIn(const RecentState &state)
{
    Carriers carriers;
    for (const StoredRecord &record : state) {
        if (record.roaming)
            carriers.insert(record.roaming->item.roamingId, record.id);
    }
    return carriers;
}

void forgetUses(StoredRecord &record, qint64 now)
{
    record.removedTime = std::max(std::min(record.lastAccess(), now), record.removedTime);
    record.openedAt = 0;
    record.pinTime = 0;
    for (RecentAccess &access : record.accesses) {
        if (access.time > record.removedTime)
            access.time = -access.time;
    }
    if (record.roaming && record.roaming->time() >= 0) {
        RoamingPart part = *record.roaming;
        part.forgottenTime = part.item.time;
        record.roaming = std::move(part);
    }
}

Draft::Draft(const RecentState &state, const RecentDelta &delta) : m_state(state)
{
    for (const StoredRecord &record : delta.stored)
        m_edited.insert_or_assign(record.id, record);
    for (const StoredRecord &record : delta.erased) {
        StoredRecord nothing = copyOrNew(nullptr, record.id);
        nothing.rowId = record.rowId;
        m_edited.insert_or_assign(record.id, nothing);
    }
}

const StoredRecord *Draft::find(const QString &id) const
{
    const auto edited = m_edited.find(id);
    return edited != m_edited.end() ? &edited->second : recent::find(m_state, id);
}

StoredRecord &Draft::edit(const QString &id)
{
    const auto edited = m_edited.find(id);
    if (edited != m_edited.end())
        return edited->second;
    return m_edited.emplace(id, copyOrNew(recent::find(m_state, id), id)).first->second;
}

RecentDelta Draft::delta() const
{
    RecentDelta delta;
    for (const auto &[id, record] : m_edited)
        note(delta, recent::find(m_state, id), record);
    return delta;
}

} // namespace zel::recent
