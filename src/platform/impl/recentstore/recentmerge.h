#pragma once

#include "recenttypes.h"

/// What the store does with news, as pure functions: old state and news in, delta out. Any thread.
namespace zel::recent {

/// A list was read. Entries that it no longer has lose this source's access when it was read intact; a record
/// without any access left disappears unless the box opened the file.
RecentDelta mergeImport(const RecentState &state, int source, const QVector<XbelEntry> &entries, bool intact);

/// The box opened the file at `time`, which becomes the record's newest access whatever other clocks said.
RecentDelta markOpened(const RecentState &state, const QString &path, qint64 time);

/// The accesses known so far are forgotten; what the lists say later than that brings the record back. Known
/// times ahead of `now` are forgotten one by one, so that a use after `now` brings it back all the same.
RecentDelta markRemoved(const RecentState &state, const QStringList &paths, qint64 now);

/// Records that only the box tells of go when their file has been missing since before `longGone`.
RecentDelta markPresence(const RecentState &state, const QHash<QString, RecentFileInfo::Presence> &found,
    qint64 now, qint64 longGone);

/// Of the records that only the box tells of, the newest `most` stay.
RecentDelta limitBoxOnly(const RecentState &state, int most);

RecentDelta markMimeType(const RecentState &state, const QString &path, const QString &mimeType);

/// Drops removals that no list contradicts and that are older than `before`.
RecentDelta forgetRemovals(const RecentState &state, qint64 before);

/// What turns one state into another, as another process may have changed the database.
RecentDelta difference(const RecentState &before, const RecentState &after);

/// `mine` holds records that could not be written: nothing in them that is newer gets lost against the
/// database's.
StoredRecord combined(const StoredRecord &database, const StoredRecord &mine);

void apply(RecentState &state, const RecentDelta &delta);

/// The records to show, newest first.
RecordInfoList visibleRecords(const RecentState &state);

/// Entries that concern this application: private ones only when it registered them.
QVector<XbelEntry> withoutForeignPrivate(QVector<XbelEntry> entries, const QString &application);

} // namespace zel::recent
