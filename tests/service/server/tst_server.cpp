#include "service/server/sessionfixture.h"

using namespace std::chrono_literals;
using namespace zel;
using namespace zel::vela;
using namespace zel::service;
using posix::SingleInstance;

class TestServer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<SessionFixture>(); }

    void pushesReachThoseWhoGreeted()
    {
        std::vector<ClientId> welcomed;
        connect(m_fixture->server.get(), &CloudServer::welcomed, this,
            [&welcomed](ClientId id) { welcomed.push_back(id); });
        const auto first = m_fixture->welcomeClient();
        const auto second = m_fixture->welcomeClient();
        WireClient stranger(m_fixture->path());
        QTRY_COMPARE(m_fixture->server->clientCount(), 3);
        auto action = filled(&NotifyActionArg::action, "all");
        m_fixture->server->push("notifyAction", action);
        action.action = "second";
        m_fixture->server->pushTo(welcomed.at(1), "notifyAction", action);
        m_fixture->server->pushTo(ClientId(99), "notifyAction", action);
        QCOMPARE(first->waitForPush<NotifyActionArg>("notifyAction")->action, std::string("all"));
        QCOMPARE(second->waitForPush<NotifyActionArg>("notifyAction")->action, std::string("all"));
        QCOMPARE(second->waitForPush<NotifyActionArg>("notifyAction")->action, std::string("second"));
        // The answer comes after whatever was pushed before it.
        QVERIFY(first->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
        QVERIFY(!first->waitForPush<NotifyActionArg>("notifyAction", 0));
        QVERIFY(stranger.greet());
        QVERIFY(!stranger.waitForPush<NotifyActionArg>("notifyAction", 0));
    }

    void refusesTooManyClients()
    {
        std::vector<std::unique_ptr<WireClient>> clients;
        for (int i = 0; i < CloudServer::MostClients; ++i)
            QVERIFY(clients.emplace_back(m_fixture->welcomeClient()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("64 are there already"_s));
        const WireClient tooMuch(m_fixture->path());
        QVERIFY(tooMuch.waitForClosed());
        clients.resize(3);
        QTRY_COMPARE(m_fixture->server->clientCount(), 3);
        QVERIFY(m_fixture->welcomeClient());
    }

    void finishAnswersFirst()
    {
        QSignalSpy finished(m_fixture->server.get(), &CloudServer::finished);
        const auto client = m_fixture->welcomeClient();
        const auto idle = m_fixture->welcomeClient();
        client->channel().send(wire::listCallFrame("getUserId", 55, {}));
        QTRY_COMPARE(m_fixture->held.size(), size_t(1));
        m_fixture->server->finish();
        QVERIFY(idle->waitForClosed());
        QVERIFY(client->isOpen());
        QCOMPARE(finished.count(), 0);
        m_fixture->held.front().send({});
        QVERIFY(client->waitForAnswer(55));
        QVERIFY(client->waitForClosed());
        QCOMPARE(finished.count(), 1);
    }

    void finishDoesNotWaitForEver()
    {
        QSignalSpy finished(m_fixture->server.get(), &CloudServer::finished);
        const auto client = m_fixture->welcomeClient();
        client->channel().send(wire::listCallFrame("getUserId", 55, {}));
        QTRY_COMPARE(m_fixture->held.size(), size_t(1));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("the service ends"_s));
        m_fixture->server->finish(50ms);
        QTRY_COMPARE(finished.count(), 1);
    }

    void finishesWithoutClients()
    {
        QSignalSpy finished(m_fixture->server.get(), &CloudServer::finished);
        auto first = m_fixture->welcomeClient();
        auto second = m_fixture->welcomeClient();
        bool hasWork = true;
        int asked = 0;
        m_fixture->server->finishWithoutClients(50ms, [&] { return ++asked, hasWork; });
        first.reset();
        QTRY_COMPARE(m_fixture->server->clientCount(), 1);
        QVERIFY2(!finished.wait(200), "one is still there");
        second.reset();
        QTRY_COMPARE(asked, 1);
        QVERIFY2(finished.isEmpty(), "it has work");
        hasWork = false;
        m_fixture->server->workEnded();
        QVERIFY(finished.size() == 1 || finished.wait());
        QVERIFY(!WireClient(m_fixture->path()).isOpen());
        SingleInstance next(m_fixture->folder.path().toStdString(), "cloud");
        QCOMPARE(next.claim(posix::deadlineIn(5s)), SingleInstance::Claim::Owner);
    }

    void lateClientKeepsTheService()
    {
        QSignalSpy finished(m_fixture->server.get(), &CloudServer::finished);
        m_fixture->server->finishWithoutClients(0ms);
        // Queued before the loop runs, so the time is up and the client there on the same turn.
        auto client = std::make_unique<WireClient>(m_fixture->path());
        QVERIFY(!finished.wait(100));
        QCOMPARE(m_fixture->server->clientCount(), 1);
        client.reset();
        QVERIFY(finished.wait());
    }

private:
    std::unique_ptr<SessionFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestServer)
#include "tst_server.moc"
