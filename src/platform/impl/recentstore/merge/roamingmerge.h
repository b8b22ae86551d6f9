#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

/// How the cloud service's records and those of this device become one list, as pure functions: old state and
/// news in, delta out. Any thread.
///
/// A record of the service joins the local record of one of its places (where the file was used last, if that
/// was on this device; the cloud file's copy here). Without one it is a record of its own, whose id is
/// roamingRecordId(). No two of them join the same local record: the one used last has it.
namespace zel::recent {

/// The service told of a user's records; those of other users go. What the user removed here stays away until
/// a newer use. A mark that the user took away here stays away until the service knows, or until a newer use.
RecentDelta mergeRoaming(const RecentState &state, const RoamingList &list);

/// Nothing of what was told of other users' records stays; `user` may be empty, for nobody.
RecentDelta keepRoamingOf(const RecentState &state, const QString &user);

/// The delta, and what follows from it: records of the service join local records that it brings, and leave
/// those that it takes away. To be applied to the outcome of every change.
RecentDelta settleRoaming(const RecentState &state, RecentDelta delta);

/// The user has seen what was done elsewhere.
RecentDelta markRead(const RecentState &state, const QStringList &ids);
QVector<ReadMark> untoldMarks(const RecentState &state); ///< what the service is still to be told of
RecentDelta markTold(const RecentState &state, const QVector<ReadMark> &marks);

/// Places of records without a local one were looked at. `idByPlace`: whose places they are.
RecentDelta markPlaces(
    const RecentState &state, const QHash<QString, QString> &idByPlace, const FileLooks &looks);

} // namespace zel::recent
