#include "logicfixture.h"

#include <QSignalSpy>

using namespace zel::vela;
using State = CloudDocLogic::State;

namespace {

constexpr int NotFound = 3;
constexpr int Denied = 5;

QString crumbs(const CloudDocLogic &logic)
{
    QStringList ids;
    for (const CloudCrumb &crumb : logic.crumbs())
        ids << crumb.id;
    return ids.join(QLatin1Char('/'));
}

} // namespace

class TestCloudDocLogic : public LogicFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }
    void lateAnswersAreDropped();
    void newsBeatPages();
    void newsBeforeTheRootIsKnown();
    void pagesThatDoNotFitAreReadAgain();
    void readsAnewByDifference();
    void waysThroughFolders();
    void leavesFoldersThatAreGone();
    void followsTheWayToTheFolder();
    void loadingFails_data();
    void loadingFails();
    void serviceGoesAndComes();
    void transfersAreFollowed();
    void idleAsksNothing();
};

void TestCloudDocLogic::lateAnswersAreDropped()
{
    openRoot({text("a/"), text("b/")});
    logic().openFolder(text("a"));
    logic().openFolder(text("b"));
    QVERIFY(page(text("a"), {text("old")}));
    QCOMPARE(logic().state(), State::Loading);
    QVERIFY(page(text("b"), {text("new")}));
    QCOMPARE(print(logic()), text("new"));
    logic().createFolder(text("late")); // is answered when another folder is on view
    logic().openRoot();
    QVERIFY(page(text("root"), {text("b/")}));
    CreateFolderResult created;
    created.item = FakeCloud::item(text("late/"), text("b"));
    QVERIFY(cloud().answer("createFolder", created));
    QCOMPARE(print(logic()), text("b"));
}

void TestCloudDocLogic::newsBeatPages()
{
    cloud().connectNow();
    logic().openRoot();
    QVERIFY(cloud().answer("getInfoList", FakeCloud::page(text("root"), {text("a"), text("b")}, true)));
    QCOMPARE(logic().state(), State::Ready);
    QVERIFY(!logic().isComplete());
    cloud().tellRemoved(text("d"));
    cloud().tellCreated(text("n"));
    CloudItem moved = FakeCloud::item(text("a"), text("elsewhere"));
    cloud().tellProperty(moved, "parentId");
    QVERIFY(page(text("root"), {text("c"), text("d"), text("a")}));
    QCOMPARE(print(logic()), text("b c n"));
    QVERIFY(logic().isComplete());
    QCOMPARE(cloud().waiting("getInfoList"), 0);
}

// Whether they are of the root cannot be told, and its list may have been made before or after them.
void TestCloudDocLogic::newsBeforeTheRootIsKnown()
{
    cloud().connectNow();
    logic().openRoot();
    cloud().tellCreated(text("n"));
    cloud().tellCreated(text("m"));
    QVERIFY(page(text("root"), {text("a"), text("n")}));
    QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
    QVERIFY(page(text("root"), {text("a"), text("m"), text("n")}));
    QCOMPARE(print(logic()), text("a m n"));
    QCOMPARE(cloud().waiting("getInfoList"), 0);
}

void TestCloudDocLogic::pagesThatDoNotFitAreReadAgain()
{
    cloud().connectNow();
    logic().openRoot();
    QVERIFY(cloud().answer("getInfoList", FakeCloud::page(text("root"), {text("a")}, true, 1)));
    QVERIFY(cloud().answer("getInfoList", FakeCloud::page(text("root"), {text("c")}, false, 2)));
    QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
    QVERIFY(page(text("root"), {text("a"), text("b"), text("c")}));
    QCOMPARE(print(logic()), text("a b c"));
    QCOMPARE(cloud().waiting("getInfoList"), 0);
}

void TestCloudDocLogic::readsAnewByDifference()
{
    openRoot({text("a"), text("b"), text("c")});
    QSignalSpy reset(logic().documents(), &CloudDocModel::modelReset);
    QSignalSpy removed(logic().documents(), &CloudDocModel::rowsRemoved);
    cloud().tellProperty(FakeCloud::item(text("root/"), {}), "children"); // more than is told one by one
    QTRY_VERIFY(logic().isReloading());
    QCOMPARE(logic().state(), State::Ready);
    cloud().tellProperty(FakeCloud::item(text("root/"), {}), "children"); // while it is read: once more
    QVERIFY(page(text("root"), {text("a"), text("c")}));
    QTRY_COMPARE(cloud().waiting("getInfoList"), 1);
    QVERIFY(page(text("root"), {text("a"), text("c")}));
    QCOMPARE(cloud().waiting("getInfoList"), 0);
    QCOMPARE(print(logic()), text("a c"));
    QCOMPARE(reset.count(), 0);
    QCOMPARE(removed.count(), 1);
}

void TestCloudDocLogic::waysThroughFolders()
{
    openRoot({text("a/"), text("z")});
    QCOMPARE(crumbs(logic()), text("root"));
    logic().openFolder(text("a"));
    QVERIFY(page(text("a"), {text("b/")}));
    QCOMPARE(crumbs(logic()), text("root/a"));
    QVERIFY(logic().canGoUp() && logic().canGoBack() && !logic().canGoForward());
    QVERIFY(!logic().canMoveTo({text("b")}, text("b")) && !logic().canMoveTo({text("b")}, text("a")));
    QVERIFY(logic().canMoveTo({text("b")}, text("root")));
    logic().up();
    QVERIFY(page(text("root"), {text("a/"), text("z")}));
    QCOMPARE(logic().cameFrom(), text("a"));
    logic().back();
    QVERIFY(page(text("a"), {text("b/")}));
    logic().back();
    QVERIFY(page(text("root"), {text("a/"), text("z")}));
    QVERIFY(!logic().canGoBack() && logic().canGoForward());
    logic().forward();
    QCOMPARE(crumbs(logic()), text("root/a"));
    QCOMPARE(cloud().askedFor("getInfoList").mid(1).join(QLatin1Char(' ')), text("a root a root a"));
}

