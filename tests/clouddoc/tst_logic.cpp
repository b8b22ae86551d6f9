#include "logicfixture.h"

using namespace zel::vela;
using State = CloudDocLogic::State;

class TestCloudDocLogic : public LogicFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }
    void lateAnswersAreDropped()
    {
        openRoot({"a/"_s, "b/"_s});
        logic().openFolder("a"_s);
        logic().openFolder("b"_s);
        QVERIFY(page("a"_s, {"old"_s}));
        QCOMPARE(logic().state(), State::Loading);
        QVERIFY(page("b"_s, {"new"_s}));
        QCOMPARE(print(logic()), "new"_s);
        logic().createFolder("late"_s); // is answered when another folder is on view
        logic().openRoot();
        QVERIFY(page("root"_s, {"b/"_s}));
        QVERIFY(cloud().answer(
            "createFolder", filled(&CreateFolderResult::item, FakeCloud::item("late/"_s, "b"_s))));
        QCOMPARE(print(logic()), "b"_s);
    }

    void newsBeatPages()
    {
        cloud().connectNow();
        logic().openRoot();
        QVERIFY(cloud().answer("getInfoList", FakeCloud::page("root"_s, {"a"_s, "b"_s}, true)));
        QCOMPARE(logic().state(), State::Ready);
        QVERIFY(!logic().isComplete());
        cloud().tellRemoved("d"_s);
        cloud().tellCreated("n"_s);
        CloudItem moved = FakeCloud::item("a"_s, "elsewhere"_s);
        cloud().tellProperty(moved, "parentId");
        QVERIFY(page("root"_s, {"c"_s, "d"_s, "a"_s}));
        QCOMPARE(print(logic()), "b c n"_s);
        QVERIFY(logic().isComplete());
        QCOMPARE(cloud().waiting("getInfoList"), 0);
    }

    // Whether they are of the root cannot be told, and its list may have been made before or after them.
    void newsBeforeTheRootIsKnown()
    {
        cloud().connectNow();
        logic().openRoot();
        cloud().tellCreated("n"_s);
        cloud().tellCreated("m"_s);
        QVERIFY(page("root"_s, {"a"_s, "n"_s}));
        QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
        QVERIFY(page("root"_s, {"a"_s, "m"_s, "n"_s}));
        QCOMPARE(print(logic()), "a m n"_s);
        QCOMPARE(cloud().waiting("getInfoList"), 0);
    }

    void pagesThatDoNotFitAreReadAgain()
    {
        cloud().connectNow();
        logic().openRoot();
        QVERIFY(cloud().answer("getInfoList", FakeCloud::page("root"_s, {"a"_s}, true, 1)));
        QVERIFY(cloud().answer("getInfoList", FakeCloud::page("root"_s, {"c"_s}, false, 2)));
        QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
        QVERIFY(page("root"_s, {"a"_s, "b"_s, "c"_s}));
        QCOMPARE(print(logic()), "a b c"_s);
        QCOMPARE(cloud().waiting("getInfoList"), 0);
    }

    void readsAnewByDifference()
    {
        openRoot({"a"_s, "b"_s, "c"_s});
        QSignalSpy reset(logic().documents(), &CloudDocModel::modelReset);
        QSignalSpy removed(logic().documents(), &CloudDocModel::rowsRemoved);
        cloud().tellProperty(FakeCloud::item("root/"_s, {}), "children"); // more than is told one by one
        QTRY_VERIFY(logic().isReloading());
        QCOMPARE(logic().state(), State::Ready);
        cloud().tellProperty(FakeCloud::item("root/"_s, {}), "children"); // while it is read: once more
        QVERIFY(page("root"_s, {"a"_s, "c"_s}));
        QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
        QVERIFY(page("root"_s, {"a"_s, "c"_s}));
        QCOMPARE(cloud().waiting("getInfoList"), 0);
        QCOMPARE(print(logic()), "a c"_s);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(removed.count(), 1);
    }

    void waysThroughFolders()
    {
        openRoot({"a/"_s, "z"_s});
        QCOMPARE(crumbs(logic()), "root"_s);
        logic().openFolder("a"_s);
        QVERIFY(page("a"_s, {"b/"_s}));
        QCOMPARE(crumbs(logic()), "root/a"_s);
        QVERIFY(logic().canGoUp() && logic().canGoBack() && !logic().canGoForward());
        QVERIFY(!logic().canMoveTo({"b"_s}, "b"_s) && !logic().canMoveTo({"b"_s}, "a"_s));
        QVERIFY(logic().canMoveTo({"b"_s}, "root"_s));
        logic().up();
        QVERIFY(page("root"_s, {"a/"_s, "z"_s}));
        QCOMPARE(logic().cameFrom(), "a"_s);
        logic().back();
        QVERIFY(page("a"_s, {"b/"_s}));
        logic().back();
        QVERIFY(page("root"_s, {"a/"_s, "z"_s}));
        QVERIFY(!logic().canGoBack() && logic().canGoForward());
        logic().forward();
        QCOMPARE(crumbs(logic()), "root/a"_s);
        QCOMPARE(cloud().askedFor("getInfoList").mid(1).join(QLatin1Char(' ')), "a root a root a"_s);
    }

    void leavesFoldersThatAreGone()
    {
        openRoot({"a/"_s});
        logic().openFolder("a"_s);
        QVERIFY(page("a"_s, {"x"_s}));
        QSignalSpy gone(&logic(), &CloudDocLogic::folderGone);
        cloud().tellRemoved("a"_s);
        QVERIFY(cloud().answer("getItemInfoListV5", GetItemInfoListV5Result()));
        QCOMPARE(gone.at(0).at(0).toString(), "a"_s);
        QCOMPARE(crumbs(logic()), "root"_s);
        QVERIFY(page("root"_s, {"z/"_s}));
        QVERIFY(!logic().canGoBack()); // that would be here
        logic().openFolder("z"_s);
        QVERIFY(page("z"_s, {}));
        logic().up();
        QVERIFY(page("root"_s, {}));
        logic().back(); // to where nothing is any more
        QVERIFY(cloud().refuse("getInfoList", GetInfoListResult(), NotFound));
        QVERIFY(page("root"_s, {"y"_s}));
        QCOMPARE(print(logic()), "y"_s);
        QVERIFY(!logic().canGoBack());
        QCOMPARE(logic().state(), State::Ready);
    }

    void followsTheWayToTheFolder()
    {
        cloud().connectNow();
        logic().openFolder("deep"_s); // as from a link: the way is not known
        QVERIFY(page("deep"_s, {}));
        const auto path = [](const QStringList &names) {
            GetItemInfoListV5Result result;
            result.items.resize(1);
            result.paths.resize(1);
            for (const QString &name : names) {
                const auto step = filled(&CloudItemPathInfo::id, name.toLower().toStdString(),
                    &CloudItemPathInfo::name, name.toStdString());
                result.paths[0].steps.push_back(step);
            }
            return result;
        };
        QVERIFY(cloud().answer("getItemInfoListV5", path({"root"_s, "up"_s, "deep"_s})));
        QCOMPARE(crumbs(logic()), "root/up/deep"_s);
        CloudItem renamed = FakeCloud::item("up/"_s);
        cloud().tellProperty(renamed, "name");
        cloud().tellProperty(renamed, "name"); // again, before the answer
        QVERIFY(cloud().answer("getItemInfoListV5", path({"root"_s, "uP"_s, "deep"_s})));
        QVERIFY(cloud().answer("getItemInfoListV5", path({"root"_s, "UP"_s, "deep"_s})));
        QCOMPARE(logic().crumbs().at(1).name, "UP"_s);
        QCOMPARE(cloud().waiting("getItemInfoListV5"), 0);
    }

    void loadingFails_data()
    {
        // error: -1: no answer
        const auto row = zeltest::table<bool, int, int>("connected", "error", "state");
        row("service away", false, -1, int(State::Offline));
        row("took too long", true, -1, int(State::Failed));
        row("denied", true, Denied, int(State::Failed));
        row("no root", true, NotFound, int(State::Failed));
    }
    void loadingFails()
    {
        const auto [connected, error] = zeltest::row<bool, int>();
        if (connected)
            cloud().connectNow();
        logic().openRoot();
        if (error < 0)
            QVERIFY(cloud().answer("getInfoList", GetInfoListResult(), false));
        else
            QVERIFY(cloud().refuse("getInfoList", GetInfoListResult(), error));
        QTEST(int(logic().state()), "state");
        cloud().connectNow();
        logic().reload();
        QVERIFY(page("root"_s, {"a"_s}));
        QCOMPARE(logic().state(), State::Ready);
        QVERIFY(logic().isComplete());
        QSignalSpy told(&logic(), &CloudDocLogic::readingFailed);
        logic().reload();
        QVERIFY(cloud().refuse("getInfoList", GetInfoListResult(), Denied));
        QCOMPARE(print(logic()), "a"_s); // out of date, and said to be
        QCOMPARE(told.count(), 1);
    }

    void serviceGoesAndComes()
    {
        cloud().user = "u"_s;
        openRoot({"a"_s, "b"_s});
        TransferInfoListResult list;
        list.tasks.resize(2);
        list.tasks[0].taskId = "t";
        list.tasks[0].transferState = 2;
        list.tasks[1].taskId = "older";
        list.tasks[1].transferState = 4;
        list.tasks[0].item.id = list.tasks[1].item.id = "b";
        QVERIFY(cloud().answer("transferInfoList", list));
        QCOMPARE(logic().documents()->document(1).transfer, CloudDocument::Transfer::Downloading);
        logic().reload();
        cloud().disconnectNow();
        QVERIFY(cloud().answer("getInfoList", GetInfoListResult(), false));
        QCOMPARE(logic().state(), State::Offline);
        QCOMPARE(print(logic()), "a b"_s);
        QCOMPARE(logic().transfers()->transfer(0).state, CloudTransfer::State::Waiting);
        cloud().connectNow();
        QVERIFY(page("root"_s, {"b"_s, "c"_s}));
        QCOMPARE(logic().state(), State::Ready);
        QCOMPARE(print(logic()), "b c"_s);
        QVERIFY(cloud().answer("transferInfoList", list));
        QCOMPARE(logic().transfers()->transfer(0).state, CloudTransfer::State::Running);
        // How far they are is told to each connection anew.
        const auto subscribed = "KVelaIpcCallObj subscribeTransNotify subscribe=true taskIDs= userID=u"_s;
        QCOMPARE(cloud().askedFor("velaIpcCall"), QStringList({subscribed, subscribed}));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("how far transfers are: 5"_s));
        QVERIFY(cloud().answerSlot(
            "onSubscribeTransNotify", Q_ARG(zel::vela::VelaIpcResult, filled(&VelaIpcResult::state, 5))));
    }

    void transfersAreFollowed()
    {
        openRoot({"a"_s, "b"_s});
        QSignalSpy ended(&logic(), &CloudDocLogic::transferEnded);
        auto push = filled(&NotifyFileTransferArg::taskId, "t", &NotifyFileTransferArg::transferType, 2);
        push.item.id = "a";
        push.item.name = "a";
        push.size = 200;
        const auto tell = [&](int state, int done) {
            push.transferState = state;
            push.doneSize = done;
            cloud().push("notifyFileTransfer", push);
        };
        tell(1, 0);
        tell(2, 50);
        QCOMPARE(logic().transfers()->rowCount(), 1);
        QCOMPARE(logic().transfers()->transfer(0).percent(), 25);
        QCOMPARE(logic().documents()->document(0).transfer, CloudDocument::Transfer::Downloading);
        QCOMPARE(logic().documents()->document(0).progress, 25);
        push.errorInfo.errResult = "diskFull";
        tell(5, 60);
        tell(5, 60);
        QCOMPARE(ended.count(), 1);
        QCOMPARE(logic().transfers()->transfer(0).problem, CloudProblem::DiskFull);
        QCOMPARE(logic().documents()->document(0).transfer, CloudDocument::Transfer::None);
        logic().clearFinishedTransfers();
        UpdateTransferInfoResult cleared;
        cleared.removedTaskIds = {"t"};
        QVERIFY(cloud().answer("updateTransferInfo", cleared));
        QCOMPARE(logic().transfers()->rowCount(), 0);
        QSignalSpy leftOut(&logic(), &CloudDocLogic::leftOut);
        push.errorInfo = {};
        push.errorInfo.extraParam["leftOut"] = "3";
        tell(4, 200);
        QCOMPARE(leftOut.value(0), QVariantList{3});
    }

    // The page of a box in the background costs nothing: nothing is asked before it is first opened.
    void idleAsksNothing()
    {
        cloud().connectNow();
        cloud().tellCreated("a"_s);
        cloud().disconnectNow();
        cloud().connectNow();
        QCOMPARE(cloud().asked, QStringList());
        CloudDocLogic alone(nullptr);
        alone.openRoot();
        QTRY_COMPARE(alone.state(), State::Offline);
    }

private:
    static constexpr int NotFound = 3;
    static constexpr int Denied = 5;
    static QString crumbs(const CloudDocLogic &logic)
    {
        return zeltest::joined(logic.crumbs(), &CloudCrumb::id, "/"_s);
    }
};

QTEST_GUILESS_MAIN(TestCloudDocLogic)
#include "tst_logic.moc"
