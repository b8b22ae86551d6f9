#include "recentfile/recentfilelogic.h"

#include "ksettings.h"
#include "recentfile/fakes.h"
#include "recentfile/recentcloud.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "support/fakecloud.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace recenttest;

namespace {

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
        QObject::connect(l, &Logic::itemAdded, l,
            [say](const RecentFileInfo &i) { say(QStringLiteral("added ") + i.id); });
        QObject::connect(l, &Logic::itemRemoved, l,
            [say](const RecentFileInfo &i) { say(QStringLiteral("removed ") + i.id); });
        QObject::connect(l, &Logic::itemStateChanged, l,
            [say](const RecentFileInfo &i) { say(QStringLiteral("changed ") + i.id); });
        QObject::connect(l, &Logic::itemsBatchArrived, l,
            [say](int types) { say(QStringLiteral("batch %1").arg(types)); });
        QObject::connect(l, &Logic::recentFileUnreadMsgCount, l,
            [say](quint64 n) { say(QStringLiteral("unread %1").arg(n)); });
        QObject::connect(l, &Logic::needToWaitFirstLoading, l, [say] { say(QStringLiteral("wait")); });
        QObject::connect(l, &Logic::firstLoadingFinish, l, [say] { say(QStringLiteral("finish")); });
        QObject::connect(&model, &ZelBoxRecentFileModel::rowCountChanged, l,
            [say](int n) { say(QStringLiteral("rows %1").arg(n)); });
    }

    // "a8@30": id a, kind 8, time 30.
    static RecordInfoList parse(const QString &text)
    {
        RecordInfoList list;
        const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &word : words) {
            const QString head = word.section(QLatin1Char('@'), 0, 0);
            list << record(head.left(1), word.section(QLatin1Char('@'), 1).toLongLong(), head.mid(1).toInt());
        }
        return list;
    }

    void run(const QString &step)
    {
        const QString verb = step.section(QLatin1Char(' '), 0, 0);
        const QString rest = step.section(QLatin1Char(' '), 1);
        if (verb == QLatin1String("store"))
            store.content = parse(rest);
        else if (verb == QLatin1String("notready"))
            store.ready = false;
        else if (verb == QLatin1String("ready"))
            store.ready = true;
        else if (verb == QLatin1String("in"))
            proxy.user = QStringLiteral("me");
        else if (verb == QLatin1String("nomodel"))
            logic->setModel(nullptr);
        else
            notify(verb, rest);
    }

    void notify(const QString &verb, const QString &rest)
    {
        if (verb == QLatin1String("first"))
            logic->onWindowFirstShown();
        else if (verb == QLatin1String("init"))
            Q_EMIT events.initFinished();
        else if (verb == QLatin1String("arrived"))
            Q_EMIT events.recordsArrived();
        else if (verb == QLatin1String("add"))
            Q_EMIT events.recordsAdded(parse(rest));
        else if (verb == QLatin1String("remove"))
            Q_EMIT events.recordsRemoved(parse(rest));
        else if (verb == QLatin1String("change"))
            Q_EMIT events.recordsChanged(parse(rest));
        else if (verb == QLatin1String("login"))
            logic->onLoginStatusChanged(true);
        else if (verb == QLatin1String("logout"))
            logic->onLoginStatusChanged(false);
        else if (verb == QLatin1String("tick"))
            logic->onTimingUpdateRoamingFiles();
        else if (verb == QLatin1String("unread"))
            logic->onRoamingUnreadMsgArrive({{rest, {}}});
        else if (verb == QLatin1String("seen"))
            logic->clearUnread();
        else
            QFAIL(qPrintable(QStringLiteral("unknown step ") + verb));
    }
};

void setSetting(const QString &group, const QString &key, const QVariant &value)
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

} // namespace

class TestLogic : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void steps_data();
    void steps();
    void kinds_data();
    void kinds();
    void refreshInterval_data();
    void refreshInterval();
    void everyUnreadNoticeLeadsToOneSync();
    void toldMarks_data();
    void toldMarks();
    void opening_data();
    void opening();
};

