#include "kcloudask.h"
#include "linkfixture.h"
#include "listener.h"

using namespace std::chrono_literals;
using namespace zel;
struct Fixture : LinkFixture<KCloudSvrProxy>
{
    CloudCall asked;
};
using Act = void (*)(Fixture &);
using Serve = void (*)(FakeService &, const FakeService::Head &);
Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Serve)

class TestCalls : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyRequestEndsOnce_data()
    {
        // slot, reply: what it and who asked are told; empty for nothing
        const auto add = zeltest::table<Serve, Act, QString, QString, bool>(
            "serve", "act", "slot", "reply", "staysConnected");
        const auto row = [&](const char *name, Serve serve, const char *slot, const char *reply, bool stays,
                             Act act = nullptr) { add(name, serve, act, slot, reply, stays); };
        row("answer", answer, "state 0", "Answered", true);
        row("service error", answerWithError, "state 1", "Refused", true);
        row("answered twice", answerTwice, "state 0", "Answered", true);
        row("refused", refuse, "failed", "Rejected", true);
        row("answer that does not parse", answerDamaged, "failed", "Gone", false);
        row("answer to another method", answerOther, "failed", "Gone", false);
        row("frame that does not parse", sendGarbage, "failed", "Gone", false);
        row("frame of four gigabytes", sendHugeLength, "failed", "Gone", false);
        row("a request of the service", sendRequest, "failed", "Gone", false);
        row("connection lost", hangUp, "failed", "Gone", false);
        row("half an answer, then lost", answerHalf, "failed", "Gone", false);
        row("time-out, then the answer", nothing, "failed", "TimedOut", true, answerLate);
        row("cancelled, then the answer", answer, "failed", "Cancelled", true, cancel);
        row("receiver destroyed", answer, "", "", true, destroyReceiver);
        row("proxy destroyed", answer, "", "Gone", false, destroyProxy);
        row("proxy destroyed, then cancelled", answer, "", "Cancelled", false, [](Fixture &f) {
            destroyProxy(f);
            f.asked.cancel();
        });
    }
    void everyRequestEndsOnce()
    {
        const auto [serve, act, slot, reply, staysConnected] =
            zeltest::row<Serve, Act, QString, QString, bool>();
        Fixture f;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &) {
            serve(*f.service, head);
        };
        QVERIFY(f.connectNow());
        QPointer<KCloudSvrProxy> proxy(f.proxy.get());
        QSignalSpy lost(f.proxy->velaEventObject(), &KVelaEventObject::SocketDisConnected);
        if (qstrncmp(QTest::currentDataTag(), "time-out", 8) == 0)
            f.proxy->setCallTimeout(100ms);

        QPointer<Listener> listener(new Listener);
        listener->setParent(f.proxy.get());
        const QString id = f.call(listener, "onResult");
        QVERIFY(!id.isEmpty());
        f.proxy->setProperty("id", id);
        vela::VelaIpcArg envelope;
        QStringList replies;
        f.asked = ask<vela::VelaIpcResult>(f.proxy.get(), "velaIpcCall", envelope, listener,
            [&](const CloudReply<vela::VelaIpcResult> &came) {
                QVERIFY(!f.asked.isWaiting());
                QCOMPARE(came.error, came.end == CloudEnd::Refused ? 1 : 0);
                replies << QString::fromStdString(zeltest::wordOf(came.end));
            });
        QVERIFY2(listener->endings.isEmpty() && replies.isEmpty(), "never inside the request");
        if (act)
            act(f);
        QTRY_VERIFY(!listener || slot.isEmpty() || !listener->endings.isEmpty());
        QTRY_VERIFY(reply.isEmpty() || !replies.isEmpty());
        QTest::qWait(30); // for whatever should not come
        QCOMPARE(proxy && proxy->isConnected(), staysConnected);
        QCOMPARE(replies.join(QLatin1Char(' ')), reply);
        if (!listener)
            return;
        QCOMPARE(listener->endings.size(), slot.isEmpty() ? 0 : 1);
        if (slot.isEmpty())
            return;
        const auto &ending = listener->endings.first();
        QCOMPARE(ending.id, id);
        QCOMPARE(ending.ok ? "state %1"_s.arg(ending.state) : "failed"_s, slot);
        QCOMPARE(lost.size(), staysConnected ? 0 : 1);
        QVERIFY2(!f.proxy->cancelCall(id), "it has ended");
        f.proxy.reset();
    }

    // Without a proxy, and with records that are not the method's.
    void askedOfNobody()
    {
        QStringList replies;
        const auto note = [&replies](const auto &reply) {
            replies << QString::fromStdString(zeltest::wordOf(reply.end));
        };
        ask<vela::VelaIpcResult>(nullptr, "velaIpcCall", vela::VelaIpcArg(), this, note);
        for (int i = 0; i < 3; ++i)
            QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("is no method of these records"_s));
        KCloudSvrProxy proxy;
        ask<vela::VelaIpcResult>(&proxy, "cloudDocSearch", vela::CloudDocSearchArg(), this, note);
        ask<vela::VelaIpcResult>(&proxy, "velaIpcCall", QStringList(), this, note);
        tell(&proxy, "nothing", vela::VelaIpcArg());
        QVERIFY(replies.isEmpty());
        QTRY_COMPARE(replies, QStringList({"Gone"_s, "Rejected"_s, "Rejected"_s}));
    }

    void waitsForTheFirstConnection_data()
    {
        const auto row = zeltest::table<bool, Act, bool>("start", "outcome", "ok");
        const Act callInAPause = [](Fixture &f) {
            f.service->hangUp();
            QTRY_COMPARE(listenerOf(f)->endings.size(), 1);
            listenerOf(f)->endings.clear();
            f.call(listenerOf(f), "onResult");
            QVERIFY(listenerOf(f)->endings.isEmpty());
        };
        row(
            "never started", false, [](Fixture &) {}, false);
        row(
            "introduced", true, [](Fixture &f) { f.service->acceptNow(); }, true);
        row("cancelled while waiting", true, cancel, false);
        row(
            "closed instead", true, [](Fixture &f) { f.service->hangUp(); }, false);
        row("given up, in a pause", true, callInAPause, false);
    }
    void waitsForTheFirstConnection()
    {
        const auto [start, outcome, ok] = zeltest::row<bool, Act, bool>();
        Fixture f;
        f.service->hello = FakeService::Hello::Silence;
        f.service->answerAll();
        if (start)
            f.proxy->startVelaProcess(QString());
        auto *listener = new Listener;
        listener->setParent(f.proxy.get());
        f.proxy->setProperty("id", f.call(listener, "onResult"));
        QVERIFY(listener->endings.isEmpty());
        if (start) {
            QTRY_COMPARE(f.service->methods.size(), 1);
            QTest::qWait(30);
            QVERIFY2(listener->endings.isEmpty(), "the outcome is not known yet");
            QCOMPARE(f.service->methods, QStringList{"getVersion"_s}); // nothing else before its answer
        }
        outcome(f);
        QTRY_COMPARE(listener->endings.size(), 1);
        QCOMPARE(listener->endings.first().ok, ok);
        QCOMPARE(f.service->methods.contains("velaIpcCall"_s), ok);
    }

    void manyInFlight()
    {
        constexpr int Count = 10000;
        Fixture f;
        QVector<FakeService::Head> calls;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &) {
            calls.append(head);
            for (int i = Count - 1; calls.size() == Count && i >= 0; --i) // backwards
                f.service->answer(calls.at(i));
        };
        QVERIFY(f.connectNow());
        Listener listener;
        QSet<QString> ids;
        for (int i = 0; i < Count; ++i)
            ids.insert(f.call(&listener, "onResult"));
        QCOMPARE(ids.size(), Count);
        QTRY_COMPARE_WITH_TIMEOUT(listener.endings.size(), Count, Fixture::Patience);
        for (const auto &ending : std::as_const(listener.endings))
            QVERIFY(ids.remove(ending.id) && ending.ok);
    }

