// The pure part of the store: old state and news give a delta; a delta keeps the shown list up to date.
#include "newsfixture.h"

#include "platform/impl/recentstore/merge/memorymerge.h"

using namespace zel::recent;
using namespace zel::recent::test;

class MergeTest : public QObject, private NewsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void news_data()
    {
        const auto row = newsTable();
        row("first list", "", "list a1 b2", "+a32@1 +b32@2", "a d1;b d2");
        row("twice in one list", "", "list a1 a3 a2", "+a32@3", "a d3");
        row("newer access", "a d1", "list a4", "~a32@4", "a d4");
        row("vanished", "a d1;b d2", "list b2", "-a", "b d2");
        row("damaged list removes nothing", "a d1;b d2", "part b3", "~b32@3", "a d1;b d3");
        row("vanished but opened in the box", "a d5 o3", "list", "~a8@3", "a o3");
        row("vanished, other source has it", "a d5 s3", "list", "~a64@3", "a s3");
        row("a sandbox's list leaves the desktop's alone", "a d5;b s1", "sandbox c2", "+c64@2 -b",
            "a d5;c s2");
        row("newer access of another source", "a d5", "sandbox a7", "~a64@7", "a d5 s7");
        row("equal times: desktop wins over sandbox", "a s5", "list a5", "~a32@5", "a d5 s5");
        row("own note read back from the list", "a o5", "list a5", "", "a d5 o5");
        row("opened anew", "", "open a 3", "+a8@3", "a o3");
        row("opened, though a list is ahead of the clock", "a d9", "open a 5", "~a8@9", "a d9 o9");
        row("removed", "a d5 o3;b d1", "remove a x", "-a", "a d5 r5;b d1");
        row("removed, the list still has it", "a d5 r5", "list a5", "", "a d5 r5");
        row("removed, used again", "a d5 r5", "list a6", "+a32@6", "a d6 r5");
        row("removed, then gone from the list", "a d5 r5", "list", "", "a r5");
        row("removed, opened again at the same time", "a d5 r5", "open a 5", "+a8@6", "a d5 o6 r5");
        row("removed without any time", "a d0", "remove a", "-a", "a d0 r0");
        row("removed by a clock behind the list's", "a d9", "removeat 5 a", "-a", "a d-9 r5");
        row("that list is read again unchanged", "a d-9 r5", "list a9", "", "a d-9 r5");
        row("then the file is used", "a d-9 r5", "list a6", "+a32@6", "a d6 r5");
        row("opened by a clock behind the list's, removed, opened", "a d-9 r5", "open a 6", "+a8@6",
            "a d-9 o6 r5");
        row("without a date: the first guess holds", "a d5;b d5 r5", "undated a7 b7 c7", "+c32@7",
            "a d5;b d5 r5;c d7");
        row("without a date any more: a time ahead goes", "a d9;b d-9 r5", "undated a7 b7", "~a32@7",
            "a d7;b d-9 r5");
        row("found to be a folder", "a d5 o7 p7;b o3 p3", "folder a b", "-a -b", "a d5");
        row("found missing", "a o3", "missing a 9 5", "~a8@3", "a o3 m9");
        row("missing not long enough", "a o3 m6", "missing a 9 5", "~a8@3", "a o3 m6");
        row("missing for long", "a o3 m4", "missing a 9 5", "-a", "");
        row("missing for long, a list names it", "a d1 o3 m4", "missing a 9 5", "~a8@3", "a d1 o3 m4");
        row("too many of the box's alone", "a o1;b o2;c o3;d d1 o1;e d1", "limit 2", "-a",
            "b o2;c o3;d d1 o1;e d1");
        row("pinned", "a d5;b r3", "pin a", "~a32@5", "a d5 p5;b r3");
        row("pinned, no list has it any more", "a d5 p5", "list", "~a8@5", "a p5");
        row("pinned, used again", "a d5 p5", "list a7", "~a32@7", "a d7 p7");
        row("unpinned, nobody else tells of it", "a p5", "unpin a", "~a8@5", "a o5");
        row("removed though pinned", "a d5 p5", "remove a", "-a", "a d5 r5");
        row("pinned ones are beyond the limit", "a o1 p1;b o2;c o3;d o4", "limit 2", "-b",
            "a o1 p1;c o3;d o4");
        row("pinned and missing for long", "a o3 p3 m4", "missing a 9 5", "~a8@3", "a o3 p3 m4");
        row("old removals are forgotten, unless contradicted", "a r5;b r5 d5;c r9;d o1", "forget 7", "",
            "b d5 r5;c r9;d o1");
    }
    void news() { checkNews(&RecentDelta::showsNothing); }

    void mimeTypeOfTheNewestAccess()
    {
        XbelEntry entry;
        entry.path = "/a"_s;
        entry.time = 5;
        entry.mimeType = "text/plain"_s;
        RecentState state = toState("a s3"_s);
        apply(state, mergeImport(state, DesktopSource, {entry}, true));
        QCOMPARE(state.value(entry.path).mimeType, "text/plain"_s);
        entry.mimeType = "text/old"_s;
        entry.time = 4;
        apply(state, mergeImport(state, SandboxSource, {entry}, true));
        QCOMPARE(state.value(entry.path).mimeType, "text/plain"_s);
    }

    void privateEntriesOfOthers()
    {
        const auto entry = [](const char *path, bool isPrivate, const QStringList &applications) {
            return XbelEntry{QString::fromLatin1(path), {}, 1, isPrivate, applications};
        };
        const QString us = "ZEL Box"_s;
        const auto kept = withoutForeignPrivate(
            {entry("/open", false, {}), entry("/theirs", true, {"X"_s}), entry("/ours", true, {"X"_s, us})},
            us);
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept.at(1).path, "/ours"_s);
    }

    // Whatever the two states: the difference leads from one to the other, in the store and in the shown
    // list.
    void differenceLeadsToTheOther()
    {
        QRandomGenerator random(4711);
        for (int round = 0; round < 300; ++round) {
            RecentState before = randomState(random);
            const RecentState after = randomState(random);
            const RecentDelta delta = difference(before, after);
            RecordInfoList list = visibleRecords(before);
            update(list, delta);
            apply(before, delta);
            QCOMPARE(before, after);
            QCOMPARE(byId(list), byId(visibleRecords(after)));
            QVERIFY(std::is_sorted(list.cbegin(), list.cend(), newerFirst));
        }
    }

    void unwrittenRecordsAgainstTheDatabase()
    {
        const char *const cases[][3] = {
            {"a d5", "a d5 o7", "a d5 o7"},       // opened here
            {"a d5 o9", "a d5 o7", "a d5 o9"},    // opened there later
            {"a d5 o6", "a d5 r6", "a d5 r6"},    // opened there, removed here
            {"a d5 r5", "a d5 o7", "a d5 o7 r5"}, // removed there, opened here since
        };
        for (const auto &[database, mine, result] : cases)
            QCOMPARE(toText(combined(toRecord(QLatin1String(database)), toRecord(QLatin1String(mine)))),
                QLatin1String(result));
    }

    void backFromMemory_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("disk", "memory", "after");
        row("opened", "a d5 o3;b o1", "a o7", "a d5 o7;b o1");
        row("removed, though used more lately there", "a d5 o9 p9", "a d5 r5", "a d5 r9");
        row("removed before both, used since", "a d9 r5", "a r5", "a d9 r5");
        row("removed, then opened", "a o9", "a d5 o12 r5", "a d5 o12 r9");
        row("was removed there", "a d5 r5", "a d5", "a d5 r5");
        row("was removed there, pinned since", "a d5 r5", "a d5 p5", "a d5 r5 p6");
        row("another device's, removed", "a o5 c:x7", "=x r9 c:x9-9", "a r9 c:x9-9");
        row("another device's, marked", "=x c:x7-5", "=x c:x9+", "=x c:x9+-5");
    }
    void backFromMemory()
    {
        const auto [disk, memory] = zeltest::row<QString, QString>();
        RecentState state = toState(disk);
        SourceTable sources{{DesktopSourceName, {DesktopSource, {}}}, {"x"_s, {SandboxSource, {}}}};
        const SourceTable others{{DesktopSourceName, {DesktopSource, {}}}, {"y"_s, {SandboxSource, {}}}};
        RecentState mine = toState(memory);
        mine.insert("/z"_s, toRecord("z s5"_s));
        apply(state, mergeMemory(state, sources, mine, others, 1000));
        QCOMPARE(state.take("/z"_s).accesses.first().source, 3); // which was another one's number
        QTEST(toText(state), "after");
    }

private:
    static RecentState randomState(QRandomGenerator &random)
    {
        RecentState state;
        for (int i = 0; i < 30; ++i) {
            const QString letter = QString(QChar(ushort('a' + random.bounded(26))));
            const auto time = [&] { return QString::number(random.bounded(1, 8)); };
            QString text = letter;
            for (const char *kind : {" d", " s", " o", " r"}) {
                if (random.bounded(3) == 0)
                    text += QLatin1String(kind) + time();
            }
            if (random.bounded(4) == 0)
                text += " c:"_s + letter + time();
            if (random.bounded(4) == 0)
                text += " p8"_s;
            const StoredRecord record = toRecord(text);
            if (record.isNeeded())
                state.insert(record.id, record);
        }
        return state;
    }
};

QTEST_GUILESS_MAIN(MergeTest)
#include "tst_merge.moc"
