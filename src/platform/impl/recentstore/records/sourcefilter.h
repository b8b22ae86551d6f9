#pragma once

#include "recenttypes.h"

namespace zel::recent {

/// The record as these sources (bits of RecentSource) tell of it; none when it is not shown then.
std::optional<RecentFileInfo> seenThrough(const StoredRecord &record, int sources);

/// The visible part of the store's state while the user has switched some sources off. Costs nothing while
/// none is. Store's thread.
class SourceFilter
{
public:
    void setSources(int sources) { m_sources = sources; } ///< records() is to be asked for next
    int sources() const { return m_sources; }
    bool isWhole() const { return m_sources == RecentSource::All; }

    RecordInfoList records(const RecentState &state); ///< newest first
    /// Visible part of a store change. `after` is the state with it.
    RecentDelta visiblePart(const RecentDelta &change, const RecentState &after);

private:
    void note(RecentDelta &delta, const QString &id, const RecentState &after);

    int m_sources = RecentSource::All;
    QHash<QString, RecentFileInfo> m_shown; ///< by id; empty while every source is on
};

} // namespace zel::recent