private:
    using Head = FakeService::Head;
    static void answer(FakeService &service, const Head &head) { service.answer(head); }
    static void answerWithError(FakeService &service, const Head &head)
    {
        service.answer(head, int(wire::ServiceError::NotServed));
    }
    static void answerTwice(FakeService &service, const Head &head)
    {
        answer(service, head);
        answer(service, head);
    }
    static void refuse(FakeService &service, const Head &head)
    {
        service.send(wire::refusalFrame(head.method, head.sequence, wire::Refusal::UnknownMethod, {}));
    }
    // An envelope's answer cut short, with the length of what is left.
    static void answerDamaged(FakeService &service, const Head &head)
    {
        QByteArray frame = wire::replyFrame(head.method, head.sequence, vela::VelaIpcResult());
        frame.chop(3);
        frame[3] = char(frame.size() - 4);
        service.send(frame);
    }
    static void answerOther(FakeService &service, const Head &head)
    {
        service.send(wire::replyFrame("copy", head.sequence, vela::VelaIpcResult()));
    }
    static void sendGarbage(FakeService &service, const Head &)
    {
        service.send(QByteArray("\0\0\0\3abc", 7));
    }
    static void sendHugeLength(FakeService &service, const Head &)
    {
        service.send(QByteArray(8, char(0xff)));
    }
    static void sendRequest(FakeService &service, const Head &head)
    {
        service.send(wire::callFrame("getVersion", head.sequence, vela::GetVersionArg()));
    }
    static void hangUp(FakeService &service, const Head &) { service.hangUpSoon(); }
    static void answerHalf(FakeService &service, const Head &head)
    {
        service.send(wire::replyFrame(head.method, head.sequence, vela::VelaIpcResult()).left(20));
        hangUp(service, head);
    }
    static void nothing(FakeService &, const Head &) { }
    static Listener *listenerOf(Fixture &f) { return f.proxy->findChild<Listener *>(); }
    static void answerLate(Fixture &f)
    {
        QTRY_COMPARE(listenerOf(f)->endings.size(), 1);
        answer(*f.service, f.service->lastCall);
    }
    static void cancel(Fixture &f)
    {
        QVERIFY(f.proxy->cancelCall(f.proxy->property("id").toString()));
        f.asked.cancel();
        QVERIFY(listenerOf(f)->endings.isEmpty());
    }
    static void destroyReceiver(Fixture &f) { delete listenerOf(f); }
    static void destroyProxy(Fixture &f)
    {
        listenerOf(f)->setParent(f.service.get());
        f.proxy.reset();
    }
};

QTEST_GUILESS_MAIN(TestCalls)
#include "tst_calls.moc"
