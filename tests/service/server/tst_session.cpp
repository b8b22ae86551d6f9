#include "cloud/wire/registry.h"
#include "service/server/sessionfixture.h"

#include <sys/socket.h>

using namespace std::chrono_literals;
using namespace zel;
using namespace zel::vela;
using namespace zel::service;

class TestSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void init() { m_fixture = std::make_unique<SessionFixture>(); }

    void handshake_data()
    {
        // answer: a text in it; empty: none, the connection just ends
        const auto row = zeltest::table<QByteArray, QString>("first", "answer");
        row("newer version", greeting(2), "version 2 of the link, this service version 1");
        row("another method", wire::callFrame("getUsers", 1, GetUsersArg()), "must be getVersion");
        row("no record", sized(23, QByteArray("\x80\1\0\1\0\0\0\x0agetVersion\0\0\0\1\0", 23)),
            "must be getVersion");
        row("push", wire::pushFrame("notifyAction", NotifyActionArg()), "");
        row("reply", wire::replyFrame("getVersion", 1, GetVersionResult()), "");
    }

    void handshake()
    {
        const auto [first, answer] = zeltest::row<QByteArray, QString>();
        int welcomed = 0;
        connect(m_fixture->server.get(), &CloudServer::welcomed, this, [&welcomed] { ++welcomed; });
        const auto good = m_fixture->welcomeClient();
        WireClient bad(m_fixture->path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("client 2"_s));
        bad.channel().send(first);
        QVERIFY(bad.waitForClosed());
        if (!answer.isEmpty()) {
            const auto bytes = bad.waitForAnswer(1);
            QVERIFY(bytes);
            QVERIFY2(bytes->contains(answer.toUtf8()), bytes->constData());
        }
        QCOMPARE(bad.answersWaiting(), size_t(0));
        QCOMPARE(welcomed, 1);
        QVERIFY(good->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
    }

    void mustGreetInTime()
    {
        m_fixture->makeServer({.handshakeTime = 50ms});
        const auto good = m_fixture->welcomeClient();
        const WireClient silent(m_fixture->path());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("did not say who it is"_s));
        QVERIFY(silent.waitForClosed());
        QVERIFY(good->isOpen());
    }

    void brokenClient_data()
    {
        const auto row = zeltest::table<QByteArray>("bytes");
        row("text", QByteArray("GET / HTTP/1.1\r\nHost: localhost\r\n\r\n"));
        row("frame above the limit", sized(wire::LargestFrame + 1, "x"));
        row("list above the limit", hugeList());
        row("push", wire::pushFrame("notifyAction", NotifyActionArg()));
        row("reply", wire::replyFrame("getMsgList", 1, GetMsgListResult()));
    }

    void brokenClient()
    {
        QFETCH(QByteArray, bytes);
        const auto good = m_fixture->welcomeClient();
        const auto bad = m_fixture->welcomeClient();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("client 2: .*connection closed"_s));
        bad->channel().send(bytes);
        QVERIFY(bad->waitForClosed());
        QCOMPARE(m_fixture->server->clientCount(), 1);
        QVERIFY(good->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
    }

    void halfAFrame()
    {
        m_fixture->makeServer({.frameTime = 50ms});
        const auto slow = m_fixture->welcomeClient();
        const QByteArray frame = wire::callFrame("getMsgList", 5, GetMsgListArg());
        slow->channel().send(frame.left(frame.size() / 2));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("half a frame"_s));
        QVERIFY(slow->waitForClosed());
    }

    void unknownMethod()
    {
        const auto client = m_fixture->welcomeClient();
        QVERIFY(!client->call<GetMsgListResult>("noSuchMethod", GetMsgListArg()));
        QCOMPARE(client->error(), "There is no such method."_s);
        QVERIFY(client->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
    }

    // A request that lacks a field that it must have is answered, so that the asker does not wait for its
    // time-out.
    void damagedRequest()
    {
        const auto client = m_fixture->welcomeClient();
        QByteArray frame = wire::callFrame("getMsgList", 40, GetMsgListArg());
        frame.chop(3);
        qToBigEndian(quint32(frame.size() - 4), frame.data());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ends too early"_s));
        client->channel().send(frame);
        const auto answer = client->answerTo<GetMsgListResult>(40);
        QVERIFY(answer);
        QCOMPARE(answer->errorInfo.errResult, std::string("invalidArgument"));
        QVERIFY(client->waitForClosed());
        QCOMPARE(m_fixture->handled, 0);
    }

    void answerAfterTheClientHasGone()
    {
        auto gone = m_fixture->welcomeClient();
        const auto stays = m_fixture->welcomeClient();
        gone->channel().send(wire::listCallFrame("getUserId", 2, {}));
        QTRY_COMPARE(m_fixture->held.size(), size_t(1));
        gone.reset();
        QTRY_COMPARE(m_fixture->server->clientCount(), 1);
        m_fixture->held.front().send({});
        QVERIFY(stays->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
    }

    void droppedAnswerIsAnError()
    {
        const auto client = m_fixture->welcomeClient();
        client->channel().send(wire::listCallFrame("getUserId", 70, {}));
        QTRY_COMPARE(m_fixture->held.size(), size_t(1));
        m_fixture->held.clear();
        const auto answer = client->answerTo<GetUserIdResult>(70);
        QVERIFY(answer);
        QCOMPARE(answer->errorInfo.errResult, std::string("internal"));
    }

    void stopsReadingWhileMuchWaits()
    {
        m_fixture->makeServer({.pauseBytes = 1 << 20});
        m_fixture->answerSize = 100000;
        const auto client = m_fixture->welcomeClient();
        const auto other = m_fixture->welcomeClient();
        client->channel().setPaused(true);
        const int requests = 100; // 10 MB of answers
        int32_t last = 0;
        for (int i = 0; i < requests; ++i)
            last = client->send("getMsgList", GetMsgListArg());
        QTRY_VERIFY(m_fixture->handled > 5);
        QVERIFY(other->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
        QVERIFY2(m_fixture->handled < 30, "about a megabyte of answers waits, and what the socket holds");
        client->channel().setPaused(false);
        QVERIFY(client->waitForAnswer(last));
        QCOMPARE(m_fixture->handled, requests + 1);
        QCOMPARE(client->answersWaiting(), size_t(requests - 1));
    }

    void dropsAClientThatStopsReading()
    {
        m_fixture->makeServer({.stallTime = 100ms, .pauseBytes = 1 << 20});
        m_fixture->answerSize = 4 << 20;
        const auto reads = m_fixture->welcomeClient();
        const auto sleeps = m_fixture->welcomeClient();
        sleeps->channel().setPaused(true);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("client 2: it has stopped reading"_s));
        sleeps->send("getMsgList", GetMsgListArg());
        QTRY_COMPARE(m_fixture->server->clientCount(), 1);
        QVERIFY(reads->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
        QTest::qWait(250); // two rounds: one that took everything is not watched any more
        QVERIFY(reads->isOpen());
    }

    void dropsAClientThatLetsPushesPileUp()
    {
        m_fixture->makeServer({.pauseBytes = 1 << 20, .mostBytes = 2 << 20});
        const auto reads = m_fixture->welcomeClient();
        const auto sleeps = m_fixture->welcomeClient();
        sleeps->channel().setPaused(true);
        NotifyActionArg action;
        action.params["filler"] = std::string(300000, 'x');
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("client 2: it does not read"_s));
        for (int i = 0; i < 20; ++i) {
            m_fixture->server->push("notifyAction", action);
            QVERIFY(reads->waitForPush<NotifyActionArg>("notifyAction"));
        }
        QCOMPARE(m_fixture->server->clientCount(), 1);
    }

    void stopsReadingWhileMuchIsOwed()
    {
        m_fixture->makeServer({.mostOwed = 10});
        const auto client = m_fixture->welcomeClient();
        const auto other = m_fixture->welcomeClient();
        for (int i = 0; i < 25; ++i)
            client->channel().send(wire::listCallFrame("getUserId", 100 + i, {}));
        QTRY_COMPARE(m_fixture->held.size(), size_t(10));
        QVERIFY(other->call<GetMsgListResult>("getMsgList", GetMsgListArg()));
        QCOMPARE(m_fixture->held.size(), size_t(10));
    }

private:
    static QByteArray greeting(int version)
    {
        return wire::callFrame("getVersion", 1, filled(&GetVersionArg::protocolVersion, version));
    }
    static QByteArray sized(quint32 length, const QByteArray &body)
    {
        QByteArray frame(4, '\0');
        qToBigEndian(length, frame.data());
        return frame + body;
    }
    // A request whose list claims two thousand million entries.
    static QByteArray hugeList()
    {
        QByteArray frame = wire::listCallFrame("getUserId", 7, {});
        const QByteArray none("\x0b\0\0\0\0", 5);
        return frame.replace(none, QByteArray("\x0b\x7f\xff\xff\xff", 5));
    }

    std::unique_ptr<SessionFixture> m_fixture;
};

QTEST_GUILESS_MAIN(TestSession)
#include "tst_session.moc"
