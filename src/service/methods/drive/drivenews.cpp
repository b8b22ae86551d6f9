#include "service/methods/drive/drivenews.h"

namespace zel::service {
namespace {

struct Story
{
    DriveChange last;
    bool wasThere = false; ///< before the first change
    bool modified = false;
    bool moved = false;
};

} // namespace

DriveNews summarize(const QVector<DriveChange> &changes)
{
    using Kind = DriveChange::Kind;
    QHash<QString, Story> stories;
    QStringList order;
    DriveNews news;
    for (const DriveChange &change : changes) {
        const bool first = !stories.contains(change.id);
        if (first)
            order.append(change.id);
        Story &story = stories[change.id];
        if (first)
            story.wasThere = change.kind != Kind::Created;
        // What was removed and is there again may have any content.
        story.modified |= change.kind == Kind::Modified || (!first && change.kind == Kind::Created);
        story.moved |= change.kind == Kind::Moved;
        story.last = change;
        news.folders.insert(change.parentId);
    }
    for (const QString &id : qAsConst(order)) {
        const Story &story = stories[id];
        const bool isThere = story.last.kind != Kind::Removed;
        if (!isThere && story.wasThere)
            news.gone.append(story.last);
        else if (isThere && !story.wasThere)
            news.created.append(id);
        else if (isThere && story.moved)
            news.moved.append(id);
        if (isThere && story.wasThere && story.modified)
            news.modified.append(id);
    }
    return news;
}

} // namespace zel::service
