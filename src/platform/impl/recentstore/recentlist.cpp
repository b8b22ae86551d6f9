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

} // namespace

void update(RecordInfoList &list, const RecentDelta &delta)
{
    const auto newerFirst = [](const RecentFileInfo &a, const RecentFileInfo &b) {
        return a.lastAccess > b.lastAccess;
    };
    RecordInfoList moving = takeMoving(list, newsById(delta));
    std::sort(moving.begin(), moving.end(), newerFirst);
    const int middle = list.size();
    list += moving;
    std::inplace_merge(list.begin(), list.begin() + middle, list.end(), newerFirst);
}

} // namespace zel::recent
