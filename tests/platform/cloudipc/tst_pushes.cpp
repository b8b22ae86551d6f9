#include "kvelautil.h"
#include "linkfixture.h"
#include "message_types.h"
#include "notify_types.h"

using namespace zel;
using Fixture = LinkFixture<KCloudSvrProxy>;
Q_DECLARE_METATYPE(zel::vela::NotifyFileTransferArg)

class TestPushes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pushes_data()
    {
        // argument: null for none
        const auto add = zeltest::table<QByteArray, QByteArray, QString>("signal", "frame", "argument");
        const auto row = [&](const char *signal, const char *method, const auto &record,
                             const zeltest::Text &argument) {
            add(method, signal, wire::pushFrame(method, record), argument);
        };
        row(SIGNAL(signal_notifyRecentFileListChanged()), "notifyRecentFileChange",
            vela::NotifyRecentFileChangeArg(), QString());
        row(SIGNAL(signal_notifyFileCreation(const NotifyFileCreationArg &)), "notifyFileCreation",
            vela::NotifyFileCreationArg(), "zel::vela::NotifyFileCreationArg"_s);
        row(SIGNAL(signal_notifyUserThumbnail(const NotifyUserThumbnailArg &)), "notifyUserThumbnail",
            vela::NotifyUserThumbnailArg(), "zel::vela::NotifyUserThumbnailArg"_s);
        row(SIGNAL(signal_notifyRecentFileStateChanged(const QVector<zel::vela::CloudItem> &)),
            "notifyFileStateList", vela::NotifyFileStateListArg(), "QVector<zel::vela::CloudItem>"_s);
        vela::NotifyMsgListArg messages;
        messages.newMsgList = {"7", "ä"};
        row(SIGNAL(signal_notifyNewMsgList(const QStringList &)), "notifyMsgList", messages, "7,ä"_s);
        vela::NotifyActionsMapArg actions;
        actions.actionsMap = {{"GetRadarMsg", "{}"}, {"empty", ""}};
        row(SIGNAL(signal_notifyActionsMapForReadMessage(const QMap<QString, QString> &)), "notifyActionsMap",
            actions, "GetRadarMsg={},empty="_s);
        auto discussion = filled(
            &vela::NotifyShareDiscussionArg::action, "reply", &vela::NotifyShareDiscussionArg::fileId, "f");
        discussion.actionsMap = {{"x", "y"}};
        row(SIGNAL(signal_notifyShareDiscussion(const QMap<QString, QString> &)), "notifyShareDiscussion",
            discussion, "action=reply,content=,discussionId=,fileId=f,groupId=,x=y"_s);
        auto membership = filled(&vela::NotifyUserGenericInfoArg::infoKey, "vipInfo");
        membership.info = {{"vipType", "super"}};
        row(SIGNAL(signal_vipInfoChanged(const QVariant &)), "notifyUserGenericInfo", membership,
            "vipType=super"_s);
    }
    // The signals are looked up by their texts, as those do that know no record.
    void pushes()
    {
        const auto [signal, frame, argument] = zeltest::row<QByteArray, QByteArray, QString>();
        Fixture f;
        QVERIFY(f.connectNow());
        QSignalSpy spy(f.proxy->velaEventObject(), signal.constData());
        QVERIFY(spy.isValid());
        QSignalSpy other(f.proxy->velaEventObject(), &KVelaEventObject::signal_pushArrived);
        f.service->send(frame);
        QVERIFY(spy.wait(Fixture::Patience));
        QCOMPARE(spy.first().size(), argument.isNull() ? 0 : 1);
        if (!argument.isNull()) {
            const QVariant value = spy.first().first();
            QCOMPARE(
                textOf(value.userType() == QMetaType::QVariant ? value.value<QVariant>() : value), argument);
        }
        QCOMPARE(other.size(), 0);
    }

    void otherPushes()
    {
        Fixture f;
        QVERIFY(f.connectNow());
        QSignalSpy spy(f.proxy->velaEventObject(), &KVelaEventObject::signal_pushArrived);
        QTest::ignoreMessage(QtInfoMsg, QRegularExpression("tells notifyWhatever, "_s));
        for (int i = 0; i < 2; ++i) // logged once
            f.service->push("notifyWhatever", vela::NotifyActionArg());
        const auto transfer = filled(&vela::NotifyFileTransferArg::taskId, "t1");
        f.service->push("notifyFileTransfer", transfer);
        QVERIFY(spy.wait(Fixture::Patience));
        QCOMPARE(spy.first().first().toString(), "notifyFileTransfer"_s);
        QCOMPARE(spy.first().last().value<QVariant>().value<vela::NotifyFileTransferArg>(), transfer);
        QVERIFY(f.proxy->isConnected());

        QSignalSpy lost(f.proxy->velaEventObject(), &KVelaEventObject::SocketDisConnected);
        QByteArray damaged = wire::pushFrame("notifyFileTransfer", transfer);
        damaged.chop(2);
        damaged[3] = char(damaged.size() - 4);
        damaged[2] = char((damaged.size() - 4) >> 8);
        f.service->send(damaged);
        QVERIFY(lost.wait(Fixture::Patience));
        QCOMPARE(spy.size(), 1);
    }

    void actionsForWindows()
    {
        Fixture f;
        Windows first;
        Windows second;
        auto gone = std::make_unique<Windows>();
        f.proxy->addClientProxy(gone.get());
        f.proxy->addClientProxy(&first);
        f.proxy->addClientProxy(&first); // once
        f.proxy->addClientProxy(&second);
        gone.reset();
        QVERIFY(f.connectNow());
        auto action = filled(&vela::NotifyActionArg::targetWindow, "mainbox");
        action.params["url"] = "https://example.org/";
        for (const char *name : {"activateWindow", "addBrowserPage", "addPlumePage", "other"}) {
            action.action = name;
            f.service->push("notifyAction", action);
        }
        const QStringList all = {
            "activate mainbox"_s, "browser https://example.org/"_s, "plume https://example.org/"_s};
        QTRY_COMPARE(second.wishes, all);
        QCOMPARE(first.wishes, all);
        first.answer = true;
        f.service->push("notifyAction", action); // one that nobody knows
        action.action = "activateWindow";
        f.service->push("notifyAction", action);
        QTRY_COMPARE(first.wishes.size(), 4);
        QCOMPARE(second.wishes, all);
    }

    void login()
    {
        Fixture f;
        KVelaIpcLoginCache login;
        KCompanyInfoCache company;
        KRpcResponse response;
        QVERIFY(!f.proxy->getUserLoginInfo(&login) && !f.proxy->getLastUserLoginInfo(&login));
        QVERIFY(!f.proxy->getUserCompanyInfo(&company) && !f.proxy->getLoginInfoIpcRes(&response));
        QVERIFY(!f.proxy->isLogined() && !f.proxy->isVip(VipType::Normal)
            && f.proxy->getLoginInfoMap().isEmpty());
        QVERIFY(!KVelaUtil::canQueryDesktopSyncState());

        f.service->login = {{"userId", "u1"}, {"nickName", "Ann"}, {"loginStatus", "2"}, {"vipType", "super"},
            {"companyId", "c"}, {"companyName", "Corp"}};
        QVERIFY(f.connectNow());
        QVERIFY(f.proxy->getUserLoginInfo(&login));
        QCOMPARE(login, (KVelaIpcLoginCache{2, "u1"_s, "Ann"_s, {}, "super"_s}));
        QVERIFY(f.proxy->isLogined() && f.proxy->isVip(VipType::Super) && !f.proxy->isVip(VipType::Plume));
        QVERIFY(f.proxy->getUserCompanyInfo(&company) && company.companyName == "Corp"_s);
        QVERIFY(f.proxy->getLoginInfoIpcRes(&response) && response.map() == f.proxy->getLoginInfoMap());
        QCOMPARE(f.proxy->queryLoginInfo("nickName"_s), "Ann"_s);
        QVERIFY(KVelaUtil::canQueryDesktopSyncState());

        f.service->login = {{"loginStatus", "0"}};
        QSignalSpy changed(f.proxy.get(), &KCloudSvrProxy::loginStatusChanged);
        f.service->hangUp();
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, Fixture::Patience); // asked again after the reconnect
        QVERIFY(!f.proxy->isLogined() && !f.proxy->isVip(VipType::Super));
        QVERIFY(!KVelaUtil::canQueryDesktopSyncState());
        QVERIFY(f.proxy->getLastUserLoginInfo(&login));
        QCOMPARE(login.userId, "u1"_s);
    }

    void loginPushes_data()
    {
        // key: empty: notifyUserInfo
        const auto row = zeltest::table<QString, bool, bool, int>("key", "self", "newName", "told");
        row("login status, nothing new", "loginStatus", true, false, 1);
        row("the user's name", "", true, true, 1);
        row("another user", "", false, true, 0);
        row("membership, nothing new", "vipInfo", true, false, 0);
        row("membership, with a new name", "vipInfo", true, true, 1);
        row("other information", "hobbies", true, true, 0);
    }
    void loginPushes()
    {
        const auto [key, self, newName, told] = zeltest::row<QString, bool, bool, int>();
        Fixture f;
        f.service->login = {{"userId", "u1"}, {"nickName", "Ann"}, {"loginStatus", "1"}};
        QVERIFY(f.connectNow());
        QSignalSpy changed(f.proxy.get(), &KCloudSvrProxy::loginStatusChanged);
        if (newName)
            f.service->login["nickName"] = "Bea";
        if (key.isEmpty()) {
            f.service->push("notifyUserInfo", filled(&vela::NotifyUserInfoArg::isSelf, self));
        } else {
            f.service->push(
                "notifyUserGenericInfo", filled(&vela::NotifyUserGenericInfoArg::infoKey, key.toStdString()));
        }
        if (told)
            QVERIFY(changed.wait(Fixture::Patience));
        else
            QVERIFY(!changed.wait(50));
        QCOMPARE(changed.size(), told);
        QCOMPARE(f.proxy->queryLoginInfo("nickName"_s), told && newName ? "Bea"_s : "Ann"_s);
    }

    void signsInAndOut()
    {
        Fixture f;
        f.service->login = {{"loginStatus", "0"}};
        QVERIFY(f.connectNow());
        QVector<QStringList> texts;
        vela::LogoutArg out;
        vela::ZelBoxAsynCommandLineArg line;
        f.service->serve = [&](const FakeService::Head &head, FakeService::Reader &reader) {
            QStringList list;
            if (head.method == "logout") {
                QVERIFY(reader.readRequest(out));
                f.service->login = {{"loginStatus", "0"}};
                return f.service->reply(head, zel::vela::VelaIpcResult());
            }
            if (head.method == "zelBoxAsynCommandLine") {
                QVERIFY(reader.readRequest(line));
                return;
            }
            QVERIFY(reader.readRequestList(list));
            texts.append(list);
            f.service->login = {{"userId", "u"}, {"loginStatus", "2"}};
            f.service->reply(head, zel::vela::VelaIpcResult());
        };
        f.proxy->login(AdType::Server, "ann"_s, "secret"_s);
        QTRY_VERIFY(f.proxy->isLogined());
        f.proxy->logout("by hand"_s);
        QTRY_VERIFY(!f.proxy->isLogined());
        QCOMPARE(QByteArray::fromStdString(out.reason), QByteArray("by hand"));
        f.proxy->loginEx("ticket7"_s);
        QTRY_VERIFY(f.proxy->isLogined());
        f.proxy->openAutoLoginUrl("https://example.org/"_s);
        f.proxy->cmdNotify("/GetRadarMsg=x"_s);
        QTRY_COMPARE(QByteArray::fromStdString(line.commandline), QByteArray("/GetRadarMsg=x"));
        const QVector<QStringList> expected = {{"server"_s, "ann"_s, "secret"_s},
            {"ticket"_s, QString(), "ticket7"_s}, {"https://example.org/"_s}};
        QCOMPARE(texts, expected);
    }

