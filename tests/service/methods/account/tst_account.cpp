#include "account_types.h"
#include "cloud/wire/registry.h"
#include "notify_types.h"
#include "service/servicefixture.h"

#include <sstream>

using namespace zel;
using namespace zel::vela;
using service::ServiceHooks;

class TestAccount : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<ServiceFixture>(); }

    // Whatever a method is, its asker gets an answer record; those that nobody serves say so by name.
    void everyMethodIsAnswered()
    {
        const auto client = m_fixture->client();
        int32_t number = 1000;
        int notServed = 0;
        for (const wire::MethodType &method : wire::allMethods()) {
            if (method.isPush)
                continue;
            ++number;
            if (method.request)
                client->channel().send(
                    wire::callFrame(method.name, number, wire::AnyRecord(*method.request).base()));
            else
                client->channel().send(wire::listCallFrame(method.name, number, {}));
            const auto bytes = client->waitForAnswer(number);
            QVERIFY2(bytes, method.name.data());
            wire::MessageReader message(bytes->constData(), size_t(bytes->size()));
            wire::MessageHead head;
            const wire::AnyRecord answer(*method.answer);
            QVERIFY2(message.readHead(head) && message.readAnswer(answer.base()), method.name.data());
            if (m_fixture->service().methods().isServed(method))
                continue;
            ++notServed;
            std::ostringstream text;
            method.answer->print(text, answer.object());
            QVERIFY2(text.str().find("notServed") != std::string::npos, text.str().c_str());
            QVERIFY2(text.str().find("state=1,") != std::string::npos, text.str().c_str());
        }
        QVERIFY(notServed > 0);
    }

    void greeting()
    {
        const auto who = filled(&GetVersionArg::protocolVersion, wire::ProtocolVersion);
        const auto first = m_fixture->client()->call<GetVersionResult>("getVersion", who);
        QCOMPARE(first->protocolVersion, wire::ProtocolVersion);
        QCOMPARE(first->deviceId.size(), size_t(36));
        m_fixture->restart();
        const auto later = m_fixture->client()->call<GetVersionResult>("getVersion", who);
        QCOMPARE(later->deviceId, first->deviceId);
    }

    void loginInfo()
    {
        const auto client = m_fixture->client();
        auto info = client->call<VelaIpcResult>("getLoginInfo", QStringList())->resultMap;
        QCOMPARE(QString::fromStdString(info["userId"]), userId());
        QCOMPARE(info["loginStatus"], std::string("1"));
        for (const char *key : {"nickName", "userName", "deviceId"})
            QVERIFY2(!info[key].empty(), key);
        for (const char *key : {"accessID", "secretKey", "cookie"})
            QVERIFY2(info.count(key) == 1, key);
    }

    void signsOutAndIn()
    {
        auto client = m_fixture->client();
        const auto other = m_fixture->client();
        QCOMPARE(
            client->call<LogoutResult>("logout", filled(&LogoutArg::userId, "somebody"))->errorInfo.errResult,
            std::string("notFound"));
        QCOMPARE(client->call<LogoutResult>("logout", LogoutArg())->state, 0);
        auto told = other->waitForPush<NotifyUserGenericInfoArg>("notifyUserGenericInfo");
        QCOMPARE(told->infoKey, std::string("loginStatus"));
        QCOMPARE(told->info["loginStatus"], std::string("0"));
        QVERIFY(other->waitForPush<NotifyUserInfoArg>("notifyUserInfo"));

        m_fixture->restart();
        client = m_fixture->client();
        auto info = client->call<VelaIpcResult>("getLoginInfo", QStringList())->resultMap;
        QCOMPARE(info["userId"], std::string());
        QCOMPARE(QString::fromStdString(info["loginInfo"]).count(QLatin1Char('|')), 4);
        QCOMPARE(client->call<GetUserIdResult>("getUserId", QStringList())->loginState, 0);
        const auto loginedOnly = filled(&GetUsersArg::loginedOnly, true);
        QCOMPARE(client->call<GetUsersResult>("getUsers", loginedOnly)->total, 0);
        QCOMPARE(client->call<GetUsersResult>("getUsers", GetUsersArg())->total, 1);

        const auto login = [&client](const QStringList &request) {
            return QString::fromStdString(
                client->call<VelaIpcResult>("login", request)->resultMap["errResult"]);
        };
        QCOMPARE(login({"server"_s, "me"_s, "x"_s}), "notServed"_s);
        QCOMPARE(login({"local"_s, "somebody"_s}), "notFound"_s);
        QCOMPARE(login({}), QString());
        const auto users = client->call<GetUsersResult>("getUsers", loginedOnly);
        QCOMPARE(QString::fromStdString(users->currentUserId), userId());
        QVERIFY(users->loginTimes.at(users->currentUserId) > 0);
    }

    void signOutWaitsForUploads()
    {
        QStringList waiting{"7"_s, "8"_s};
        QStringList cancelled;
        ServiceHooks &hooks = m_fixture->service().hooks();
        hooks.waitingUploads = [&waiting] { return waiting; };
        hooks.cancelTasks = [&cancelled](const QStringList &tasks) {
            cancelled = tasks;
            return wire::ServiceError::None;
        };
        const auto client = m_fixture->client();
        LogoutArg request;
        const auto refused = client->call<LogoutResult>("logout", request);
        QCOMPARE(refused->errorInfo.errResult, std::string("conflict"));
        QCOMPARE(refused->waitingTaskIds, (std::vector<std::string>{"7", "8"}));
        QVERIFY(cancelled.isEmpty());
        request.force = true;
        QCOMPARE(client->call<LogoutResult>("logout", request)->state, 0);
        QCOMPARE(cancelled, waiting);
    }

    void picture()
    {
        const QString face = QDir::homePath() + "/.face"_s;
        QFile::remove(face);
        const auto client = m_fixture->client();
        GetUserThumbnailArg request;
        request.users.resize(1);
        request.users[0].userId = userId().toStdString();
        const auto none = client->call<GetUserThumbnailResult>("getUserThumbnail", request);
        QCOMPARE(none->thumbnails.at(0).thumbnailState, 2);
        QFile file(face);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("\x89PNG");
        file.close();
        const auto some = client->call<GetUserThumbnailResult>("getUserThumbnail", request);
        QCOMPARE(some->thumbnails.at(0).thumbnailState, 0);
        QCOMPARE(QString::fromStdString(some->thumbnails[0].path), face);
        QCOMPARE(some->thumbnails[0].mtime, QFileInfo(face).lastModified().toMSecsSinceEpoch());
        QVERIFY(QFile::remove(face));
    }

    void guides()
    {
        auto client = m_fixture->client();
        SetUserGuideStatusArg set;
        set.guideStates = {{"start", 2}, {"radar", 1}, {"wrong", 4}, {"", 1}};
        const auto kept = client->call<SetUserGuideStatusResult>("setUserGuideStatus", set);
        QCOMPARE(kept->guideStates, (std::map<std::string, int32_t>{{"start", 2}, {"radar", 1}}));
        QCOMPARE(kept->failedItems.size(), size_t(2));
        m_fixture->restart();
        client = m_fixture->client();
        GetUserGuideStatusArg get;
        QCOMPARE(client->call<GetUserGuideStatusResult>("getUserGuideStatus", get)->guideStates,
            kept->guideStates);
    }

    void exitNotice_data()
    {
        const auto row = zeltest::table<bool, int, bool>("stop", "others", "stops");
        row("only says so", false, 0, false);
        row("others are there", true, 1, false);
        row("the last one", true, 0, true);
    }

    void exitNotice()
    {
        const auto [stop, others, stops] = zeltest::row<bool, int, bool>();
        const auto client = m_fixture->client();
        std::vector<std::unique_ptr<WireClient>> more;
        for (int i = 0; i < others; ++i)
            more.push_back(m_fixture->client());
        const auto answer =
            client->call<NotifyExitResult>("notifyExit", filled(&NotifyExitArg::stopService, stop));
        QVERIFY(answer);
        QCOMPARE(answer->clientCount, others);
        QCOMPARE(answer->serviceStops, stops);
        QCOMPARE(client->waitForClosed(stops ? WireClient::Patience : 50), stops);
    }

    void worksWithoutADatabase()
    {
        const QString blocked = m_fixture->folder() + "/blocked"_s;
        QFile obstacle(blocked);
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        posix::SingleInstance instance(m_fixture->folder().toStdString(), "second");
        QCOMPARE(
            instance.claim(posix::deadlineIn(std::chrono::seconds(5))), posix::SingleInstance::Claim::Owner);
        service::CloudService service(instance, blocked + "/cloud.db"_s);
        service.start();
        WireClient client(instance.socketPath());
        QVERIFY(client.greet());
        const auto login = [&client] { return client.call<GetUserIdResult>("getUserId", QStringList()); };
        QCOMPARE(login()->errorInfo.errResult, std::string("inputOutput"));
        QVERIFY(!client.waitForPush<NotifyActionsMapArg>("notifyActionsMap", 0));
        QVERIFY(obstacle.remove());
        QCOMPARE(login()->loginState, 1);
        auto told = client.waitForPush<NotifyActionsMapArg>("notifyActionsMap");
        QCOMPARE(told->actionsMap.begin()->first, std::string("MessageDbLoadFinish"));
    }

private:
    QString userId() const { return "local-%1"_s.arg(::getuid()); }
    std::unique_ptr<ServiceFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestAccount)
#include "tst_account.moc"