void TestLogic::init()
{
    setSetting(QStringLiteral("zelbox"), QStringLiteral("RecentRecordType"), {});
    setSetting(QStringLiteral("plugins/zelbox"), QStringLiteral("updateRoamingFilesInterval"), {});
}

void TestLogic::steps_data()
{
    QTest::addColumn<QString>("script"); // steps, separated by ";"; "|" clears the log
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *script, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(script) << QString::fromLatin1(expected);
    };
    row("first load", "store a8@3 b2@2;first", "finish;rows 0;rows 2;batch 106");
    row("store has to get ready", "store a8@3;notready;first;ready;init",
        "init 2;finish;rows 0;rows 1;batch 106");
    row("arrived does not end the waiting", "store a8@3;arrived;|;init", "finish;rows 0;rows 1;batch 106");
    row("kinds outside the mask", "store a8@3 b4@2 c1@1 d64@0;init", "finish;rows 0;rows 2;batch 106");
    row("add", "init;|;add a8@3 b4@2 c2@9", "rows 1;added a;rows 2;added c;unread 0");
    row("remove", "store a8@3 b2@2;init;|;remove b2 a8", "rows 1;removed b;rows 0;removed a;unread 0");
    row("remove from the empty list", "init;|;remove x8", "");
    row("change of kind brings and takes rows", "store a8@3 b8@2;init;|;change b8@9 x8@1 a4@7 y4@7",
        "changed b;rows 3;added x;rows 2;removed a;unread 0");
    row("change to a kind that is waited for", "store a8@3;init;unread x;|;change x2@5",
        "rows 2;added x;unread 1");
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
        "store a8@3;nomodel;first;init;arrived;add a8;remove a8;change a8;login;logout;in;tick;unread a;seen",
        "");
}

void TestLogic::steps()
{
    QFETCH(QString, script);
    Bench bench;
    const QStringList steps = script.split(QLatin1Char(';'));
    for (const QString &step : steps) {
        if (step == QLatin1String("|"))
            bench.log.clear();
        else
            bench.run(step);
    }
    QTEST(bench.log.join(QLatin1Char(';')), "expected");
}

void TestLogic::kinds_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<QString>("expected");

    QTest::newRow("default") << QVariant() << QStringLiteral("finish;rows 0;rows 4;batch 106");
    QTest::newRow("can only narrow") << QVariant(255) << QStringLiteral("finish;rows 0;rows 4;batch 106");
    QTest::newRow("roaming only") << QVariant(2) << QStringLiteral("finish;rows 0;rows 1;batch 2");
    QTest::newRow("none") << QVariant(0) << QString();
    QTest::newRow("not a number") << QVariant(QStringLiteral("all"))
                                  << QStringLiteral("finish;rows 0;rows 4;batch 106");
}

void TestLogic::kinds()
{
    QFETCH(QVariant, setting);
    setSetting(QStringLiteral("zelbox"), QStringLiteral("RecentRecordType"), setting);
    Bench bench;
    bench.run(QStringLiteral("store a2@9 b8@8 c32@7 d64@6 e1@5 f4@4 g16@3 h128@2"));
    bench.run(QStringLiteral("init"));
    QTEST(bench.log.join(QLatin1Char(';')), "expected");

    // Once read, it holds for the process.
    KSettings settings;
    settings.setValue(QStringLiteral("zelbox/RecentRecordType"), 8);
    bench.log.clear();
    bench.run(QStringLiteral("logout"));
    QVERIFY(!bench.log.contains(QStringLiteral("batch 8")));
}

void TestLogic::refreshInterval_data()
{
    QTest::addColumn<QVariant>("setting");
    QTest::addColumn<int>("expected");
    QTest::newRow("default") << QVariant() << 1800000;
    QTest::newRow("set") << QVariant(QStringLiteral("60000")) << 60000;
    QTest::newRow("not a number") << QVariant(QStringLiteral("often")) << 0;
    QTest::newRow("negative") << QVariant(QStringLiteral("-5")) << -5; // never
}