void TestCloudDocLogic::leavesFoldersThatAreGone()
{
    openRoot({text("a/")});
    logic().openFolder(text("a"));
    QVERIFY(page(text("a"), {text("x")}));
    QSignalSpy gone(&logic(), &CloudDocLogic::folderGone);
    cloud().tellRemoved(text("a"));
    QVERIFY(cloud().answer("getItemInfoListV5", GetItemInfoListV5Result()));
    QCOMPARE(gone.at(0).at(0).toString(), text("a"));
    QCOMPARE(crumbs(logic()), text("root"));
    QVERIFY(page(text("root"), {text("z/")}));
    QVERIFY(!logic().canGoBack()); // that would be here
    logic().openFolder(text("z"));
    QVERIFY(page(text("z"), {}));
    logic().up();
    QVERIFY(page(text("root"), {}));
    logic().back(); // to where nothing is any more
    QVERIFY(cloud().refuse("getInfoList", GetInfoListResult(), NotFound));
    QVERIFY(page(text("root"), {text("y")}));
    QCOMPARE(print(logic()), text("y"));
    QVERIFY(!logic().canGoBack());
    QCOMPARE(logic().state(), State::Ready);
}

void TestCloudDocLogic::followsTheWayToTheFolder()
{
    cloud().connectNow();
    logic().openFolder(text("deep")); // as from a link: the way is not known
    QVERIFY(page(text("deep"), {}));
    const auto path = [](const QStringList &names) {
        GetItemInfoListV5Result result;
        result.items.resize(1);
        result.paths.resize(1);
        for (const QString &name : names) {
            CloudItemPathInfo step;
            step.id = name.toLower().toStdString();
            step.name = name.toStdString();
            result.paths[0].steps.push_back(step);
        }
        return result;
    };
    QVERIFY(cloud().answer("getItemInfoListV5", path({text("root"), text("up"), text("deep")})));
    QCOMPARE(crumbs(logic()), text("root/up/deep"));
    CloudItem renamed = FakeCloud::item(text("up/"));
    cloud().tellProperty(renamed, "name");
    cloud().tellProperty(renamed, "name"); // again, before the answer
    QVERIFY(cloud().answer("getItemInfoListV5", path({text("root"), text("uP"), text("deep")})));
    QVERIFY(cloud().answer("getItemInfoListV5", path({text("root"), text("UP"), text("deep")})));
    QCOMPARE(logic().crumbs().at(1).name, text("UP"));
    QCOMPARE(cloud().waiting("getItemInfoListV5"), 0);
}

void TestCloudDocLogic::loadingFails_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<int>("error"); // -1: no answer
    QTest::addColumn<int>("state");
    QTest::newRow("service away") << false << -1 << int(State::Offline);
    QTest::newRow("took too long") << true << -1 << int(State::Failed);
    QTest::newRow("denied") << true << Denied << int(State::Failed);
    QTest::newRow("no root") << true << NotFound << int(State::Failed);
}

void TestCloudDocLogic::loadingFails()
{
    QFETCH(bool, connected);
    QFETCH(int, error);
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
    QVERIFY(page(text("root"), {text("a")}));
    QCOMPARE(logic().state(), State::Ready);
    QVERIFY(logic().isComplete());
    QSignalSpy told(&logic(), &CloudDocLogic::readingFailed);
    logic().reload();
    QVERIFY(cloud().refuse("getInfoList", GetInfoListResult(), Denied));
    QCOMPARE(print(logic()), text("a")); // out of date, and said to be
    QCOMPARE(told.count(), 1);
}

void TestCloudDocLogic::serviceGoesAndComes()
{
    openRoot({text("a"), text("b")});
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
    QCOMPARE(print(logic()), text("a b"));
    QCOMPARE(logic().transfers()->transfer(0).state, CloudTransfer::State::Waiting);
    cloud().connectNow();
    QVERIFY(page(text("root"), {text("b"), text("c")}));
    QCOMPARE(logic().state(), State::Ready);
    QCOMPARE(print(logic()), text("b c"));
    QVERIFY(cloud().answer("transferInfoList", list));
    QCOMPARE(logic().transfers()->transfer(0).state, CloudTransfer::State::Running);
    QCOMPARE(cloud().askedFor("velaIpcCall").size(), 2); // progress is told to each connection anew
}

void TestCloudDocLogic::transfersAreFollowed()
{
    openRoot({text("a"), text("b")});
    QSignalSpy ended(&logic(), &CloudDocLogic::transferEnded);
    NotifyFileTransferArg push;
    push.taskId = "t";
    push.transferType = 2;
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
}

// The page of a box in the background costs nothing: nothing is asked before it is first opened.
void TestCloudDocLogic::idleAsksNothing()
{
    cloud().connectNow();
    cloud().tellCreated(text("a"));
    cloud().disconnectNow();
    cloud().connectNow();
    QCOMPARE(cloud().asked, QStringList());
    CloudDocLogic alone(nullptr);
    alone.openRoot();
    QTRY_COMPARE(alone.state(), State::Offline);
}

QTEST_GUILESS_MAIN(TestCloudDocLogic)
#include "tst_logic.moc"
