#pragma once

#include "platform/recentstore/recentfixture.h"
#include "platform/recentstore/recordtext.h"

#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/merge/roamingmerge.h"
#include "platform/impl/recentstore/records/recentlist.h"

namespace zel::recent::test {

/// Tables of what a state and news lead to.
class NewsFixture
{
protected:
    static auto newsTable()
    {
        return zeltest::table<QString, QString, QString, QString>("state", "news", "shown", "after");
    }
    /// Checks the row, and by `nothing` that the same news again are none.
    static void checkNews(bool (RecentDelta::*nothing)() const)
    {
        const auto [state, news] = zeltest::row<QString, QString>();
        RecentState records = toState(state);
        const RecentDelta delta = perform(records, news);
        QTEST(shownText(delta), "shown");
        apply(records, delta);
        QTEST(toText(records), "after");
        QVERIFY2((perform(records, news).*nothing)() || news.startsWith("open"_s), "same news again");
    }

    // Of the desktop: "list a1 b2", "part a1" (a damaged list), "undated a1" (time guessed), "sandbox a1". Of
    // the user: "open a 5", "remove a =x", "removeat 5 a" (by a clock at 5), "pin =x", "unpin =x", "read =x".
    // Of the service: "all x7@a y3" (a complete list), "some x7" (a filtered one), "user me", "told x7". Of
    // files: "look a" (found there), "miss a", "missing a 9 5" (at 9, long gone before 5), "folder a". Of the
    // store: "forget 7", "limit 2".
    static RecentDelta perform(const RecentState &state, const QString &news)
    {
        const QStringList words = news.split(QLatin1Char(' '));
        return settleRoaming(state, performOne(state, words.at(0), words.mid(1)));
    }

private:
    static RecentDelta performOne(const RecentState &state, const QString &verb, const QStringList &words)
    {
        using Presence = RecentFileInfo::Presence;
        const QString first = words.value(0);
        if (verb == "all"_s || verb == "some"_s) {
            RoamingList list{"me"_s, {}, verb == "all"_s};
            for (const QString &word : words)
                list.items.append(toPart(word).item);
            return mergeRoaming(state, list);
        }
        if (verb == "user"_s)
            return keepRoamingOf(state, first);
        if (verb == "read"_s)
            return markRead(state, {idOf(first)});
        if (verb == "told"_s)
            return markTold(state, {{first.left(1), {}, first.mid(1).toLongLong()}});
        if (verb == "open"_s)
            return markOpened(state, idOf(first), words.at(1).toLongLong());
        if (verb == "forget"_s)
            return forgetRemovals(state, first.toLongLong());
        if (verb == "limit"_s)
            return limitBoxOnly(state, first.toInt());
        if (verb.endsWith("pin"_s))
            return markPinned(state, {idOf(first)}, verb == "pin"_s);
        if (verb == "folder"_s) {
            FileLooks looks;
            for (const QString &word : words)
                looks.insert(idOf(word), {Presence::Present, -1, 0, true});
            return markLooks(state, looks, 1000, 0);
        }
        if (verb == "missing"_s)
            return markLooks(state, {{idOf(first), {Presence::Missing}}}, words.at(1).toLongLong(),
                words.at(2).toLongLong());
        if (verb.startsWith("remove"_s)) {
            const bool timed = verb == "removeat"_s;
            QStringList ids;
            for (const QString &word : words.mid(timed ? 1 : 0))
                ids.append(idOf(word));
            return markRemoved(state, ids, timed ? first.toLongLong() : 1000);
        }
        if (verb == "look"_s || verb == "miss"_s) {
            QHash<QString, QString> places;
            for (const StoredRecord &record : state) {
                if (record.isRoamingOnly() && record.roaming)
                    places.insert(idOf(first), record.id);
            }
            return markPlaces(
                state, places, {{idOf(first), {verb == "look"_s ? Presence::Present : Presence::Missing}}});
        }
        QVector<XbelEntry> entries;
        for (const QString &word : words) {
            XbelEntry entry;
            entry.path = idOf(word.left(1));
            entry.time = word.mid(1).toLongLong();
            entry.isTimeGuessed = verb == "undated"_s;
            entries.append(entry);
        }
        return mergeImport(
            state, verb == "sandbox"_s ? SandboxSource : DesktopSource, entries, verb != "part"_s);
    }
};

} // namespace zel::recent::test
