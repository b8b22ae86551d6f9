#include "roamingmerge.h"

#include "recentdraft.h"

#include <QSet>

#include <algorithm>

namespace zel::recent {
namespace {

// Newest first, each id once.
QVector<RoamingItem> inOrder(QVector<RoamingItem> items)
{
    std::stable_sort(items.begin(), items.end(),
        [](const RoamingItem &a, const RoamingItem &b) { return a.time > b.time; });
    QSet<QString> known;
    const auto again = [&known](const RoamingItem &item) {
        const int before = known.size();
        known.insert(item.roamingId);
        return known.size() == before;
    };
    items.erase(std::remove_if(items.begin(), items.end(), again), items.end());
    return items;
}

// A removal that covers the use has the record, too, so that it stays away.
bool isLocalRecordFor(const StoredRecord &record, qint64 time)
{
    return !record.isRoamingOnly() && (record.hasLocalUse() || record.removedTime >= time);
}

// Takes the part out of its record, with what the user did to a record that was nothing else.
RoamingPart takePart(StoredRecord &carrier, qint64 &pinTime)
{
    RoamingPart part = *carrier.roaming;
    carrier.roaming = {};
    if (carrier.isRoamingOnly()) {
        part.forgottenTime = std::max(part.forgottenTime, carrier.removedTime);
        pinTime = std::exchange(carrier.pinTime, 0);
        carrier.removedTime = -1;
    }
    return part;
}

void givePart(StoredRecord &carrier, RoamingPart part, qint64 pinTime)
{
    const QStringList places{part.item.usedPath, part.item.cachePath};
    if (!carrier.isRoamingOnly() || !places.contains(part.foundPath))
        part.foundPath.clear();
    carrier.pinTime = std::max(carrier.pinTime, pinTime);
    carrier.roaming = std::move(part);
}

// What is known of the same record, brought up to date.
RoamingPart renewed(RoamingPart part, const RoamingItem &item)
{
    const bool newUse = item.time > part.item.time;
    part.isReadUntold = part.isReadUntold && !newUse && item.unread >= 0;
    part.item = item;
    if (part.isReadUntold)
        part.item.unread = -1;
    return part;
}

class Merge
{
public:
    Merge(const RecentState &state, const RoamingList &list)
        : m_state(state), m_draft(state), m_items(inOrder(list.items)), m_carriers(carriersIn(state))
    {
        QSet<QString> named;
        for (const RoamingItem &item : std::as_const(m_items))
            named.insert(item.roamingId);
        for (auto it = m_carriers.begin(); it != m_carriers.end();) {
            const bool ours = find(state, *it)->roaming->item.user == list.user;
            const bool stays = ours && (named.contains(it.key()) || !list.complete);
            if (!stays)
                m_draft.edit(*it).roaming = {};
            else if (!named.contains(it.key()))
                m_taken.insert(*it);
            it = stays ? std::next(it) : m_carriers.erase(it);
        }
    }

    RecentDelta run()
    {
        QStringList targets;
        for (const RoamingItem &item : std::as_const(m_items))
            targets.append(targetOf(item));
        // All leave before any enters, because one may take another's place.
        QVector<RoamingPart> parts(m_items.size());
        QVector<qint64> pins(m_items.size(), 0);
        for (int i = 0; i < m_items.size(); ++i) {
            const auto carrier = m_carriers.constFind(m_items.at(i).roamingId);
            if (carrier == m_carriers.cend())
                continue;
            parts[i] = *find(m_state, *carrier)->roaming;
            if (*carrier != targets.at(i))
                parts[i] = takePart(m_draft.edit(*carrier), pins[i]);
        }
        for (int i = 0; i < m_items.size(); ++i)
            givePart(m_draft.edit(targets.at(i)), renewed(parts.at(i), m_items.at(i)), pins.at(i));
        return m_draft.delta();
    }

private:
    QString targetOf(const RoamingItem &item)
    {
        for (const QString &place : {item.usedPath, item.cachePath}) {
            const StoredRecord *record = place.isEmpty() ? nullptr : find(m_state, place);
            if (record && isLocalRecordFor(*record, item.time) && !m_taken.contains(place)) {
                m_taken.insert(place);
                return place;
            }
        }
        return roamingRecordId(item.roamingId);
    }