private:
    // A text that compares: what a signal's one argument holds.
    static QString textOf(const QVariant &value)
    {
        QStringList texts;
        if (value.userType() == QMetaType::QVariantMap) {
            const QVariantMap map = value.toMap();
            for (auto it = map.begin(); it != map.end(); ++it)
                texts.append(it.key() + QLatin1Char('=') + it.value().toString());
        } else if (value.userType() == qMetaTypeId<QMap<QString, QString>>()) {
            const auto map = value.value<QMap<QString, QString>>();
            for (auto it = map.begin(); it != map.end(); ++it)
                texts.append(it.key() + QLatin1Char('=') + it.value());
        } else if (value.userType() == QMetaType::QStringList) {
            texts = value.toStringList();
        } else {
            return QString::fromLatin1(value.typeName());
        }
        return texts.join(QLatin1Char(','));
    }
    class Windows final : public KClientSvrProxy
    {
    public:
        bool addBrowserPage(const QString &url) override { return take("browser "_s + url); }
        bool activateWindow(const QString &window) override { return take("activate "_s + window); }
        bool addPlumePage(const QString &url) override { return take("plume "_s + url); }
        bool take(const QString &wish)
        {
            wishes.append(wish);
            return answer;
        }
        QStringList wishes;
        bool answer = false;
    };
};

QTEST_GUILESS_MAIN(TestPushes)
#include "tst_pushes.moc"
