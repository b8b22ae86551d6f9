// The whole store with a cloud service: what it reads from it, what it tells, and what troubles do to
// neither.
#include "cloudlist.h"

#include "platform/impl/recentstore/roaming/roamingsource.h"

using namespace zel;
using namespace zel::vela;
using namespace zel::recent;
using namespace zel::recent::test;

class RoamingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneListOfPagesAndPlaces()
    {
        Home home({{A, 1}, {"/nowhere/b"_s, 2}});
        RoamingStore f(home);
        f.cloud.pageSize = 2;
        f.cloud.add("a@/nowhere/a"_s, 9);
        f.cloud.add("x"_s, 8).fileId = "31";
        f.cloud.add("b"_s, 7).fileId = "32";
        f.cloud.add("y"_s, 6);
        f.cloud.add("gone"_s, 5).deleted = true;
        f.cloud.copies = {{"x", "/cloud/x"}, {"b", "/nowhere/b"}};
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.shown(), "a:32 x:2 b:32 y:2"_s);
        QCOMPARE(f.cloud.asked.join(QLatin1Char(' ')), "0 2 4 places 2"_s);
        QCOMPARE(f.store.record(A).lastAccess, timeOf(9));
        QVERIFY(!f.store.record(A).roaming && f.store.record("/nowhere/b"_s).cloudBacked);
        QCOMPARE(f.record(X).cloudFileId, 31);

        f.cloud.asked.clear(); // the list is as it was: its first page tells so
        f.store.proxy.requestRoaming(1, {}, false);
        f.store.proxy.requestRoaming(7, {}, false); // nothing that there is
        QTRY_COMPARE(f.cloud.asked.join(QLatin1Char(' ')), "0"_s);
        f.cloud.items.erase(f.cloud.items.begin() + 1, f.cloud.items.begin() + 3);
        f.store.proxy.requestRoaming(1, "y"_s, false); // a filtered list takes nothing off
        QTRY_COMPARE(f.cloud.asked.join(QLatin1Char(' ')), "0 0/y 2/y"_s);
        f.store.proxy.requestRoaming(1, {}, true);
        QTRY_COMPARE(f.store.shown(), "a:32 y:2 b:32"_s);
        QCOMPARE(f.cloud.asked.join(QLatin1Char(' ')), "0 0/y 2/y 0! 2"_s);
    }

    void aListThatFails_data()
    {
        zeltest::names("trouble", {"error", "link lost", "no records", "no end to changes"});
    }
    // Nothing of it is shown, what was known stays, and the next one is read.
    void aListThatFails()
    {
        QFETCH(QString, trouble);
        Home home;
        RoamingStore f(home);
        f.cloud.pageSize = 1;
        f.cloud.add("old"_s, 1);
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.shown(), "old:2"_s);
        int failed = 0;
        f.cloud.onPage = [&](const CloudList::Head &head, const GetRecentFilesArg &request) {
            if (trouble == "no end to changes"_s) {
                failed += int(++f.cloud.version > 9);
                return false;
            }
            if (request.offset == 0)
                return false;
            ++failed;
            const auto page = filled(&GetRecentFilesResult::opv, std::to_string(f.cloud.version),
                &GetRecentFilesResult::hasMore, true, &GetRecentFilesResult::state,
                trouble == "error"_s ? 7 : 0);
            if (trouble == "link lost"_s)
                f.link.service->hangUp();
            else
                f.link.service->reply(head, page);
            return true;
        };
        f.cloud.add("half"_s, 9);
        f.cloud.tellChange();
        QTRY_VERIFY(failed > 0);
        f.cloud.onPage = nullptr;
        f.cloud.items.erase(f.cloud.items.begin());
        f.cloud.add("new"_s, 7);
        if (trouble != "link lost"_s) // its return is enough
            f.cloud.tellChange();
        QTRY_COMPARE_WITH_TIMEOUT(f.store.shown(), "new:2 old:2"_s, 20000);
        QVERIFY(!f.wasShown("half"_s));
        QVERIFY(f.store.removed.isEmpty());
    }

    void manyWishesAreFew()
    {
        Home home;
        RoamingStore f(home);
        f.cloud.add("x"_s, 8);
        QVERIFY(f.start());
        for (int i = 0; i < 20; ++i) {
            f.cloud.tellChange();
            f.store.proxy.requestRoaming(1, QString::number(i % 3), false);
        }
        f.cloud.add("last"_s, 9);
        f.cloud.tellChange();
        QTRY_COMPARE(f.store.shown(), "last:2 x:2"_s);
        QVERIFY2(f.cloud.asked.size() <= 3, qPrintable(f.cloud.asked.join(QLatin1Char(' '))));
    }

    // Another user signs in while a list of the first is under way; then that one signs out.
    void usersChange()
    {
        Home home({{A, 1}});
        RoamingStore f(home);
        f.cloud.add("mine@/nowhere/a"_s, 5);
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.record(A).roamingId, "mine"_s);
        const int version = f.cloud.version;
        f.cloud.add("late"_s, 7);
        std::function<void()> lateAnswer;
        f.cloud.onPage = [&](const CloudList::Head &head, const GetRecentFilesArg &request) {
            if (!lateAnswer)
                lateAnswer = [&f, head, request] { f.cloud.answer(head, request); };
            return true;
        };
        f.cloud.tellChange();
        QTRY_VERIFY(lateAnswer);
        f.cloud.signIn("you");
        QTRY_COMPARE(f.store.record(A).roamingId, QString());
        lateAnswer();
        f.cloud.onPage = nullptr;
        f.cloud.items.clear();
        f.cloud.add("yours"_s, 6);
        f.cloud.add("foreign"_s, 7).userId = "me";
        f.cloud.version = version; // it says nothing over users
        f.cloud.tellChange();
        QTRY_COMPARE_WITH_TIMEOUT(f.store.shown(), "yours:2 a:32"_s, 20000);
        QVERIFY(!f.wasShown("late"_s));
        f.cloud.asked.clear();
        f.cloud.signIn({});
        QTRY_COMPARE(f.store.shown(), "a:32"_s);
        f.store.proxy.requestRoaming(1, {}, true);
        QTest::qWait(2 * RoamingSource::PauseMs);
        QVERIFY2(f.cloud.asked.isEmpty(), "nobody is signed in");
    }

    // The user sees a document while the service is away; the service learns of it after the next start.
    void seenMarksAreToldLater()
    {
        Home home;
        const auto fill = [](CloudList &cloud) {
            cloud.add("x"_s, 8).extraParam["unread"] = "new";
            cloud.add("y"_s, 6).extraParam["unread"] = "modify";
            cloud.items.back().fileId = "9";
        };
        {
            RoamingStore f(home);
            fill(f.cloud);
            QVERIFY(f.start());
            QTRY_COMPARE(f.record(X).unread, 0);
            f.link.service.reset();
            QTRY_VERIFY(!f.link.proxy->isConnected());
            f.store.proxy.markRead({X, "roaming:y"_s});
            QTRY_COMPARE(f.record(X).unread, -1);
        }
        {
            RoamingStore f(home);
            fill(f.cloud);
            f.cloud.answersRead = false; // and is away again before it has answered
            QVERIFY(f.store.load());
            QCOMPARE(f.store.shown(), "x:2 y:2"_s);
            QCOMPARE(f.record(X).unread, -1);
            QVERIFY(f.start());
            QTRY_COMPARE(f.cloud.read.size(), size_t(1));
            QCOMPARE(f.cloud.read.front().roamingIds, std::vector<std::string>{"x"});
            QCOMPARE(f.cloud.read.front().items.at(0).id, std::string("9"));
            f.cloud.add("z"_s, 9);
            f.cloud.tellChange();
            QTRY_COMPARE(f.store.shown(), "z:2 x:2 y:2"_s);
            QCOMPARE(f.record(X).unread, -1);
        }
        RoamingStore f(home);
        fill(f.cloud);
        QVERIFY(f.start());
        QTRY_COMPARE(f.cloud.read.size(), size_t(1));
        f.link.service->hangUp();
        const int connections = f.link.service->connections;
        const int asked = f.cloud.asked.size();
        QTRY_VERIFY_WITH_TIMEOUT(f.link.service->connections > connections, 20000);
        QTRY_VERIFY(f.cloud.asked.size() > asked);
        QCOMPARE(f.cloud.read.size(), size_t(1)); // once is enough
        f.cloud.items.clear();
        f.cloud.add("x"_s, 8);
        f.cloud.add("y"_s, 16).extraParam["unread"] = "modify"; // used again meanwhile
        f.cloud.tellChange();
        QTRY_COMPARE(f.record("roaming:y"_s).unread, 1);
        QCOMPARE(f.record(X).unread, -1);
    }

    void usesAreTold()
    {
        Home home;
        const QString file = home.path("tmpl/Plan.ods"_s);
        QVERIFY(replaceFile(file, "12345"));
        const QString temporary = home.path("tmp/mail/Attachment.odt"_s);
        QVERIFY(replaceFile(temporary, "x"));
        RoamingStore f(home);
        QVERIFY(f.start());
        QTRY_VERIFY(!f.cloud.asked.isEmpty());
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        for (const QString &path : {temporary, file, A, file})
            f.store.proxy.noteOpened(path);
        QTRY_COMPARE(f.cloud.uses.size(), size_t(1));
        QCOMPARE(f.cloud.uses.front().records.size(), size_t(1)); // neither missing nor temporary ones
        const FileRecordItem &use = f.cloud.uses.front().records.front();
        QCOMPARE(QString::fromStdString(use.path), file);
        QCOMPARE(use.name + '|' + use.operation + '|' + use.appType, std::string("Plan.ods|open|sheet"));
        QCOMPARE(use.size, 5);
        QVERIFY(use.actionTime >= before && use.mtime > 0 && use.mtime <= before + 1000);
        QVERIFY(!f.cloud.uses.front().uploadContent);
    }

    void openingIsSeeing()
    {
        Home home;
        RoamingStore f(home);
        f.cloud.add("x@/nowhere/a"_s, 8).extraParam["unread"] = "modify";
        QVERIFY(f.start());
        QTRY_COMPARE(f.record(X).unread, 1);
        f.store.proxy.noteOpened(A);
        QTRY_COMPARE(f.store.shown(), "a:8"_s);
        QTRY_COMPARE(f.store.record(A).unread, -1);
        QCOMPARE(f.store.record(A).roamingId, "x"_s);
        QTRY_COMPARE(f.cloud.read.size(), size_t(1));
    }

private:
    static inline const QString A = "/nowhere/a"_s;
    static inline const QString X = "roaming:x"_s;
};

QTEST_GUILESS_MAIN(RoamingTest)
#include "tst_roaming.moc"
