#include "cloudipc/cloudlink.h"
#include "kvelanetworkmonitor.h"
#include "kvelautil.h"
#include "linkfixture.h"
#include "listener.h"
#include "notify_types.h"

using namespace std::chrono_literals;
using namespace zel;
using Fixture = LinkFixture<KCloudSvrProxy>;
Q_DECLARE_METATYPE(FakeService::Hello)

class TestLink : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void introducesItself()
    {
        Fixture f;
        QVERIFY(f.connectNow());
        QCOMPARE(f.service->client.protocolVersion, wire::ProtocolVersion);
        QCOMPARE(QString::fromStdString(f.service->client.clientName), QCoreApplication::applicationName());
        QCOMPARE(f.service->client.processId, QCoreApplication::applicationPid());
        QCOMPARE(f.service->methods, (QStringList{"getVersion"_s, "getLoginInfo"_s}));
        QVERIFY(f.proxy->linkError().isEmpty());
    }

    void refusedIntroduction_data()
    {
        const auto row = zeltest::table<FakeService::Hello, QString>("hello", "error");
        row("other version", FakeService::Hello::OtherVersion, "version 77 .* version 1");
        row("other reason", FakeService::Hello::Full, "too many clients");
        row("unknown method", FakeService::Hello::Unknown, "never heard of it");
    }
    void refusedIntroduction()
    {
        const auto [hello, error] = zeltest::row<FakeService::Hello, QString>();
        Fixture f;
        f.service->hello = hello;
        QSignalSpy refused(f.proxy.get(), &KCloudSvrProxy::linkRefused);
        QSignalSpy inited(f.proxy.get(), &KCloudSvrProxy::velaInited);
        Listener listener;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(error));
        f.proxy->startVelaProcess(QString());
        f.call(&listener, "onResult"); // waits for the outcome
        QVERIFY(refused.wait(Fixture::Patience));
        QVERIFY2(QRegularExpression(error).match(f.proxy->linkError()).hasMatch(),
            qPrintable(f.proxy->linkError()));
        QTRY_COMPARE(listener.endings.size(), 1);
        QVERIFY(!listener.endings.first().ok);
        QVERIFY(!KVelaNetworkMonitor::instance()->isOnline());
        QVERIFY2(!inited.wait(300), "no other try by itself");
        QCOMPARE(f.service->connections, 1);

        f.service->hello = FakeService::Hello::Accept;
        QVERIFY(f.connectNow());
        QVERIFY(f.proxy->linkError().isEmpty());
    }

    void brokenIntroduction_data()
    {
        using Hello = FakeService::Hello;
        zeltest::rows<Hello>("hello", {{"garbage", Hello::Garbage}, {"something else", Hello::Push}});
    }
    void brokenIntroduction()
    {
        QFETCH(FakeService::Hello, hello);
        Fixture f;
        f.service->hello = hello;
        f.proxy->startVelaProcess(QString());
        QTRY_VERIFY(f.service->connections >= 1);
        QVERIFY(!f.proxy->isConnected());
        f.service->hello = FakeService::Hello::Accept;
        QTRY_VERIFY_WITH_TIMEOUT(f.proxy->isConnected(), Fixture::Patience);
        QVERIFY(f.service->connections >= 2);
    }

    void silentIntroduction()
    {
        Fixture f;
        f.service->hello = FakeService::Hello::Silence;
        cloudipc::CloudLink link([](const wire::MessageHead &, wire::MessageReader &) {});
        link.setHandshakeTimeout(50ms);
        QSignalSpy unreachable(&link, &cloudipc::CloudLink::unreachable);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("introduction in time"_s));
        link.start(QString(), {}, "test"_s);
        QVERIFY(unreachable.wait(Fixture::Patience));
        QSignalSpy up(&link, &cloudipc::CloudLink::up);
        f.service->hello = FakeService::Hello::Accept;
        QVERIFY(up.wait(Fixture::Patience));
    }

    void comesBack()
    {
        Fixture f;
        QStringList told;
        connect(f.proxy.get(), &KCloudSvrProxy::velaInited, this, [&] { told.append("inited"_s); });
        const KVelaEventObject *events = f.proxy->velaEventObject();
        connect(events, &KVelaEventObject::SocketConnected, this, [&] { told.append("connected"_s); });
        connect(events, &KVelaEventObject::SocketDisConnected, this, [&] { told.append("lost"_s); });
        QSignalSpy offline(KVelaNetworkMonitor::instance(), &KVelaNetworkMonitor::velaOffline);
        QVERIFY(f.connectNow());
        const int before = offline.size();
        f.service->hangUp();
        QTRY_COMPARE_WITH_TIMEOUT(told.size(), 5, Fixture::Patience);
        QCOMPARE(told.join(QLatin1Char(' ')), "inited connected lost inited connected"_s);
        QCOMPARE(offline.size(), before + 1);
        QTRY_COMPARE(f.service->methods.count("getLoginInfo"_s), 2);
    }

    void destroyedBySignals_data()
    {
        zeltest::names("signal",
            {"velaInited", "SocketConnected", "loginStatusChanged", "push", "SocketDisConnected",
                "linkRefused"});
    }
    void destroyedBySignals()
    {
        QFETCH(QString, signal);
        Fixture f;
        QPointer<KCloudSvrProxy> proxy(f.proxy.get());
        const auto destroy = [&f] { f.proxy.reset(); };
        const KVelaEventObject *events = proxy->velaEventObject();
        if (signal == "velaInited"_s)
            connect(proxy, &KCloudSvrProxy::velaInited, this, destroy);
        if (signal == "loginStatusChanged"_s)
            connect(proxy, &KCloudSvrProxy::loginStatusChanged, this, destroy);
        if (signal == "linkRefused"_s) {
            f.service->hello = FakeService::Hello::OtherVersion;
            connect(proxy, &KCloudSvrProxy::linkRefused, this, destroy);
        }
        if (signal == "SocketConnected"_s)
            connect(events, &KVelaEventObject::SocketConnected, this, destroy);
        connect(events, &KVelaEventObject::signal_notifyRecentFileListChanged, this, destroy);
        connect(events, &KVelaEventObject::SocketDisConnected, this, destroy);
        if (signal == "push"_s || signal == "SocketDisConnected"_s) {
            QVERIFY(f.connectNow());
            if (signal == "push"_s)
                f.service->push("notifyRecentFileChange", vela::NotifyRecentFileChangeArg());
            else
                f.service->send(QByteArray(8, char(0xff)));
        } else {
            proxy->startVelaProcess(QString());
        }
        QTRY_VERIFY_WITH_TIMEOUT(!proxy, Fixture::Patience);
        QTest::qWait(30); // time for whatever would still refer to it; a memory checker reports that
    }

    void helpers()
    {
        const QStringList ids = {"1"_s, "2"_s};
        QCOMPARE(KVelaUtil::joinIds(ids), "1|2"_s);
        QCOMPARE(KVelaUtil::splitIds("1|2|"_s), ids);
        KCloudSvrProxy proxy;
        QSignalSpy spy(proxy.velaEventObject(), &KVelaEventObject::signal_notify);
        proxy.notify("name"_s, 1, "two"_s);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(proxy.getCurrentSettingRootPath(), "HKEY_CURRENT_USER\\SOFTWARE\\Halvorn\\ZELCloud"_s);
    }
};

QTEST_GUILESS_MAIN(TestLink)
#include "tst_link.moc"
