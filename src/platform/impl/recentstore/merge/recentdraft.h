#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

#include <unordered_map>

namespace zel::recent {

/// Adds to the delta what became of a record; null: it was not there. Keeps the pin's time up to date.
void note(RecentDelta &delta, const StoredRecord *before, StoredRecord after);

const StoredRecord *find(const RecentState &state, const QString &id); ///< null: none
StoredRecord copyOrNew(const StoredRecord *record, const QString &id);

/// Record ids by the roaming id of the part that they carry.
using Carriers = QHash<QString, QString>;
Carriers carriersIn(const RecentState &state);

/// What was used so far is forgotten, and the pin is taken away. Known times ahead of `now` are forgotten one
/// by one, so that a use after `now` counts all the same.
void forgetUses(StoredRecord &record, qint64 now);

/// A state under change: several steps may alter the same record; the delta comes at the end.
class Draft
{
public:
    explicit Draft(const RecentState &state) : m_state(state) { } ///< which outlives this
    Draft(const RecentState &state, const RecentDelta &delta);    ///< the state after the delta

    const StoredRecord *find(const QString &id) const; ///< as it is now; null: none
    StoredRecord &edit(const QString &id);             ///< made when missing; stays valid
    RecentDelta delta() const;                         ///< from the state to here

private:
    const RecentState &m_state;
    std::unordered_map<QString, StoredRecord> m_edited; ///< those not needed any more are erased
};

} // namespace zel::recent
