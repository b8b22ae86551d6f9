#pragma once

#include "recentfixture.h"

#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/records/recentlist.h"
#include "platform/impl/recentstore/repository/recentrepository.h"

namespace zel::recent::test {

/// An open database and what is done to it.
struct Opened
{
    QVector<RecentKeeping> told;
    RecentRepository repository;
    RecordInfoList shown;

    explicit Opened(const Home &home) : Opened(home.places.database) { }
    explicit Opened(const QString &database)
        : repository(database, [this](RecentKeeping keeping) { told.append(keeping); }),
          shown(repository.open())
    {
    }
    template <class Work> RecentDelta change(const Work &work)
    {
        return repository.change(
            [&](const RecentState &state, SourceTable &) { return work(state); }, Durability::Full);
    }
    RecentDelta note(const QString &path, qint64 time)
    {
        return change([&](const RecentState &state) { return markOpened(state, path, time); });
    }
    RecentDelta remove(const QString &id)
    {
        return change([&](const RecentState &state) { return markRemoved(state, {id}, 1000000); });
    }
    RecentDelta import(const QVector<XbelEntry> &entries, const FileStamp &stamp = {1, 2, 3})
    {
        return repository.change(
            [&](const RecentState &state, SourceTable &sources) {
                sources[DesktopSourceName] = {DesktopSource, stamp};
                return mergeImport(state, DesktopSource, entries, true);
            },
            Durability::Relaxed);
    }
    QString texts() const { return textOf(visibleRecords(repository.state())); }
};

inline XbelEntry entry(const QString &path, qint64 time)
{
    XbelEntry made;
    made.path = path;
    made.time = time;
    made.mimeType = "text/plain"_s;
    return made;
}

inline const QString A = "/nowhere/a"_s;
inline const QString B = "/nowhere/b"_s;
inline const QString C = "/nowhere/c"_s;

inline QStringList keptAside(const Home &home)
{
    return QDir(QFileInfo(home.places.database).path())
        .entryList({"recent.db.damaged-*"_s}, QDir::AllEntries);
}

inline void fillDatabase(const Home &home)
{
    Opened store(home);
    store.import({entry(A, 10), entry(B, 20)});
    store.note(A, 30);
}

inline void execute(const Home &home, const char *sql)
{
    zel::sqlite::Database database;
    database.open(home.places.database);
    database.exec(sql);
}

inline bool lock(const Home &home, zel::sqlite::Database &other) ///< also for readers, until that is closed
{
    return other.open(home.places.database) && other.exec("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE");
}

} // namespace zel::recent::test
