#include "recentmerge.h"

#include "recentdraft.h"

#include <QSet>

#include <algorithm>

namespace zel::recent {
namespace {

// A list may name a file twice, by differently encoded addresses.
QHash<QString, const XbelEntry *> newestByPath(const QVector<XbelEntry> &entries)
{
    QHash<QString, const XbelEntry *> newest;
    newest.reserve(entries.size());
    for (const XbelEntry &entry : entries) {
        const XbelEntry *&known = newest[entry.path];
        const auto rank = [](const XbelEntry &e) { return std::pair(!e.isTimeGuessed, e.time); };
        if (!known || rank(entry) > rank(*known))
            known = &entry;
    }
    return newest;
}

void mergeEntry(RecentDelta &delta, const RecentState &state, int source, const XbelEntry &entry)
{
    const StoredRecord *before = find(state, entry.path);
    StoredRecord after = copyOrNew(before, entry.path);
    const qint64 others = [&] {
        StoredRecord rest = after;
        rest.dropAccess(source);
        return rest.lastAccess();
    }();
    const RecentAccess *known = after.accessOf(source);
    const bool isKnownFolder = after.isFolder() && known && known->time == entry.time; // whatever a list says
    if (!entry.mimeType.isEmpty() && !isKnownFolder && (after.mimeType.isEmpty() || entry.time > others))
        after.mimeType = entry.mimeType;
    // A guessed time is newer each time the list is written, which says nothing of this file.
    if (!entry.isTimeGuessed || !known || known->time > entry.time)
        after.setAccess(source, entry.time);
    note(delta, before, std::move(after));
}

} // namespace

int sourceId(SourceTable &sources, const QString &name)
{
    int next = DesktopSource;
    for (const SourceInfo &source : std::as_const(sources))
        next = std::max(next, source.id);
    SourceInfo &source = sources[name];
    if (source.id == 0)
        source.id = name == DesktopSourceName ? DesktopSource : next + 1;
    return source.id;
}

RecentDelta mergeImport(const RecentState &state, int source, const QVector<XbelEntry> &entries, bool intact)
{
    RecentDelta delta;
    const auto listed = newestByPath(entries);
    for (const XbelEntry &entry : entries) {
        if (listed.value(entry.path) == &entry)
            mergeEntry(delta, state, source, entry);
    }
    if (!intact)
        return delta;
    for (const StoredRecord &record : state) {
        if (!record.accessOf(source) || listed.contains(record.id))
            continue;
        StoredRecord after = record;
        after.dropAccess(source);
        note(delta, &record, std::move(after));
    }
    return delta;
}

RecentDelta markOpened(const RecentState &state, const QString &path, qint64 time)
{
    RecentDelta delta;
    const StoredRecord *before = find(state, path);
    StoredRecord after = copyOrNew(before, path);
    after.openedAt = std::max({time, after.lastAccess(), after.removedTime + 1});
    note(delta, before, std::move(after));
    return delta;
}

RecentDelta markRemoved(const RecentState &state, const QStringList &ids, qint64 now)
{
    RecentDelta delta;
    for (const QString &id : QSet<QString>(ids.cbegin(), ids.cend())) {
        const StoredRecord *before = find(state, id);
        if (!before || !before->isVisible())
            continue;
        StoredRecord after = *before;
        forgetUses(after, now);
        note(delta, before, std::move(after));
    }
    return delta;
}

RecentDelta markLooks(const RecentState &state, const FileLooks &looks, qint64 now, qint64 longGone)
{
    using Presence = RecentFileInfo::Presence;
    RecentDelta delta;
    for (auto it = looks.cbegin(); it != looks.cend(); ++it) {
        const StoredRecord *before = find(state, it.key());
        if (!before || before->isRoamingOnly())
            continue;
        StoredRecord after = *before;
        after.presence = it->presence;
        if (it->size >= 0)
            after.size = it->size;
        if (after.presence == Presence::Present)
            after.missingSince = 0;
        else if (after.presence == Presence::Missing && after.missingSince == 0)
            after.missingSince = now;
        if (it->isFolder) {
            after.mimeType = FolderMimeType;
            after.openedAt = 0;
            after.pinTime = 0;
        } else if (after.presence == Presence::Present && after.isFolder()) {
            after.mimeType.clear();
        }
        if (after.presence == Presence::Missing && after.missingSince < longGone && after.isBoxOnly())
            after.openedAt = 0;
        note(delta, before, std::move(after));
    }
    return delta;
}

RecentDelta markPinned(const RecentState &state, const QStringList &ids, bool pinned)
{
    RecentDelta delta;
    for (const QString &id : QSet<QString>(ids.cbegin(), ids.cend())) {
        const StoredRecord *before = find(state, id);
        if (!before || !before->isVisible() || pinned == (before->pinTime > 0))
            continue;
        StoredRecord after = *before;
        after.pinTime = pinned ? std::max(before->lastAccess(), qint64(1)) : 0;
        // A record that only the pin kept does not vanish under the user's hand.
        if (!after.isVisible())
            after.openedAt = before->pinTime;
        note(delta, before, std::move(after));
    }
    return delta;
}

RecentDelta limitBoxOnly(const RecentState &state, int most)
{
    QVector<const StoredRecord *> ours;
    for (const StoredRecord &record : state) {
        if (record.isBoxOnly())
            ours.append(&record);
    }
    RecentDelta delta;
    if (ours.size() <= most)
        return delta;
    std::nth_element(ours.begin(), ours.begin() + most, ours.end(),
        [](const StoredRecord *a, const StoredRecord *b) { return a->openedAt > b->openedAt; });
    for (const StoredRecord *before : ours.mid(most)) {
        StoredRecord after = *before;
        after.openedAt = 0;
        note(delta, before, std::move(after));
    }
    return delta;
}

RecentDelta markMimeType(const RecentState &state, const QString &path, const QString &mimeType)
{
    RecentDelta delta;
    if (const StoredRecord *before = find(state, path)) {
        StoredRecord after = *before;
        after.mimeType = mimeType;
        note(delta, before, std::move(after));
    }
    return delta;
}

RecentDelta forgetRemovals(const RecentState &state, qint64 before)
{
    RecentDelta delta;
    for (const StoredRecord &record : state) {
        const bool mayReturn = record.isRoamingOnly() ? record.pinTime >= before : record.hasLocalUse();
        if (!mayReturn && !record.roaming && record.removedTime < before)
            delta.erased.append(record);
    }
    return delta;
}

RecentDelta forgetTraces(const RecentState &state, bool desktopListCleared, bool serviceListCleared)
{
    RecentDelta delta;
    for (const StoredRecord &record : state) {
        if (record.isVisible())
            continue;
        StoredRecord after = record;
        if (desktopListCleared)
            after.dropAccess(DesktopSource);
        if (serviceListCleared)
            after.roaming = {};
        if (after.accesses.isEmpty() && !after.roaming) {
            after.openedAt = 0;
            after.removedTime = -1;
        }
        note(delta, &record, std::move(after));
    }
    return delta;
}

RecentDelta difference(const RecentState &before, const RecentState &after)
{
    RecentDelta delta;
    for (const StoredRecord &record : after)
        note(delta, find(before, record.id), record);
    for (const StoredRecord &record : before) {
        if (after.contains(record.id))
            continue;
        delta.erased.append(record);
        if (record.isVisible())
            delta.removed.append(record.toInfo());
    }
    return delta;
}

StoredRecord combined(const StoredRecord &database, const StoredRecord &mine)
{
    StoredRecord result = mine;
    result.rowId = database.rowId;
    result.openedAt = std::max(database.openedAt, mine.openedAt);
    result.removedTime = std::max(database.removedTime, mine.removedTime);
    if (result.openedAt <= result.removedTime)
        result.openedAt = 0;
    if (result.pinTime <= result.removedTime)
        result.pinTime = 0;
    return result;
}

void apply(RecentState &state, const RecentDelta &delta)
{
    if (state.isEmpty())
        state.reserve(delta.stored.size());
    for (const StoredRecord &record : delta.stored)
        state.insert(record.id, record);
    for (const StoredRecord &record : delta.erased)
        state.remove(record.id);
}

QVector<XbelEntry> withoutForeignPrivate(QVector<XbelEntry> entries, const QString &application)
{
    const auto isForeign = [&](const XbelEntry &e) {
        return e.isPrivate && !e.applications.contains(application);
    };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isForeign), entries.end());
    return entries;
}

} // namespace zel::recent
