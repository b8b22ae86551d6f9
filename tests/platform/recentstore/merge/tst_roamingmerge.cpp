// The cloud service's records among those of this device: who joins whom, and what stays away.
#include "newsfixture.h"

#include "platform/impl/recentstore/roaming/roamingrecords.h"

using Change = std::function<void(zel::vela::RecentFileItem &)>;
Q_DECLARE_METATYPE(Change)

using namespace zel::recent;
using namespace zel::recent::test;

class RoamingMergeTest : public QObject, private NewsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void news_data()
    {
        const auto row = newsTable();
        row("used here last: joins its path", "a d5", "all x7@a y3", "+y2@3 ~a32@7", "=y c:y3;a d5 c:x7@a");
        row("used elsewhere at an equal path", "a d5", "all x7", "+x2@7", "=x c:x7;a d5");
        row("copied here", "a d5", "all x4%a+", "~a32@5+", "a d5 c:x4%a+");
        row("its path here is unknown, its copy is known", "b d5", "all x7@a%b", "~b32@7", "b d5 c:x7@a%b");
        row("off the list", "=y c:y3;a d5 c:x7@a", "all", "-y ~a32@5", "a d5");
        row("a filtered list takes nothing off", "=y c:y3;a d5 c:x7@a", "some z1", "+z2@1",
            "=y c:y3;=z c:z1;a d5 c:x7@a");
        row("twice in one list", "", "all x3 x7", "+x2@7", "=x c:x7");
        row("another takes its path", "a d5 c:x7@a", "all x7@a y9@a", "+x2@7 ~a32@9",
            "=x c:x7@a;a d5 c:y9@a");
        row("a filtered list does not take a path", "a d5 c:x7@a", "some y9@a", "+y2@9",
            "=y c:y9@a;a d5 c:x7@a");
        row("used elsewhere since", "a d5 c:x7@a", "all x9", "+x2@9 ~a32@5", "=x c:x9;a d5");
        row("copied since", "=x c:x7+;a d5", "all x7%a+", "-x ~a32@7+", "a d5 c:x7%a+");
        row("two change places", "a d5 c:x7@a;b d5 c:y8@b", "all x7@b y8@a", "~a32@8 ~b32@7",
            "a d5 c:y8@a;b d5 c:x7@b");
        row("another user's go", "a d5 c:x7@a;=y c:y3", "user you", "-y ~a32@5", "a d5");

        row("removed here: stays away", "a d5 r5", "all x5@a", "", "a d5 r5 c:x5@a");
        row("removed here, used since", "a d5 r5", "all x9@a", "+a2@9", "a d5 r5 c:x9@a");
        row("removed, no list has it, used since", "a r5", "all x9@a", "+x2@9", "=x c:x9@a;a r5");
        row("removed", "=x c:x7", "remove =x", "-x", "=x r7 c:x7-7");
        row("removed, listed again", "=x r7 c:x7-7", "all x7", "", "=x r7 c:x7-7");
        row("removed, used again", "=x r7 c:x7-7", "all x9", "+x2@9", "=x r7 c:x9-7");
        row("removed, off the list", "=x r7 c:x7-7", "all", "", "=x r7");
        row("removed by a clock behind", "=x c:x2000", "remove =x", "-x", "=x r1000 c:x2000-2000");
        row("removed, then joins a removed record", "=x r7 c:x7-7;a r9", "all x7@a", "", "a r9 c:x7@a-7");
        row("a joined one removed", "a d5 c:x7@a", "remove a", "-a", "a d5 r7 c:x7@a-7");

        row("opened here", "=x c:x7@a", "open a 9", "+a8@9 -x", "a o9 c:x7@a");
        row("opened by its copy", "=x c:x7%b*", "open b 9", "+b8@9* -x", "b o9 c:x7%b*");
        row("in the desktop's list", "=x p7 c:x7@a?a", "list a5", "+a32@7 -x", "a d5 p7 c:x7@a");
        row("no list has it any more", "a d5 c:x7@a", "list", "+x2@7 -a", "=x c:x7@a");
        row("missing for long", "a o3 m4 c:x7%a", "missing a 9 5", "+x2@7 -a", "=x c:x7%a");

        row("seen", "=x c:x7+", "read =x", "~x2@7", "=x c:x7!");
        row("seen, a list comes before it is told", "=x c:x7!", "all x7+", "", "=x c:x7!");
        row("seen, used again before it is told", "=x c:x7!", "all x9*", "~x2@9*", "=x c:x9*");
        row("seen and told", "=x c:x7!", "told x7", "", "=x c:x7");
        row("an older mark was told", "=x c:x9!", "told x7", "", "=x c:x9!");
        row("seen, joins before it is told", "=x c:x7!;a d5", "all x7@a+", "-x ~a32@7", "a d5 c:x7@a!");

        row("pinned, off the list, keeps the pin", "=x p7 c:x7", "all", "-x", "=x p7");
        row("its pin is there when it comes back", "=x p7", "all x7", "+x2@7", "=x p7 c:x7");
        row("unpinned", "=x p7 c:x7", "unpin =x", "~x2@7", "=x c:x7");

        row("its file is here", "=x c:x7@a", "look a", "~x2@7", "=x c:x7@a?a");
        row("its file went", "=x c:x7@a?a", "miss a", "~x2@7", "=x c:x7@a");
    }
    void news() { checkNews(&RecentDelta::storesNothing); }

    // Whatever happens: each record of the service stands once, a complete list has its way, the notices lead
    // from the old list to the new one, and the same list again changes nothing.
    void listsOnRandomStates()
    {
        QRandomGenerator random(815);
        const auto letter = [&](int most) { return QString(QChar(ushort('a' + random.bounded(most)))); };
        RecentState state;
        for (int round = 0; round < 2000; ++round) {
            QStringList items;
            const QString verb = random.bounded(2) == 0 ? "all"_s : "some"_s;
            for (int i = random.bounded(6); i > 0; --i) {
                QString item = QChar(ushort('u' + random.bounded(6))) + QString::number(random.bounded(1, 9));
                for (const char *flag : {"@", "%"}) {
                    if (random.bounded(2) == 0)
                        item += QLatin1String(flag) + letter(4);
                }
                items.append(item + (random.bounded(3) == 0 ? "+"_s : QString()));
            }
            const QString id = random.bounded(2) == 0 ? letter(4) : QLatin1Char('=') + letter(26);
            const QString others[] = {"open %1 %2"_s.arg(letter(4)).arg(random.bounded(1, 9)),
                "remove "_s + id, "pin "_s + id, "unpin "_s + id,
                "list %1%2"_s.arg(letter(4)).arg(random.bounded(1, 9)), "read "_s + id};
            const QString list = (QStringList{verb} + items).join(QLatin1Char(' '));
            const QString news = random.bounded(2) == 0 ? list : others[random.bounded(6)];
            const RecentState before = state;
            const RecentDelta delta = perform(state, news);
            RecordInfoList shown = visibleRecords(state);
            update(shown, delta);
            apply(state, delta);
            const QByteArray story = (toText(before) + " | "_s + news).toUtf8();
            QVERIFY2(byId(shown) == byId(visibleRecords(state)), story.constData());
            QStringList carried;
            for (const StoredRecord &record : std::as_const(state)) {
                if (!record.roaming)
                    continue;
                const RoamingItem &item = record.roaming->item;
                carried.append(item.roamingId);
                QVERIFY2(record.isRoamingOnly() || item.usedPath == record.id || item.cachePath == record.id,
                    story.constData());
            }
            QCOMPARE(carried.removeDuplicates(), 0);
            if (news != list)
                continue;
            for (const QString &item : std::as_const(items))
                QVERIFY2(carried.contains(item.left(1)), story.constData());
            QVERIFY2(verb == "some"_s || carried.size() <= items.size(), story.constData());
            QVERIFY2(perform(state, news).storesNothing(), story.constData());
        }
    }

    void recordsOfTheService_data()
    {
        // expected: name, path used here, copy, device, time, unread
        const auto row = zeltest::table<QString, Change>("expected", "change");
        row("elsewhere", "n.odt,,,far,5,-1", [](auto &) {});
        row("copied", "n.odt,,/c/n.odt,far,5,-1", [](auto &r) { r.cachePath = "/c//./n.odt"; });
        row("no path of a file", "n.odt,,,far,5,-1", [](auto &r) { r.cachePath = std::string("/c\0x", 4); });
        row("name in Base64", "a.odt,,,far,5,-1", [](auto &r) { r.name = "", r.b64fName = "YS5vZHQ="; });
        row("new", "n.odt,,,far,5,0", [](auto &r) { r.extraParam["unread"] = "new"; });
        row("unknown mark", "n.odt,,,far,5,-1", [](auto &r) { r.extraParam["unread"] = "?"; });
        row("a clock far ahead", "n.odt,,,far,6,-1", [](auto &r) { r.fileTime = 1LL << 60, r.mtime = 6; });
        row("gone", "", [](auto &r) { r.deleted = true; });
        row("another user's", "", [](auto &r) { r.userId = "you"; });
        row("without any name", "", [](auto &r) { r.name = r.path = ""; });
    }
    void recordsOfTheService()
    {
        QFETCH(Change, change);
        zel::vela::RecentFileItem record;
        record.roamingId = "x";
        record.userId = "me";
        record.curDeviceId = "far away";
        record.curDeviceName = "far";
        record.path = "/d/n.odt";
        record.name = "n.odt";
        record.fileTime = 5;
        change(record);
        const auto item = toItem(record, {"me"_s, "me"_s, 1000});
        QTEST(item ? QStringList({item->name, item->usedPath, item->cachePath, item->deviceName,
                                     QString::number(item->time), QString::number(item->unread)})
                         .join(QLatin1Char(','))
                   : QString(),
            "expected");
    }
};

QTEST_GUILESS_MAIN(RoamingMergeTest)
#include "tst_roamingmerge.moc"