    const RecentState &m_state;
    Draft m_draft;
    const QVector<RoamingItem> m_items;
    Carriers m_carriers;
    QSet<QString> m_taken; ///< local records that have their part
};

bool isNewlyLocal(const RecentState &state, const StoredRecord &record)
{
    const StoredRecord *before = find(state, record.id);
    return !record.isRoamingOnly() && record.hasLocalUse() && !record.roaming
        && !(before && before->hasLocalUse());
}

// Ids of roaming records without a local one, by the places where their file may be.
QHash<QString, QString> homelessByPlace(const RecentState &state)
{
    QHash<QString, QString> homeless;
    for (const StoredRecord &record : state) {
        if (!record.roaming || !record.isRoamingOnly())
            continue;
        for (const QString &place : {record.roaming->item.usedPath, record.roaming->item.cachePath}) {
            if (!place.isEmpty())
                homeless.insert(place, record.id);
        }
    }
    return homeless;
}

void move(Draft &draft, const QString &from, const QString &to)
{
    qint64 pinTime = 0;
    RoamingPart part = takePart(draft.edit(from), pinTime);
    givePart(draft.edit(to), std::move(part), pinTime);
}

} // namespace

RecentDelta mergeRoaming(const RecentState &state, const RoamingList &list)
{
    return Merge(state, list).run();
}

RecentDelta keepRoamingOf(const RecentState &state, const QString &user)
{
    RecentDelta delta;
    for (const StoredRecord &record : state) {
        if (!record.roaming || record.roaming->item.user == user)
            continue;
        StoredRecord after = record;
        after.roaming = {};
        note(delta, &record, std::move(after));
    }
    return delta;
}

RecentDelta settleRoaming(const RecentState &state, RecentDelta delta)
{
    QStringList left;
    QStringList fresh;
    for (const StoredRecord &record : std::as_const(delta.stored)) {
        if (record.roaming && !record.isRoamingOnly() && !isLocalRecordFor(record, record.roaming->time()))
            left.append(record.id);
        else if (isNewlyLocal(state, record))
            fresh.append(record.id);
    }
    const auto homeless = fresh.isEmpty() ? QHash<QString, QString>() : homelessByPlace(state);
    const auto staysAlone = [&](const QString &id) { return !homeless.contains(id); };
    fresh.erase(std::remove_if(fresh.begin(), fresh.end(), staysAlone), fresh.end());
    if (left.isEmpty() && fresh.isEmpty())
        return delta;
    Draft draft(state, delta);
    for (const QString &id : std::as_const(left))
        move(draft, id, roamingRecordId(draft.find(id)->roaming->item.roamingId));
    for (const QString &id : std::as_const(fresh)) {
        const QString from = homeless.value(id);
        if (draft.find(from)->roaming) // it may have two places
            move(draft, from, id);
    }
    return draft.delta();
}

RecentDelta markRead(const RecentState &state, const QStringList &ids)
{
    RecentDelta delta;
    for (const QString &id : QSet<QString>(ids.cbegin(), ids.cend())) {
        const StoredRecord *before = find(state, id);
        if (!before || !before->roaming || before->roaming->item.unread < 0)
            continue;
        StoredRecord after = *before;
        RoamingPart part = *before->roaming;
        part.item.unread = -1;
        part.isReadUntold = true;
        after.roaming = std::move(part);
        note(delta, before, std::move(after));
    }
    return delta;
}

QVector<ReadMark> untoldMarks(const RecentState &state)
{
    QVector<ReadMark> marks;
    for (const StoredRecord &record : state) {
        if (!record.roaming || !record.roaming->isReadUntold)
            continue;
        const RoamingItem &item = record.roaming->item;
        marks.append({item.roamingId, item.fileId, item.time});
    }
    return marks;
}

RecentDelta markTold(const RecentState &state, const QVector<ReadMark> &marks)
{
    QHash<QString, qint64> told;
    for (const ReadMark &mark : marks)
        told.insert(mark.roamingId, mark.time);
    RecentDelta delta;
    for (const StoredRecord &record : state) {
        if (!record.roaming || !record.roaming->isReadUntold
            || told.value(record.roaming->item.roamingId, -1) != record.roaming->item.time)
            continue;
        StoredRecord after = record;
        RoamingPart part = *record.roaming;
        part.isReadUntold = false;
        after.roaming = std::move(part);
        note(delta, &record, std::move(after));
    }
    return delta;
}

RecentDelta markPlaces(
    const RecentState &state, const QHash<QString, QString> &idByPlace, const FileLooks &looks)
{
    using Presence = RecentFileInfo::Presence;
    Draft draft(state);
    for (auto it = looks.cbegin(); it != looks.cend(); ++it) {
        const auto id = idByPlace.constFind(it.key());
        const StoredRecord *record = id == idByPlace.cend() ? nullptr : draft.find(*id);
        if (!record || !record->roaming || !record->isRoamingOnly())
            continue;
        RoamingPart part = *record->roaming;
        if (it->presence == Presence::Present && (part.foundPath.isEmpty() || part.item.usedPath == it.key()))
            part.foundPath = it.key();
        else if (it->presence == Presence::Missing && part.foundPath == it.key())
            part.foundPath.clear();
        draft.edit(*id).roaming = std::move(part);
    }
    return draft.delta();
}

} // namespace zel::recent
