#pragma once

#include "kfiletrash.h"
#include "recentfile/records.h"
#include "support/fakeopener.h"
#include "support/test.h"

/// A store in memory. Writes what it is asked for into `log`.
class FakeStore : public KRecentFileProxy
{
public:
    QStringList *log = nullptr;
    RecordInfoList content;
    bool ready = true;
    RecentKeeping kept = RecentKeeping::Kept;

    RecentKeeping keeping() const override { return kept; }
    bool isKindReady(int) const override { return ready; }
    void initKind(int kind) override { say("init %1"_s.arg(kind)); }
    RecordInfoList records() const override { return content; }
    void requestRoaming(int kind, const QString &filter, bool sync) override
    {
        ++roamingRequests;
        say("roaming %1%2%3"_s.arg(QString::number(kind), filter, sync ? " sync"_s : QString()));
    }
    void removeRecords(const QStringList &ids) override { say("forget"_s, ids); }
    void undoRemoval(const RecordInfoList &records) override
    {
        for (const RecentFileInfo &each : records)
            say("unforget"_s, {each.id});
    }
    void noteOpened(const QString &path) override { noteAllOpened({path}); }
    void noteAllOpened(const QStringList &paths) override { say("note"_s, paths); }
    void checkPresence(const QStringList &ids) override { say("check"_s, ids); }
    void lookUpSizes() override { say("sizes"_s); }
    void setPinned(const QStringList &ids, bool pinned) override { say(pinned ? "pin"_s : "unpin"_s, ids); }
    void markRead(const QStringList &ids) override { say("read"_s, ids); }
    void setCloudService(KCloudSvrProxy *) override { }

    int roamingRequests = 0;

private:
    void say(const QString &what, const QStringList &about = {})
    {
        if (log)
            *log << (QStringList(what) + about).join(QLatin1Char(' '));
    }
};

/// Moves nothing; answers at once unless it is `slow`: paths that contain "stuck" stay, "gone" are missing.
class FakeTrash : public KFileTrash
{
    Q_OBJECT
public:
    QStringList asked;
    bool slow = false; ///< the test answers

    void trash(const QString &path) override
    {
        asked << path;
        if (slow)
            return;
        if (path.contains("stuck"_s))
            Q_EMIT trashed(path, {}, Outcome::Denied);
        else
            Q_EMIT trashed(path, "trash:"_s + path, Outcome::Done);
    }
    void restore(const QString &trashId) override
    {
        asked << trashId;
        const bool taken = trashId.contains("taken"_s);
        Q_EMIT restored(trashId, trashId.mid(6), taken ? Outcome::Exists : Outcome::Done);
    }
};
