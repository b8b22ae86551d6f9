#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

/// What the store does with news, as pure functions: old state and news in, delta out. Any thread.
namespace zel::recent {

/// The number of a source, which is given one when it is new.
int sourceId(SourceTable &sources, const QString &name);

/// A list was read. Entries that it no longer has lose this source's access when it was read intact; a record
/// without any access left disappears unless the box opened the file.
RecentDelta mergeImport(const RecentState &state, int source, const QVector<XbelEntry> &entries, bool intact);

/// The box opened the file at `time`, which becomes the record's newest access whatever other clocks said.
RecentDelta markOpened(const RecentState &state, const QString &path, qint64 time);

/// The uses known so far are forgotten, and the pin is taken away; what the lists say later than that brings
/// the record back. Known times ahead of `now` are forgotten one by one, so that a use after `now` brings it
/// back all the same.
RecentDelta markRemoved(const RecentState &state, const QStringList &ids, qint64 now);

/// Local files were looked at, by path. Records that only the box tells of go when their file has been
/// missing since before `longGone`, or is a folder.
RecentDelta markLooks(const RecentState &state, const FileLooks &looks, qint64 now, qint64 longGone);

/// A pin holds a record that nobody tells of any more; without it such a record counts as opened in the box.
RecentDelta markPinned(const RecentState &state, const QStringList &ids, bool pinned);

/// Of the records that only the box tells of, the newest `most` stay.
RecentDelta limitBoxOnly(const RecentState &state, int most);

RecentDelta markMimeType(const RecentState &state, const QString &path, const QString &mimeType);

/// Drops removals that no list contradicts, and pins of records that the cloud service stopped to tell of,
/// which are older than `before`.
RecentDelta forgetRemovals(const RecentState &state, qint64 before);

/// Nothing stays of what was removed, unless a list still names it. The flags say of which lists that is not
/// so any more, although that is still to be read.
RecentDelta forgetTraces(const RecentState &state, bool desktopListCleared, bool serviceListCleared);

/// What turns one state into another, as another process may have changed the database.
RecentDelta difference(const RecentState &before, const RecentState &after);

/// `mine` holds records that could not be written: nothing in them that is newer gets lost against the
/// database's.
StoredRecord combined(const StoredRecord &database, const StoredRecord &mine);

void apply(RecentState &state, const RecentDelta &delta);

/// Entries that concern this application: private ones only when it registered them.
QVector<XbelEntry> withoutForeignPrivate(QVector<XbelEntry> entries, const QString &application);

} // namespace zel::recent
