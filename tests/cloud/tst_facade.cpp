#include "cloud/cloudcredentials.h"
#include "cloud/upgradequery.h"
#include "cloud/wire/registry.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "cloud/zelboxcloudsvr.h"
#include "notify_types.h"
#include "platform/cloudipc/linkfixture.h"
#include "search_types.h"
#include "transfer_types.h"

using namespace zel;
using Fixture = LinkFixture<ZelBoxCloudSvr>;
using LoginMap = std::map<std::string, std::string>;
using Check = std::function<bool(FakeService::Reader &)>; // whether the request came as it was made
using Call = std::function<Check(ZelBoxCloudSvr &)>;
Q_DECLARE_METATYPE(LoginMap)
Q_DECLARE_METATYPE(Call)

class TestFacade : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void startsAfterTheFirstWindow()
    {
        Fixture f;
        QSignalSpy inited(f.proxy.get(), &KCloudSvrProxy::velaInited);
        QElapsedTimer watch;
        watch.start();
        f.proxy->onFirstMainWindowShown();
        QVERIFY(inited.wait(Fixture::Patience));
        QVERIFY(watch.elapsed() >= 190); // Qt's coarse timers may be early by a twentieth
        QVERIFY(f.proxy->isInited());
        QCOMPARE(QByteArray::fromStdString(f.service->client.clientName), QByteArray("mainbox"));
    }

    void wiresOnce()
    {
        Fixture f;
        QSignalSpy list(f.proxy.get(), &ZelBoxCloudSvr::notifyRecentFileListChanged);
        Q_EMIT f.proxy->velaEventObject()->signal_notifyRecentFileListChanged();
        QCOMPARE(list.size(), 0);
        QVERIFY(f.connectNow());
        f.proxy->onVelaInited();
        f.service->hangUp();
        QSignalSpy inited(f.proxy.get(), &KCloudSvrProxy::velaInited);
        QVERIFY(inited.wait(Fixture::Patience));
        Q_EMIT f.proxy->velaEventObject()->signal_notifyRecentFileListChanged();
        QCOMPARE(list.size(), 1);
    }

    void relaysEvents()
    {
        Fixture f;
        QSignalSpy connected(f.proxy.get(), &ZelBoxCloudSvr::socketConnected);
        QVERIFY(f.connectNow());
        QCOMPARE(connected.size(), 1);
        ZelBoxCloudSvr *box = f.proxy.get();
        QSignalSpy creation(box, &ZelBoxCloudSvr::notifyFileCreation);
        QSignalSpy messages(box, &ZelBoxCloudSvr::notifyNewMsgListArrived);
        QSignalSpy actions(box, &ZelBoxCloudSvr::notifyActionsMapForReadMessage);
        QSignalSpy discussion(box, &ZelBoxCloudSvr::notifyShareDiscussion);
        QSignalSpy thumbnail(box, &ZelBoxCloudSvr::notifyUserThumbnail);
        QSignalSpy states(box, SIGNAL(notifyRecentFileStateChanged(const QVector<zel::vela::CloudItem> &)));
        QSignalSpy membership(box, &ZelBoxCloudSvr::signal_vipInfoChanged);
        KVelaEventObject *events = box->velaEventObject();
        Q_EMIT events->signal_vipInfoChanged(QVariantMap{{"kind"_s, "super"_s}});
        Q_EMIT events->signal_notifyFileCreation({});
        Q_EMIT events->signal_notifyNewMsgList({"1"_s});
        Q_EMIT events->signal_notifyActionsMapForReadMessage({});
        Q_EMIT events->signal_notifyShareDiscussion({});
        Q_EMIT events->signal_notifyUserThumbnail({});
        Q_EMIT events->signal_notifyRecentFileStateChanged({});
        for (const QSignalSpy *spy :
            {&creation, &messages, &actions, &discussion, &thumbnail, &states, &membership})
            QCOMPARE(spy->size(), 1);
        QCOMPARE(messages.first().first().toStringList(), QStringList{"1"_s});

        QSignalSpy disconnected(box, &ZelBoxCloudSvr::socketDisconnected);
        QSignalSpy offline(box, &ZelBoxCloudSvr::velaOffline);
        f.service->hangUp();
        QVERIFY(disconnected.wait(Fixture::Patience));
        QCOMPARE(offline.size(), 1);
    }

    void credentials_data()
    {
        const auto row = zeltest::table<LoginMap, bool, bool>("login", "ok", "taken");
        const LoginMap other = changed(changed(wholeLogin, "accessID", "id2"), "cookie", "");
        row("whole", other, true, true);
        row("five empty fields", changed(other, "loginInfo", "||||"), true, true);
        row("no answer", other, false, false);
        row("no loginInfo", changed(other, "loginInfo", ""), true, false);
        row("four fields", changed(other, "loginInfo", "a|b|c|d"), true, false);
        row("six fields", changed(other, "loginInfo", "a|b|c|d|e|"), true, false);
        row("no userId", changed(other, "userId", ""), true, false);
        row("nothing", LoginMap(), true, false);
    }
    void credentials()
    {
        const auto [login, ok, taken] = zeltest::row<LoginMap, bool, bool>();
        Fixture f;
        f.service->login = wholeLogin;
        QVERIFY(f.connectNow());
        const CloudCredentials before{"id"_s, "key"_s, "c=1"_s};
        QTRY_COMPARE(f.proxy->credentials(), before); // asked for after the change of the login state
        f.proxy->onUpdateLoginInfo(ok, QString(), responseOf(login));
        const CloudCredentials other{"id2"_s, "key"_s, QString()};
        QCOMPARE(f.proxy->credentials(), taken ? other : before);
    }

    void loginStates()
    {
        Fixture f;
        f.service->login = {{"loginStatus", "0"}};
        QSignalSpy updated(f.proxy.get(), &ZelBoxCloudSvr::vipInfoUpdated);
        QVERIFY(f.connectNow());
        QCOMPARE(updated.size(), 1);                                 // nothing was known before
        QTRY_COMPARE(f.service->methods.count("getLoginInfo"_s), 2); // the proxy's and the facade's
        for (int i = 0; i < 3; ++i)
            f.proxy->onLoginStatusChanged();
        QCOMPARE(updated.size(), 1);
        QTRY_COMPARE(f.service->methods.count("getLoginInfo"_s), 5);
        f.service->login = wholeLogin;
        const auto push = filled(&vela::NotifyUserGenericInfoArg::infoKey, "loginStatus");
        f.service->push("notifyUserGenericInfo", push);
        f.service->push("notifyUserGenericInfo", push);
        QVERIFY(updated.wait(Fixture::Patience));
        QTRY_VERIFY(!f.proxy->credentials().accessID.isEmpty());
        QCOMPARE(updated.size(), 2);
    }

    void membership_data()
    {
        const auto row = zeltest::table<QVariant, bool>("info", "told");
        row("map", QVariant(QVariantMap{{"level"_s, 3}}), true);
        row("empty map", QVariant(QVariantMap()), true);
        row("invalid", QVariant(), false);
        row("text", QVariant("level=3"_s), false);
        row("list", QVariant(QStringList{"level"_s}), false);
    }
    void membership()
    {
        const auto [info, told] = zeltest::row<QVariant, bool>();
        ZelBoxCloudSvr box;
        QSignalSpy spy(&box, &ZelBoxCloudSvr::signal_vipInfoChanged);
        box.onVipInfoChanged(info);
        QCOMPARE(spy.size(), told ? 1 : 0);
        if (told && !info.toMap().isEmpty())
            QCOMPARE((spy.first().first().value<QMap<QString, QString>>().value("level"_s)), "3"_s);
    }

    void operations_data()
    {
        QTest::addColumn<Call>("call");
        const auto row = [](const char *method, auto operation, auto record) {
            record.extraParam["mark"] = method;
            QTest::newRow(method) << Call([operation, record](ZelBoxCloudSvr &box) -> Check {
                (box.*operation)(record, nullptr, {});
                return [record](FakeService::Reader &reader) {
                    std::decay_t<decltype(record)> came;
                    return reader.readRequest(came) && came == record;
                };
            });
        };
        const Check isU1 = [](FakeService::Reader &reader) {
            QStringList texts;
            return reader.readRequestList(texts) && texts == QStringList{"u1"_s};
        };
        using Svr = ZelBoxCloudSvr;
        row("cloudDocSearch", &Svr::cloudDocSearch, vela::CloudDocSearchArg());
        row("cloudDocContentSearch", &Svr::cloudDocContentSearch, vela::CloudDocContentSearchArg());
        row("getContentSearchStatus", &Svr::getContentSearchStatus, vela::GetContentSearchStatusArg());
        row("changeContentSearchStatus", &Svr::changeContentSearchStatus,
            vela::ChangeContentSearchStatusArg());
        row("batchUploadFileListToAnyExistedPath", &Svr::batchUploadFileListToAnyExistedPath,
            vela::BatchUploadFilesToCloudArg());
        row("folderUpload", &Svr::folderUpload, vela::UploadFolderToCloudArg());
        row("downloadFileFromCloud", &Svr::downloadFileFromCloud, vela::DownloadCloudFileArg());
        QTest::newRow("redirect") << Call([isU1](Svr &box) {
            box.redirect("u1"_s);
            return isU1;
        });
        QTest::newRow("showUpgradeVip") << Call([isU1](Svr &box) {
            box.showUpgradeVip("u1"_s);
            return isU1;
        });
    }
    void operations()
    {
        QFETCH(Call, call);
        Fixture f;
        QVERIFY(f.connectNow());
        const Check check = call(*f.proxy);
        bool isTheSame = false;
        f.service->serve = [&](const FakeService::Head &, FakeService::Reader &reader) {
            isTheSame = check(reader);
        };
        QTRY_COMPARE(
            QString::fromStdString(f.service->lastCall.method), QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(isTheSame);
    }

    void cancelsTasks()
    {
        Fixture f;
        vela::VelaIpcArg came;
        f.service->serve = [&](const FakeService::Head &, FakeService::Reader &reader) {
            reader.readRequest(came);
        };
        QVERIFY(f.connectNow());
        f.proxy->cancelTask({"t1"_s, "t2"_s}, nullptr, QString());
        auto expected =
            filled(&vela::VelaIpcArg::nameSpace, "KVelaIpcCallObj", &vela::VelaIpcArg::method, "cancelTask");
        expected.argMap = {{"taskIDs", "t1|t2"}};
        QTRY_COMPARE(came, expected);
        QCOMPARE(QByteArray::fromStdString(f.service->lastCall.method), QByteArray("velaIpcCall"));
    }

    void upgradeQueries()
    {
        QCOMPARE(upgrade::query("zelbox_menu"_s, "pay"_s, upgrade::Offer::Super),
            "&position=zelbox_menu&payconfig=pay&component=pc_svip"_s);
        QCOMPARE(upgrade::query("a&b"_s, "%1"_s, upgrade::Offer::Plume),
            "&position=a%26b&payconfig=%251&component=pc_plume"_s);
    }

    void windowIdentity_data()
    {
        const auto row = zeltest::table<QString, bool>("window", "ours");
        row("ours", "mainbox", true);
        row("any", {}, true);
        row("another", "minibox", false);
    }
    void windowIdentity()
    {
        const auto [window, ours] = zeltest::row<QString, bool>();
        Fixture f;
        ZelBoxClientSvrProxy windows;
        f.proxy->addClientProxy(&windows);
        QSignalSpy asked(&windows, &ZelBoxClientSvrProxy::activateRequested);
        QVERIFY(f.connectNow());
        f.service->push("notifyAction",
            filled(&vela::NotifyActionArg::action, "activateWindow", &vela::NotifyActionArg::targetWindow,
                window.toStdString()));
        QSignalSpy list(f.proxy.get(), &ZelBoxCloudSvr::notifyRecentFileListChanged);
        f.service->push("notifyRecentFileChange", vela::NotifyRecentFileChangeArg());
        QVERIFY(list.wait(Fixture::Patience)); // pushes come in order
        QCOMPARE(asked.size(), ours ? 1 : 0);
    }

private:
    static inline const LoginMap wholeLogin = {{"userId", "u1"}, {"loginStatus", "2"},
        {"loginInfo", "u1|Ann|server|d|2"}, {"accessID", "id"}, {"secretKey", "key"}, {"cookie", "c=1"}};
    static KRpcResponse responseOf(const LoginMap &login)
    {
        QMap<QString, QString> map;
        for (const auto &[key, value] : login)
            map.insert(QString::fromStdString(key), QString::fromStdString(value));
        return {0, map};
    }
    static LoginMap changed(LoginMap login, const char *key, const char *value)
    {
        login[key] = value;
        return login;
    }
};

QTEST_GUILESS_MAIN(TestFacade)
#include "tst_facade.moc"
