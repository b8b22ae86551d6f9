#include "desktopnotes.h"

#include "platform/impl/recentstore/xbel/xbelwriter.h"

#include "base/logging.h"

#include <algorithm>

namespace zel::recent {
namespace {

// Null: there is none.
const char *problemText(XbelEditResult result)
{
    switch (result) {
    case XbelEditResult::Damaged:
        return "it is damaged";
    case XbelEditResult::Unsupported:
        return "it is not in UTF-8 or has entities of its own";
    case XbelEditResult::Failed:
        return "it cannot be read or written";
    case XbelEditResult::Written:
    case XbelEditResult::Unchanged:
        break;
    }
    return nullptr;
}

} // namespace

DesktopNotes::DesktopNotes(const QString &list, Sources sources, QObject *parent)
    : QObject(parent), m_list(list), m_sources(std::move(sources))
{
}

void DesktopNotes::addVisits(const QVector<XbelEdit::Visit> &visits)
{
    QSet<QString> paths;
    for (const XbelEdit::Visit &visit : visits)
        paths.insert(visit.path);
    dropVisits(paths);
    m_edit.visits += visits;
    const auto isBack = [&paths](const QString &path) { return paths.contains(path); };
    auto &removals = m_edit.removals;
    removals.erase(std::remove_if(removals.begin(), removals.end(), isBack), removals.end());
    plan();
}

void DesktopNotes::addRemovals(const QStringList &paths)
{
    dropVisits(QSet<QString>(paths.cbegin(), paths.cend()));
    m_edit.removals += paths;
    m_edit.removals.removeDuplicates();
    plan();
}

void DesktopNotes::dropVisits(const QSet<QString> &paths)
{
    auto &visits = m_edit.visits;
    const auto isOneOf = [&](const XbelEdit::Visit &visit) { return paths.contains(visit.path); };
    visits.erase(std::remove_if(visits.begin(), visits.end(), isOneOf), visits.end());
}

void DesktopNotes::plan()
{
    if (!m_edit.isEmpty() && !std::exchange(m_planned, true))
        QMetaObject::invokeMethod(this, &DesktopNotes::write, Qt::QueuedConnection);
}

bool DesktopNotes::write()
{
    m_planned = false;
    XbelEdit edit = take();
    const char *problem = nullptr;
    if (edit.isEmpty()) {
        m_result = XbelEditResult::Unchanged;
    } else {
        m_sources.findMimeTypes(edit.visits);
        const bool wasRefused = isRefused();
        m_result = editXbel(m_list, edit);
        problem = problemText(m_result);
        if (problem && !wasRefused)
            qCWarning(lcRecent) << "the desktop's recently-used list was not written:" << problem;
    }
    if (problem) {
        m_edit.visits += edit.visits;
        m_edit.removals += edit.removals;
    }
    Q_EMIT written();
    return !problem;
}

bool DesktopNotes::hasFailed() const
{
    return m_result == XbelEditResult::Failed;
}

bool DesktopNotes::isRefused() const
{
    return problemText(m_result);
}

// Without the visits that are awaited; they stay.
XbelEdit DesktopNotes::take()
{
    XbelEdit edit = std::exchange(m_edit, {});
    const auto begin = std::stable_partition(edit.visits.begin(), edit.visits.end(),
        [this](const XbelEdit::Visit &visit) { return !m_sources.isAwaited(visit.path); });
    std::move(begin, edit.visits.end(), std::back_inserter(m_edit.visits));
    edit.visits.erase(begin, edit.visits.end());
    return edit;
}

} // namespace zel::recent
