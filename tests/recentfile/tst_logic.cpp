#include "recentfile/recentfilelogic.h"

#include "ksettings.h"
#include "recentfile/fakes.h"
#include "recentfile/recentcloud.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "support/fakecloud.h"

using namespace recenttest;

class TestLogic : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        setSetting("zelbox"_s, "RecentRecordType"_s, {});
        setSetting("plugins/zelbox"_s, "updateRoamingFilesInterval"_s, {});
    }

    void steps_data()
    {
        // script: "|" clears the log
        const auto row = zeltest::table<QString, QString>("script", "expected");

        row("first load", "store a8@3 b2@2;first", "finish;rows 0;rows 2;batch 106");
        row("store has to get ready", "store a8@3;notready;first;ready;init",
            "init 2;finish;rows 0;rows 1;batch 106");
        row("arrived does not end the waiting", "store a8@3;arrived;|;init",
            "finish;rows 0;rows 1;batch 106");
        row("kinds outside the mask", "store a8@3 b4@2 c1@1 d64@0;init", "finish;rows 0;rows 2;batch 106");
        row("add", "init;|;add a8@3 b4@2 c2@9", "rows 1;added a;rows 2;added c;unread 0");
        row("remove", "store a8@3 b2@2;init;|;remove b2 a8", "rows 1;removed b;rows 0;removed a;unread 0");
        row("remove from the empty list", "init;|;remove x8", "");
        row("change of kind brings and takes rows", "store a8@3 b8@2;init;|;change b8@9 x8@1 a4@7 y4@7",
            "changed b;rows 3;added x;rows 2;removed a;unread 0");
        row("change to a kind that is waited for", "store a8@3;init;unread x;|;change x2@5",
            "rows 2;added x;unread 1");
        row("no kinds any more, and some again", "store a8@3;first;|;kinds 0;kinds 106",
            "rows 0;unread 0;rows 0;rows 1;batch 106");
        row("login before the store is ready", "store a8@3;notready;login",
            "finish;rows 0;rows 1;batch 106;roaming 1");
        row("logout", "store a8@3;init;|;logout", "wait;rows 0;unread 0;finish;rows 0;rows 1;batch 106");
        row("logout, store not ready", "store a8@3;init;notready;|;logout;ready;init;init",
            "wait;rows 0;unread 0;init 2;finish;rows 0;rows 1;batch 106;rows 0;rows 1;batch 106");
        row("logout to another user", "init;in;|;logout",
            "wait;rows 0;unread 0;finish;rows 0;batch 106;roaming 1");
        row("timer, logged out", "init;|;tick", "");
        row("timer, logged in", "init;in;|;tick", "roaming 1");
        row("unread", "store a8@3;init;|;unread a;unread a;unread x", "unread 1");
        row("unread, both rows come later", "init;unread x;unread y;|;add x2@5 y2@6",
            "rows 1;added x;rows 2;added y;unread 2");
        row("unread, row comes with a reload", "init;unread x;store x2@5;|;arrived",
            "rows 0;rows 1;batch 106;unread 1");
        row("marks survive a reload", "store a2@3 b2@2;init;unread b;|;arrived;seen",
            "rows 0;rows 2;batch 106;read b;unread 0");
        row("seen", "store a8@3;init;unread a;|;seen;seen", "read a;unread 0");
        row("seen, and told again", "store a8@3;init;unread a;seen;|;unread a", "");
        row("logout forgets marks", "store a2@3;init;unread a;|;logout",
            "wait;rows 0;unread 0;finish;rows 0;rows 1;batch 106");
        row("no model",
            "store a8@3;nomodel;first;init;arrived;add a8;remove a8;change a8;login;logout;in;tick;unread "
            "a;seen",
            "");
    }
    void steps()
    {
        QFETCH(QString, script);
        Bench bench;
        bench.runAll(script);
        QTEST(bench.log.join(QLatin1Char(';')), "expected");
    }

    void kinds_data()
    {
        const auto row = zeltest::table<QVariant, QString>("setting", "expected");

        row("default", QVariant(), "finish;rows 0;rows 4;batch 106"_s);
        row("can only narrow", QVariant(255), "finish;rows 0;rows 4;batch 106"_s);
        row("roaming only", QVariant(2), "finish;rows 0;rows 1;batch 2"_s);
        row("none", QVariant(0), {});
        row("not a number", QVariant("all"_s), "finish;rows 0;rows 4;batch 106"_s);
    }
    void kinds()
    {
        QFETCH(QVariant, setting);
        setSetting("zelbox"_s, "RecentRecordType"_s, setting);
        Bench bench;
        bench.runAll("store a2@9 b8@8 c32@7 d64@6 e1@5 f4@4 g16@3 h128@2;init"_s);
        QTEST(bench.log.join(QLatin1Char(';')), "expected");

        // Once read, it holds for the process.
        KSettings settings;
        settings.setValue("zelbox/RecentRecordType"_s, 8);
        bench.runAll("|;logout"_s);
        QVERIFY(!bench.log.contains("batch 8"_s));
    }

    void refreshInterval_data()
    {
        const auto row = zeltest::table<QVariant, int>("setting", "expected");
        row("default", QVariant(), 1800000);
        row("set", QVariant("60000"_s), 60000);
        row("not a number", QVariant("often"_s), 0);
        row("negative", QVariant("-5"_s), -5); // never
    }
    void refreshInterval()
    {
        QFETCH(QVariant, setting);
        setSetting("plugins/zelbox"_s, "updateRoamingFilesInterval"_s, setting);
        Bench bench;
        auto *timer = bench.logic->findChild<QTimer *>("roamingRefresh"_s);
        QVERIFY(!timer->isActive()); // nothing runs before the window is there
        bench.run("first"_s);
        QFETCH(int, expected);
        QCOMPARE(timer->isActive(), expected >= 0);
        QVERIFY(!timer->isSingleShot());
        if (expected >= 0)
            QCOMPARE(timer->interval(), expected);
    }

    void everyUnreadNoticeLeadsToOneSync()
    {
        Bench bench;
        bench.runAll("unread x;unread x"_s);
        QCOMPARE(bench.log, QStringList()); // later, never from within the notice
        QTRY_COMPARE(bench.store.roamingRequests, 2);
        QCOMPARE(bench.log, QStringList({"roaming 1 sync"_s, "roaming 1 sync"_s}));
    }

    void toldMarks_data()
    {
        using Model = ZelBoxRecentFileModel;
        // later: s between the two notices' times
        const auto row = zeltest::table<QString, int, int>("script", "later", "expected");
        row("new stays new, another event", "add x2@5"_s, 60, int(Model::New));
        row("seen, told again", "add x2@5;seen"_s, 0, int(Model::NotUnread));
        row("seen, another event", "add x2@5;seen"_s, 60, int(Model::Modified));
        row("seen before it has a row", "seen;add x2@5"_s, 0, int(Model::NotUnread));
        row("another user at once", "store x2@5;arrived;seen;login"_s, 0, int(Model::Modified));
        row("another user", "store x2@5;logout"_s, 0, int(Model::Modified));
    }
    // The service tells its whole set again and again.
    void toldMarks()
    {
        const auto [script, later] = zeltest::row<QString, int>();
        const QDateTime time = at("2024-03-20 10:00"_s);
        Bench bench;
        bench.run("init"_s);
        bench.logic->onRoamingUnreadMsgArrive({{"x"_s, {"x"_s, time}}});
        bench.runAll(script);
        bench.logic->onRoamingUnreadMsgArrive(
            {{"x"_s, {"x"_s, time.addSecs(later)}}, {"y"_s, {"y"_s, time}}});
        const int row = bench.model.rowOf("x"_s);
        QTEST(bench.model.index(row).data(ZelBoxRecentFileModel::UnreadRole).toInt(), "expected");
    }

    void opening_data()
    {
        const auto row = zeltest::table<KDocumentOpener::Outcome, QString>("outcome", "storeAsked");
        row("opened", KDocumentOpener::Outcome::Opened, "note /data/docs/a.odt"_s);
        row("missing", KDocumentOpener::Outcome::Missing, "check a"_s);
    }
    void opening()
    {
        QFETCH(KDocumentOpener::Outcome, outcome);
        Bench bench;
        bench.runAll("store a8@3;init;|"_s);
        const QString path = "/data/docs/a.odt"_s;
        bench.logic->open(bench.model.index(0));
        bench.logic->open({});
        bench.runAll("remove a8;|"_s); // gone while the desktop looks for a program
        bench.opener.answer(path, outcome);
        bench.opener.answer(path, outcome);
        QTEST(bench.log.join(QLatin1Char(';')), "storeAsked");
    }