void TestLogic::refreshInterval()
{
    QFETCH(QVariant, setting);
    setSetting(QStringLiteral("plugins/zelbox"), QStringLiteral("updateRoamingFilesInterval"), setting);
    Bench bench;
    auto *timer = bench.logic->findChild<QTimer *>(QStringLiteral("roamingRefresh"));
    QVERIFY(!timer->isActive()); // nothing runs before the window is there
    bench.run(QStringLiteral("first"));
    QFETCH(int, expected);
    QCOMPARE(timer->isActive(), expected >= 0);
    QVERIFY(!timer->isSingleShot());
    if (expected >= 0)
        QCOMPARE(timer->interval(), expected);
}

void TestLogic::everyUnreadNoticeLeadsToOneSync()
{
    Bench bench;
    bench.run(QStringLiteral("unread x"));
    bench.run(QStringLiteral("unread x"));
    QCOMPARE(bench.log, QStringList()); // later, never from within the notice
    QTRY_COMPARE(bench.store.roamingRequests, 2);
    QCOMPARE(bench.log, QStringList({QStringLiteral("roaming 1 sync"), QStringLiteral("roaming 1 sync")}));
}

void TestLogic::toldMarks_data()
{
    using Model = ZelBoxRecentFileModel;
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("later"); // s between the two notices' times
    QTest::addColumn<int>("expected");
    QTest::newRow("new stays new, another event") << QStringLiteral("add x2@5") << 60 << int(Model::New);
    QTest::newRow("seen, told again") << QStringLiteral("add x2@5;seen") << 0 << int(Model::NotUnread);
    QTest::newRow("seen, another event") << QStringLiteral("add x2@5;seen") << 60 << int(Model::Modified);
    QTest::newRow("seen before it has a row")
        << QStringLiteral("seen;add x2@5") << 0 << int(Model::NotUnread);
    QTest::newRow("another user at once")
        << QStringLiteral("store x2@5;arrived;seen;login") << 0 << int(Model::Modified);
    QTest::newRow("another user") << QStringLiteral("store x2@5;logout") << 0 << int(Model::Modified);
}

// The service tells its whole set again and again.
void TestLogic::toldMarks()
{
    QFETCH(QString, script);
    QFETCH(int, later);
    const QDateTime time = at(QStringLiteral("2024-03-20 10:00"));
    const QString x = QStringLiteral("x");
    const QString y = QStringLiteral("y");
    Bench bench;
    bench.run(QStringLiteral("init"));
    bench.logic->onRoamingUnreadMsgArrive({{x, {x, time}}});
    const QStringList steps = script.split(QLatin1Char(';'));
    for (const QString &step : steps)
        bench.run(step);
    bench.logic->onRoamingUnreadMsgArrive({{x, {x, time.addSecs(later)}}, {y, {y, time}}});
    const int row = bench.model.rowOf(x);
    QTEST(bench.model.index(row).data(ZelBoxRecentFileModel::UnreadRole).toInt(), "expected");
}

void TestLogic::opening_data()
{
    QTest::addColumn<KDocumentOpener::Outcome>("outcome");
    QTest::addColumn<QString>("storeAsked");
    QTest::newRow("opened") << KDocumentOpener::Outcome::Opened << QStringLiteral("note /data/docs/a.odt");
    QTest::newRow("missing") << KDocumentOpener::Outcome::Missing << QStringLiteral("check a");
}

void TestLogic::opening()
{
    QFETCH(KDocumentOpener::Outcome, outcome);
    Bench bench;
    bench.run(QStringLiteral("store a8@3"));
    bench.run(QStringLiteral("init"));
    bench.log.clear();
    const QString path = QStringLiteral("/data/docs/a.odt");
    bench.logic->open(bench.model.index(0));
    bench.logic->open({});
    bench.run(QStringLiteral("remove a8")); // gone while the desktop looks for a program
    bench.log.clear();
    bench.opener.answer(path, outcome);
    bench.opener.answer(path, outcome);
    QTEST(bench.log.join(QLatin1Char(';')), "storeAsked");
}

QTEST_GUILESS_MAIN(TestLogic)
#include "tst_logic.moc"
