// The whole store with a cloud service: what it reads from it, what it tells, and what troubles do to
// neither.
#include "cloudlist.h"

#include "platform/impl/recentstore/roaming/roamingrecords.h"
#include "platform/impl/recentstore/roaming/roamingsource.h"

#include <QTest>

using namespace zel;
using namespace zel::recent;
using namespace zel::recent::test;

namespace {

const QString A = QStringLiteral("/nowhere/a");
const QString X = QStringLiteral("roaming:x");

} // namespace

class RoamingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneListOfPagesAndPlaces()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}, {QStringLiteral("/nowhere/b"), 2, {}}}));
        RoamingStore f(home);
        f.cloud.pageSize = 2;
        f.cloud.add(QStringLiteral("a@/nowhere/a"), 9);
        f.cloud.add(QStringLiteral("x"), 8).fileId = "31";
        f.cloud.add(QStringLiteral("b"), 7).fileId = "32";
        f.cloud.add(QStringLiteral("y"), 6);
        f.cloud.add(QStringLiteral("gone"), 5).deleted = true;
        f.cloud.copies = {{"x", "/cloud/x"}, {"b", "/nowhere/b"}};
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.shown(), QStringLiteral("a:32 x:2 b:32 y:2"));
        QCOMPARE(f.cloud.asked.join(QLatin1Char(' ')), QStringLiteral("0 2 4 places 2"));
        QCOMPARE(f.store.record(A).lastAccess, timeOf(9));
        QVERIFY(!f.store.record(A).roaming && f.store.record(QStringLiteral("/nowhere/b")).cloudBacked);
        QCOMPARE(f.record(X).cloudFileId, 31);

        f.cloud.asked.clear(); // the list is as it was: its first page tells so
        f.store.proxy.requestRoaming(1, {}, false);
        f.store.proxy.requestRoaming(7, {}, false); // nothing that there is
        QTRY_COMPARE(f.cloud.asked.join(QLatin1Char(' ')), QStringLiteral("0"));
        f.cloud.items.erase(f.cloud.items.begin() + 1, f.cloud.items.begin() + 3);
        f.store.proxy.requestRoaming(1, QStringLiteral("y"), false); // a filtered list takes nothing off
        QTRY_COMPARE(f.cloud.asked.join(QLatin1Char(' ')), QStringLiteral("0 0/y 2/y"));
        f.store.proxy.requestRoaming(1, {}, true);
        QTRY_COMPARE(f.store.shown(), QStringLiteral("a:32 y:2 b:32"));
        QCOMPARE(f.cloud.asked.join(QLatin1Char(' ')), QStringLiteral("0 0/y 2/y 0! 2"));
    }

    void aListThatFails_data()
    {
        QTest::addColumn<QString>("trouble");
        for (const char *trouble : {"error", "link lost", "no records", "no end to changes"})
            QTest::newRow(trouble) << QString::fromLatin1(trouble);
    }
    // Nothing of it is shown, what was known stays, and the next one is read.
    void aListThatFails()
    {
        QFETCH(QString, trouble);
        Home home;
        RoamingStore f(home);
        f.cloud.pageSize = 1;
        f.cloud.add(QStringLiteral("old"), 1);
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.shown(), QStringLiteral("old:2"));
        int failed = 0;
        f.cloud.onPage = [&](const CloudList::Head &head, const vela::GetRecentFilesArg &request) {
            if (trouble == QLatin1String("no end to changes")) {
                failed += int(++f.cloud.version > 9);
                return false;
            }
            if (request.offset == 0)
                return false;
            ++failed;
            vela::GetRecentFilesResult page;
            page.opv = std::to_string(f.cloud.version);
            page.hasMore = true;
            page.state = trouble == QLatin1String("error") ? 7 : 0;
            if (trouble == QLatin1String("link lost"))
                f.link.service->hangUp();
            else
                f.link.service->reply(head, page);
            return true;
        };
        f.cloud.add(QStringLiteral("half"), 9);
        f.cloud.tellChange();
        QTRY_VERIFY(failed > 0);
        f.cloud.onPage = nullptr;
        f.cloud.items.erase(f.cloud.items.begin());
        f.cloud.add(QStringLiteral("new"), 7);
        if (trouble != QLatin1String("link lost")) // its return is enough
            f.cloud.tellChange();
        QTRY_COMPARE_WITH_TIMEOUT(f.store.shown(), QStringLiteral("new:2 old:2"), 20000);
        QVERIFY(!f.wasShown(QStringLiteral("half")));
        QVERIFY(f.store.removed.isEmpty());
    }

    void manyWishesAreFew()
    {
        Home home;
        RoamingStore f(home);
        f.cloud.add(QStringLiteral("x"), 8);
        QVERIFY(f.start());
        for (int i = 0; i < 20; ++i) {
            f.cloud.tellChange();
            f.store.proxy.requestRoaming(1, QString::number(i % 3), false);
        }
        f.cloud.add(QStringLiteral("last"), 9);
        f.cloud.tellChange();
        QTRY_COMPARE(f.store.shown(), QStringLiteral("last:2 x:2"));
        QVERIFY2(f.cloud.asked.size() <= 3, qPrintable(f.cloud.asked.join(QLatin1Char(' '))));
    }

    // Another user signs in while a list of the first is under way; then that one signs out.
    void usersChange()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}}));
        RoamingStore f(home);
        f.cloud.add(QStringLiteral("mine@/nowhere/a"), 5);
        QVERIFY(f.start());
        QTRY_COMPARE(f.store.record(A).roamingId, QStringLiteral("mine"));
        const int version = f.cloud.version;
        f.cloud.add(QStringLiteral("late"), 7);
        std::function<void()> lateAnswer;
        f.cloud.onPage = [&](const CloudList::Head &head, const vela::GetRecentFilesArg &request) {
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
        f.cloud.add(QStringLiteral("yours"), 6);
        f.cloud.add(QStringLiteral("foreign"), 7).userId = "me";
        f.cloud.version = version; // it says nothing over users
        f.cloud.tellChange();
        QTRY_COMPARE_WITH_TIMEOUT(f.store.shown(), QStringLiteral("yours:2 a:32"), 20000);
        QVERIFY(!f.wasShown(QStringLiteral("late")));
        f.cloud.asked.clear();
        f.cloud.signIn({});
        QTRY_COMPARE(f.store.shown(), QStringLiteral("a:32"));
        f.store.proxy.requestRoaming(1, {}, true);
        QTest::qWait(2 * RoamingSource::PauseMs);
        QVERIFY2(f.cloud.asked.isEmpty(), "nobody is signed in");
    }

    // The user sees a document while the service is away; the service learns of it after the next start.
    void seenMarksAreToldLater()
    {
        Home home;
        const auto fill = [](CloudList &cloud) {
            cloud.add(QStringLiteral("x"), 8).extraParam["unread"] = "new";
            cloud.add(QStringLiteral("y"), 6).extraParam["unread"] = "modify";
            cloud.items.back().fileId = "9";
        };
        {
            RoamingStore f(home);
            fill(f.cloud);
            QVERIFY(f.start());
            QTRY_COMPARE(f.record(X).unread, 0);
            f.link.service.reset();
            QTRY_VERIFY(!f.link.proxy->isConnected());
            f.store.proxy.markRead({X, QStringLiteral("roaming:y")});
            QTRY_COMPARE(f.record(X).unread, -1);
        }
        {
            RoamingStore f(home);
            fill(f.cloud);
            f.cloud.answersRead = false; // and is away again before it has answered
            QVERIFY(f.store.load());
            QCOMPARE(f.store.shown(), QStringLiteral("x:2 y:2"));
            QCOMPARE(f.record(X).unread, -1);
            QVERIFY(f.start());
            QTRY_COMPARE(f.cloud.read.size(), size_t(1));
            QCOMPARE(f.cloud.read.front().roamingIds, std::vector<std::string>{"x"});
            QCOMPARE(f.cloud.read.front().items.at(0).id, std::string("9"));
            f.cloud.add(QStringLiteral("z"), 9);
            f.cloud.tellChange();
            QTRY_COMPARE(f.store.shown(), QStringLiteral("z:2 x:2 y:2"));
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
        f.cloud.add(QStringLiteral("x"), 8);
        f.cloud.add(QStringLiteral("y"), 16).extraParam["unread"] = "modify"; // used again meanwhile
        f.cloud.tellChange();
        QTRY_COMPARE(f.record(QStringLiteral("roaming:y")).unread, 1);
        QCOMPARE(f.record(X).unread, -1);
    }

    void usesAreTold()
    {
        Home home;
        const QString file = home.path(QStringLiteral("tmpl/Plan.ods"));
        QVERIFY(replaceFile(file, "12345"));
        const QString temporary = home.path(QStringLiteral("tmp/mail/Attachment.odt"));
        QVERIFY(replaceFile(temporary, "x"));
        RoamingStore f(home);
        QVERIFY(f.start());
        QTRY_VERIFY(!f.cloud.asked.isEmpty());
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        for (const QString &path : {temporary, file, A, file})
            f.store.proxy.noteOpened(path);
        QTRY_COMPARE(f.cloud.uses.size(), size_t(1));
        QCOMPARE(f.cloud.uses.front().records.size(), size_t(1)); // neither missing nor temporary ones
        const vela::FileRecordItem &use = f.cloud.uses.front().records.front();
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
        f.cloud.add(QStringLiteral("x@/nowhere/a"), 8).extraParam["unread"] = "modify";
        QVERIFY(f.start());
        QTRY_COMPARE(f.record(X).unread, 1);
        f.store.proxy.noteOpened(A);
        QTRY_COMPARE(f.store.shown(), QStringLiteral("a:8"));
        QTRY_COMPARE(f.store.record(A).unread, -1);
        QCOMPARE(f.store.record(A).roamingId, QStringLiteral("x"));
        QTRY_COMPARE(f.cloud.read.size(), size_t(1));
    }
};

QTEST_GUILESS_MAIN(RoamingTest)
#include "tst_roaming.moc"
