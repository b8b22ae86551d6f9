#pragma once

#include "kdocumentopener.h"
#include "recentfile/records.h"

#include <algorithm>

/// A store in memory. Writes what it is asked for into `log`.
class FakeStore : public KRecentFileProxy
{
public:
    QStringList *log = nullptr;
    RecordInfoList content;
    bool ready = true;

    bool isKindReady(int) const override { return ready; }
    void initKind(int kind) override { say(QStringLiteral("init %1").arg(kind)); }
    RecordInfoList records() const override { return content; }
    void requestRoaming(int kind, const QString &filter, bool sync) override
    {
        ++roamingRequests;
        say(QStringLiteral("roaming %1%2%3")
                .arg(QString::number(kind), filter, sync ? QStringLiteral(" sync") : QString()));
    }
    void removeRecords(const QStringList &ids) override
    {
        say(QStringLiteral("forget ") + ids.join(QLatin1Char(' ')));
    }
    void noteOpened(const QString &path) override { say(QStringLiteral("note ") + path); }
    void checkPresence(const QStringList &ids) override
    {
        say(QStringLiteral("check ") + ids.join(QLatin1Char(' ')));
    }

    int roamingRequests = 0;

private:
    void say(const QString &line)
    {
        if (log)
            *log << line;
    }
};

/// Opens nothing; answers with `outcome` when told to.
class FakeOpener : public KDocumentOpener
{
    Q_OBJECT
public:
    QStringList asked;

    void open(const QString &path) override { asked << path; }
    void reveal(const QString &) override { }
    void answer(const QString &path, Outcome outcome) { Q_EMIT opened(path, outcome); }
};