private:
    /// Store, model and logic, with everything that is told or asked written into `log`.
    struct Bench
    {
        QStringList log;
        FakeStore store;
        KRecentFileEvents events;
        FakeOpener opener;
        FakeCloud proxy;
        RecentCloud cloud{&proxy};
        ZelBoxRecentFileModel model;
        std::unique_ptr<KRecentFileLogic> logic;

        Bench()
        {
            store.log = &log;
            logic = std::make_unique<KRecentFileLogic>(
                KRecentFileLogic::Services{&store, &events, &opener, &cloud, 0});
            logic->setModel(&model);
            listen();
        }

        void listen()
        {
            using Logic = KRecentFileLogic;
            const auto say = [this](const QString &text) { log << text; };
            const auto l = logic.get();
            QObject::connect(
                l, &Logic::itemAdded, l, [say](const RecentFileInfo &i) { say("added "_s + i.id); });
            QObject::connect(
                l, &Logic::itemRemoved, l, [say](const RecentFileInfo &i) { say("removed "_s + i.id); });
            QObject::connect(
                l, &Logic::itemStateChanged, l, [say](const RecentFileInfo &i) { say("changed "_s + i.id); });
            QObject::connect(
                l, &Logic::itemsBatchArrived, l, [say](int types) { say("batch %1"_s.arg(types)); });
            QObject::connect(
                l, &Logic::recentFileUnreadMsgCount, l, [say](quint64 n) { say("unread %1"_s.arg(n)); });
            QObject::connect(l, &Logic::needToWaitFirstLoading, l, [say] { say("wait"_s); });
            QObject::connect(l, &Logic::firstLoadingFinish, l, [say] { say("finish"_s); });
            QObject::connect(&model, &ZelBoxRecentFileModel::rowCountChanged, l,
                [say](int n) { say("rows %1"_s.arg(n)); });
        }

        // "a8@30": id a, kind 8, time 30.
        static RecordInfoList parse(const QString &text)
        {
            RecordInfoList list;
            const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (const QString &word : words) {
                const QString head = word.section(QLatin1Char('@'), 0, 0);
                list << record(
                    head.left(1), word.section(QLatin1Char('@'), 1).toLongLong(), head.mid(1).toInt());
            }
            return list;
        }

        void run(const QString &step)
        {
            const QString rest = step.section(QLatin1Char(' '), 1);
            const QMap<QString, std::function<void()>> verbs{
                {"store"_s, [&] { store.content = parse(rest); }},
                {"notready"_s, [&] { store.ready = false; }},
                {"ready"_s, [&] { store.ready = true; }},
                {"in"_s, [&] { proxy.user = "me"_s; }},
                {"nomodel"_s, [&] { logic->setModel(nullptr); }},
                {"first"_s, [&] { logic->onWindowFirstShown(); }},
                {"init"_s, [&] { Q_EMIT events.initFinished(); }},
                {"arrived"_s, [&] { Q_EMIT events.recordsArrived(); }},
                {"add"_s, [&] { Q_EMIT events.recordsAdded(parse(rest)); }},
                {"remove"_s, [&] { Q_EMIT events.recordsRemoved(parse(rest)); }},
                {"change"_s, [&] { Q_EMIT events.recordsChanged(parse(rest)); }},
                {"login"_s, [&] { logic->onLoginStatusChanged(true); }},
                {"logout"_s, [&] { logic->onLoginStatusChanged(false); }},
                {"tick"_s, [&] { logic->onTimingUpdateRoamingFiles(); }},
                {"kinds"_s, [&] { zel::recent::setKindMask(rest.toInt()); }},
                {"unread"_s,
                    [&] {
                        logic->onRoamingUnreadMsgArrive({{rest, {}}});
                    }},
                {"seen"_s, [&] { logic->clearUnread(); }},
                {"|"_s, [&] { log.clear(); }},
            };
            const auto verb = verbs.value(step.section(QLatin1Char(' '), 0, 0));
            QVERIFY2(verb, qPrintable("unknown step "_s + step));
            verb();
        }
        /// Steps, separated by ";".
        void runAll(const QString &script)
        {
            for (const QString &step : script.split(QLatin1Char(';')))
                run(step);
        }
    };
    static void setSetting(const QString &group, const QString &key, const QVariant &value)
    {
        KSettings settings;
        const QStringList path = group.split(QLatin1Char('/'));
        for (const QString &part : path)
            settings.beginGroup(part);
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
        zel::recent::resetSettingsCache();
    }
};

QTEST_GUILESS_MAIN(TestLogic)
#include "tst_logic.moc"
