#pragma once

#include "cloud/wire/serviceerror.h"
#include "recent_types.h"

#include <QString>

namespace zel::service {

/// Pure rules about roaming records. Times are ms since epoch, UTC. Any thread.

/// Whether the user still has to be told of what another device did.
enum class RoamingMark { None = 0, New = 1, Modified = 2 }; ///< kept in databases

/// The mark stands in a record's extraParam under "unread" as "new" or "modify"; without it the user has seen
/// the record.
void setMark(vela::RecentFileItem &item, RoamingMark mark);
RoamingMark markOf(const vela::RecentFileItem &item);

struct RecordProblem
{
    wire::ServiceError error = wire::ServiceError::None;
    QString text;

    explicit operator bool() const { return error != wire::ServiceError::None; }
};
/// Why a record cannot be kept; none when it can.
RecordProblem problemOf(const vela::RecentFileItem &item);

/// Fills what follows from other fields: the name from the path and back into Base64, times that are
/// missing or to come with `now`.
void complete(vela::RecentFileItem &item, qint64 now);

/// The record of a use that is told as an event.
vela::RecentFileItem fromEvent(const vela::FileRecordItem &event);

/// Makes it the first record of its file: an id, its maker, its time.
void made(vela::RecentFileItem &item, qint64 now);

/// `known` after the newer `use` of the same file, which leaves who made the record and when, and what it
/// says nothing about, as they were; long texts only as far as the record stays within its limit.
vela::RecentFileItem merged(const vela::RecentFileItem &known, const vela::RecentFileItem &use);

/// The mark after a use on another device (or on this one, which takes it away).
RoamingMark markAfter(RoamingMark before, bool isNew, bool elsewhere, const std::string &operation);

/// Lower case, without the dot; empty when the name has none.
QString suffixOf(const QString &name);

} // namespace zel::service
