#include "recentlist.h"

#include <QHash>

#include <algorithm>

namespace zel::recent {
namespace {

struct News
{
    const RecentFileInfo *record; ///< null: removed
    bool isNew;
};

QHash<QString, News> newsById(const RecentDelta &delta)
{
    QHash<QString, News> news;
    news.reserve(delta.shownCount());
    for (const RecentFileInfo &record : delta.removed)
        news.insert(record.id, {nullptr, false});
    for (const RecentFileInfo &record : delta.changed)
        news.insert(record.id, {&record, false});
    for (const RecentFileInfo &record : delta.added)
        news.insert(record.id, {&record, true});
    return news;
}

// Records whose time stayed keep their place; the others are taken out, those that go on to live being
// returned.
RecordInfoList takeMoving(RecordInfoList &list, QHash<QString, News> news)
{
    RecordInfoList moving;
    auto kept = list.begin();
    for (auto it = list.begin(); it != list.end(); ++it) {
        const auto found = news.find(it->id);
        const RecentFileInfo *record = found == news.end() ? &*it : found->record;
        if (found != news.end())
            found->isNew = false;
        if (!record)
            continue;
        if (record->lastAccess != it->lastAccess) {
            moving.append(*record);
            continue;
        }
        if (record != &*it)
            *it = *record;
        if (kept != it)
            *kept = std::move(*it);
        ++kept;
    }
    list.erase(kept, list.end());
    for (const News &added : std::as_const(news)) {
        if (added.isNew)
            moving.append(*added.record);
    }
    return moving;
}

// A few changes that move nothing need no pass over the list. False: that is not the case, or not easily told
// among many of the same time; what was changed until then is right all the same.
bool updateInPlace(RecordInfoList &list, const RecentDelta &delta)
{
    constexpr int MostOfOneTime = 16;
    if (!delta.added.isEmpty() || !delta.removed.isEmpty() || delta.changed.size() > list.size() / 16)
        return false;
    for (const RecentFileInfo &record : delta.changed) {
        const auto first = std::lower_bound(list.cbegin(), list.cend(), record, newerFirst);
        const auto last = first + std::min<int>(MostOfOneTime, int(list.cend() - first));
        const auto same = [&](const RecentFileInfo &r) { return r.id == record.id; };
        const auto found = std::find_if(first, last, same);
        if (found == last || found->lastAccess != record.lastAccess)
            return false;
        list[int(found - list.cbegin())] = record;
    }
    return true;
}

} // namespace

bool newerFirst(const RecentFileInfo &a, const RecentFileInfo &b)
{
    return a.lastAccess > b.lastAccess;
}

RecordInfoList visibleRecords(const RecentState &state)
{
    RecordInfoList list;
    list.reserve(state.size());
    for (const StoredRecord &record : state) {
        if (record.isVisible())
            list.append(record.toInfo());
    }
    std::sort(list.begin(), list.end(), newerFirst);
    return list;
}

void update(RecordInfoList &list, const RecentDelta &delta)
{
    if (updateInPlace(list, delta))
        return;
    RecordInfoList moving = takeMoving(list, newsById(delta));
    std::sort(moving.begin(), moving.end(), newerFirst);
    const int middle = list.size();
    list += moving;
    std::inplace_merge(list.begin(), list.begin() + middle, list.end(), newerFirst);
}

} // namespace zel::recent
