// The pure part of the store: old state and news give a delta; a delta keeps the shown list up to date.
#include "recentfixture.h"

#include "platform/impl/recentstore/mounts.h"
#include "platform/impl/recentstore/recentlist.h"
#include "platform/impl/recentstore/recentmerge.h"

#include <QRandomGenerator>
#include <QTest>

using namespace zel::recent;

namespace {

constexpr int SandboxSource = 2;

// "a d1 s2 o3 r1": file /a, used at 1 by the desktop, at 2 by a sandboxed application, opened at 3, removed
// at 1.
StoredRecord toRecord(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    StoredRecord record;
    record.path = QLatin1Char('/') + words.value(0);
    for (const QString &word : words.mid(1)) {
        const qint64 time = word.mid(1).toLongLong();
        switch (word.at(0).toLatin1()) {
        case 'd':
            record.setAccess(DesktopSource, time);
            break;
        case 's':
            record.setAccess(SandboxSource, time);
            break;
        case 'o':
            record.openedAt = time;
            break;
        default:
            record.removedTime = time;
        }
    }
    return record;
}

RecentState toState(const QString &text)
{
    RecentState state;
    for (const QString &part : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const StoredRecord record = toRecord(part);
        state.insert(record.path, record);
    }
    return state;
}

QString toText(const StoredRecord &record)
{
    QString text = record.path.mid(1);
    const auto add = [&text](char kind, qint64 time) {
        text += QLatin1Char(' ') + QLatin1Char(kind) + QString::number(time);
    };
    for (const auto &[source, kind] : {std::pair(DesktopSource, 'd'), std::pair(SandboxSource, 's')}) {
        if (const RecentAccess *access = record.accessOf(source))
            add(kind, access->time);
    }
    if (record.openedAt > 0)
        add('o', record.openedAt);
    if (record.removedTime >= 0)
        add('r', record.removedTime);
    return text;
}

QString toText(const RecentState &state)
{
    QStringList texts;
    for (const StoredRecord &record : state)
        texts.append(toText(record));
    texts.sort();
    return texts.join(QLatin1Char(';'));
}

// "+a32@1" added with kind and time, "-a" removed, "~a8@3" changed.
QString shownText(const RecentDelta &delta)
{
    QStringList texts;
    const auto add = [&texts](QLatin1Char sign, const RecordInfoList &records) {
        for (const RecentFileInfo &r : records)
            texts.append(sign + r.displayText
                + (sign == QLatin1Char('-')
                        ? QString()
                        : QString::number(r.kind) + QLatin1Char('@') + QString::number(r.lastAccess)));
    };
    add(QLatin1Char('+'), delta.added);
    add(QLatin1Char('-'), delta.removed);
    add(QLatin1Char('~'), delta.changed);
    texts.sort();
    return texts.join(QLatin1Char(' '));
}

// News as "list a1 b2", "part a1" (a damaged list), "sandbox a1", "open a 5", "remove a b", "forget 7".
RecentDelta perform(const RecentState &state, const QString &news)
{
    const QStringList words = news.split(QLatin1Char(' '));
    const QString &verb = words.at(0);
    if (verb == QLatin1String("open"))
        return markOpened(state, QLatin1Char('/') + words.at(1), words.at(2).toLongLong());
    if (verb == QLatin1String("forget"))
        return forgetRemovals(state, words.at(1).toLongLong());
    if (verb == QLatin1String("remove")) {
        QStringList paths;
        for (const QString &word : words.mid(1))
            paths.append(QLatin1Char('/') + word);
        return markRemoved(state, paths);
    }
    QVector<XbelEntry> entries;
    for (const QString &word : words.mid(1)) {
        XbelEntry entry;
        entry.path = QLatin1Char('/') + word.at(0);
        entry.time = word.mid(1).toLongLong();
        entries.append(entry);
    }
    const int source = verb == QLatin1String("sandbox") ? SandboxSource : DesktopSource;
    return mergeImport(state, source, entries, verb != QLatin1String("part"));
}

RecentState randomState(QRandomGenerator &random)
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
        const StoredRecord record = toRecord(text);
        if (record.isNeeded())
            state.insert(record.path, record);
    }
    return state;
}

RecordInfoList byId(RecordInfoList list)
{
    std::sort(list.begin(), list.end(), [](const auto &a, const auto &b) { return a.id < b.id; });
    return list;
}

} // namespace

class MergeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void news_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("news");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *state, const char *news, const char *shown,
                             const char *after) {
            QTest::newRow(name) << QString::fromLatin1(state) << QString::fromLatin1(news)
                                << QString::fromLatin1(shown) << QString::fromLatin1(after);
        };
        row("first list", "", "list a1 b2", "+a32@1 +b32@2", "a d1;b d2");
        row("same again", "a d1;b d2", "list a1 b2", "", "a d1;b d2");
        row("twice in one list", "", "list a1 a3 a2", "+a32@3", "a d3");
        row("newer access", "a d1", "list a4", "~a32@4", "a d4");
        row("vanished", "a d1;b d2", "list b2", "-a", "b d2");
        row("list cleared", "a d1;b d2", "list", "-a -b", "");
        row("damaged list removes nothing", "a d1;b d2", "part b3", "~b32@3", "a d1;b d3");
        row("vanished but opened in the box", "a d5 o3", "list", "~a8@3", "a o3");
        row("vanished, other source has it", "a d5 s3", "list", "~a64@3", "a s3");
        row("a sandbox's list leaves the desktop's alone", "a d5;b s1", "sandbox c2", "+c64@2 -b",
            "a d5;c s2");
        row("older access of another source is silent", "a d5", "sandbox a3", "", "a d5 s3");
        row("newer access of another source", "a d5", "sandbox a7", "~a64@7", "a d5 s7");
        row("equal times: desktop wins over sandbox", "a s5", "list a5", "~a32@5", "a d5 s5");
        row("own note read back from the list", "a o5", "list a5", "", "a d5 o5");
        row("opened anew", "", "open a 3", "+a8@3", "a o3");
        row("opened again", "a d5 o3", "open a 7", "~a8@7", "a d5 o7");
        row("opened, though a list is ahead of the clock", "a d9", "open a 5", "~a8@9", "a d9 o9");
        row("removed", "a d5 o3;b d1", "remove a x", "-a", "a d5 r5;b d1");
        row("removed, the list still has it", "a d5 r5", "list a5", "", "a d5 r5");
        row("removed, used again", "a d5 r5", "list a6", "+a32@6", "a d6 r5");
        row("removed, another list has it older", "a r5", "sandbox a4", "", "a s4 r5");
        row("removed, then gone from the list", "a d5 r5", "list", "", "a r5");
        row("removed, opened again at the same time", "a d5 r5", "open a 5", "+a8@6", "a d5 o6 r5");
        row("removed without any time", "a d0", "remove a", "-a", "a d0 r0");
        row("removing twice", "a d5 r5", "remove a", "", "a d5 r5");
        row("old removals are forgotten, unless contradicted", "a r5;b r5 d5;c r9;d o1", "forget 7", "",
            "b d5 r5;c r9;d o1");
    }
    void news()
    {
        QFETCH(QString, state);
        QFETCH(QString, news);
        RecentState records = toState(state);
        const RecentDelta delta = perform(records, news);
        QTEST(shownText(delta), "shown");
        apply(records, delta);
        QTEST(toText(records), "after");
        QVERIFY2(perform(records, news).showsNothing() || news.startsWith(QLatin1String("open")),
            "same news again");
    }

    void mimeTypeOfTheNewestAccess()
    {
        XbelEntry entry;
        entry.path = QStringLiteral("/a");
        entry.time = 5;
        entry.mimeType = QStringLiteral("text/plain");
        RecentState state = toState(QStringLiteral("a s3"));
        apply(state, mergeImport(state, DesktopSource, {entry}, true));
        QCOMPARE(state.value(entry.path).mimeType, QStringLiteral("text/plain"));
        entry.mimeType = QStringLiteral("text/old");
        entry.time = 4;
        apply(state, mergeImport(state, SandboxSource, {entry}, true));
        QCOMPARE(state.value(entry.path).mimeType, QStringLiteral("text/plain"));
    }

    void privateEntriesOfOthers()
    {
        const auto entry = [](const char *path, bool isPrivate, const QStringList &applications) {
            return XbelEntry{QString::fromLatin1(path), {}, 1, isPrivate, applications};
        };
        const QString us = QStringLiteral("ZEL Box");
        const auto kept =
            withoutForeignPrivate({entry("/open", false, {}), entry("/theirs", true, {QStringLiteral("X")}),
                                      entry("/ours", true, {QStringLiteral("X"), us})},
                us);
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept.at(1).path, QStringLiteral("/ours"));
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
            QVERIFY(std::is_sorted(
                list.cbegin(), list.cend(), [](const RecentFileInfo &a, const RecentFileInfo &b) {
                    return a.lastAccess > b.lastAccess;
                }));
        }
    }

    void unwrittenRecordsAgainstTheDatabase_data()
    {
        QTest::addColumn<QString>("database");
        QTest::addColumn<QString>("mine");
        QTest::addColumn<QString>("result");
        QTest::newRow("opened here") << "a d5"
                                     << "a d5 o7"
                                     << "a d5 o7";
        QTest::newRow("opened there later") << "a d5 o9"
                                            << "a d5 o7"
                                            << "a d5 o9";
        QTest::newRow("opened there, removed here") << "a d5 o6"
                                                    << "a d5 r6"
                                                    << "a d5 r6";
        QTest::newRow("removed there, opened here since") << "a d5 r5"
                                                          << "a d5 o7"
                                                          << "a d5 o7 r5";
    }
    void unwrittenRecordsAgainstTheDatabase()
    {
        QFETCH(QString, database);
        QFETCH(QString, mine);
        QTEST(toText(combined(toRecord(database), toRecord(mine))), "result");
    }

    void mountPoints_data()
    {
        QTest::addColumn<QString>("point");
        QTest::newRow("/home/u/a") << "/";
        QTest::newRow("/mnt/nas/a/b") << "/mnt/nas";
        QTest::newRow("/mnt/nas2/a") << "/";
        QTest::newRow("/mnt/nas/my disk/a") << "/mnt/nas/my disk";
        QTest::newRow("/mnt/nas") << "/mnt/nas";
    }
    void mountPoints()
    {
        const QByteArray table("21 1 8:1 / / rw - ext4 /dev/a rw\n40 21 0:5 / /mnt/nas rw - nfs s:/x rw\n"
                               "41 40 0:6 / /mnt/nas/my\\040disk rw - nfs s:/y rw\n\n");
        QTEST(mountPointOf(QString::fromLatin1(QTest::currentDataTag()), table), "point");
    }
};

QTEST_GUILESS_MAIN(MergeTest)
#include "tst_merge.moc"
