#include "message_types.h"
#include "notify_types.h"
#include "service/servicefixture.h"

using namespace zel;
using namespace zel::vela;

Q_DECLARE_METATYPE(std::vector<std::string>)
using Wish = std::function<void(zel::vela::GetMsgListArg &)>;
Q_DECLARE_METATYPE(Wish)

class TestMessages : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void init()
    {
        m_client.reset();
        m_fixture = std::make_unique<ServiceFixture>();
        m_client = m_fixture->client();
        QCOMPARE(command(*m_client).first, std::string("MessageDbLoadFinish"));
    }

    void storedMessageComesBackWhole()
    {
        const NewMessageItem item = fullMessage();
        QCOMPARE(store(item).state, 0);
        m_fixture->restart();
        m_client = m_fixture->client();
        const auto list =
            m_client->call<GetUnreadNewMsgListResult>("getUnreadNewMsgList", GetUnreadNewMsgListArg());
        QCOMPARE(list->messages.size(), size_t(1));
        QVERIFY(list->messages[0] == item);
    }

    void tellsOfANewMessage()
    {
        const auto other = m_fixture->client();
        QCOMPARE(command(*other).first, std::string("MessageDbLoadFinish"));
        const auto stored = store(message("", "zel.file", 0, "A", "ann"));
        QCOMPARE(stored.messageId.size(), size_t(36));
        QVERIFY(stored.time > 1600000000000);
        QCOMPARE(stored.unreadCount, 1);
        QCOMPARE(command(*other).first, std::string("NewMsgArrive"));
        const auto list = other->waitForPush<NotifyMsgListArg>("notifyMsgList");
        QCOMPARE(list->newMsgList, Ids{stored.messageId});
        QCOMPARE(list->messages.at(0).id, stored.messageId);
        QCOMPARE(list->unreadCount, 1);
    }

    void knownMessage()
    {
        NewMessageItem item = fullMessage();
        store(item);
        item.msgContent.title = "changed";
        QCOMPARE(store(item).errorInfo.errResult, std::string("exists"));
        const auto replaced = store(item, true);
        QVERIFY(replaced.replaced);
        QCOMPARE(replaced.unreadCount, 1);
        item.msgContent.content.assign(100000, 'x'); // would leave no room for others in a list
        QCOMPARE(store(item, true).errorInfo.errResult, std::string("tooLarge"));
        const auto list = m_client->call<GetMsgListResult>("getMsgList", GetMsgListArg());
        QCOMPARE(list->total, 1);
        QCOMPARE(list->messages.at(0).msgContent.title, std::string("changed"));
    }

    void lists_data()
    {
        const auto row = zeltest::table<Ids, int, int, Wish>("ids", "total", "unread", "wish");
        row("all", {"5", "4", "3", "2", "1"}, 5, 4, [](auto &) {});
        row("category", {"5"}, 1, 1, [](auto &r) { r.category = "team"; });
        row("topics", {"3", "2"}, 2, 2, [](auto &r) { r.topics = {"zel.link", "zel.roaming"}; });
        row("types", {}, 0, 0, [](auto &r) { r.types = {"other"}; });
        row("document", {"2", "1"}, 2, 2, [](auto &r) { r.fileId = "A"; });
        row("person", {"4", "2"}, 2, 1, [](auto &r) { r.operatorId = "bob"; });
        row("unread", {"5", "3", "2", "1"}, 4, 4, [](auto &r) { r.unreadOnly = true; });
        row("times", {"4", "3", "2"}, 3, 2, [](auto &r) { r.sinceTime = 20, r.untilTime = 40; });
        row("part", {"4", "3"}, 5, 4, [](auto &r) { r.offset = 1, r.count = 2; });
        row("quotes", {}, 0, 0, [](auto &r) { r.fileId = "A' OR '1'='1"; });
    }

    void lists()
    {
        fill();
        QFETCH(Wish, wish);
        GetMsgListArg request;
        wish(request);
        const auto list = m_client->call<GetMsgListResult>("getMsgList", request);
        QTEST(idsOf(list->messages), "ids");
        QTEST(int(list->total), "total");
        QTEST(int(list->unreadCount), "unread");
    }

    void unreadInParts()
    {
        fill();
        store(message("6", "zel.file", 50, "A", "ann")); // the same time as another one
        auto request = filled(&GetUnreadNewMsgListArg::count, 2);
        Ids all;
        for (int part = 0; part < 10; ++part) {
            const auto list = m_client->call<GetUnreadNewMsgListResult>("getUnreadNewMsgList", request);
            QCOMPARE(list->unreadCount, 5);
            for (const std::string &id : idsOf(list->messages))
                all.push_back(id);
            if (!list->hasMore)
                break;
            QCOMPARE(list->messages.size(), size_t(2));
            request.cursor = list->nextCursor;
        }
        QCOMPARE(all, (Ids{"5", "6", "3", "2", "1"}));
        request = {};
        request.latestPerFile = true;
        const auto latest = m_client->call<GetUnreadNewMsgListResult>("getUnreadNewMsgList", request);
        QCOMPARE(idsOf(latest->messages), (Ids{"5", "6", "3"}));
        const auto rest = m_client->call<GetUnreadMsgListResult>(
            "getUnreadMsgList", filled(&GetUnreadMsgListArg::offset, 3));
        QCOMPARE(idsOf(rest->messages), (Ids{"2", "1"}));
        QCOMPARE(rest->total, 5);
    }

    void unreadCounts()
    {
        fill();
        auto request = filled(&GetUnreadMsgCountArg::groupBy, 1);
        request.ids = {"A", "C", "unknown"};
        const auto byFile = m_client->call<GetUnreadMsgCountResult>("getUnreadMsgCount", request);
        QCOMPARE(idsOf(byFile->unreadInfos), request.ids);
        QCOMPARE(byFile->unreadInfos[0].unreadCount, 2);
        QCOMPARE(byFile->unreadInfos[0].latestMessageId, std::string("2"));
        QCOMPARE(byFile->unreadInfos[1].unreadCount, 0);
        QCOMPARE(byFile->unreadCount, 2);
        request = {};
        request.place = 1; // what was read in the pages is unread in the tray
        QCOMPARE(m_client->call<GetUnreadMsgCountResult>("getUnreadMsgCount", request)->unreadCount, 5);
        request.groupBy = 3;
        QCOMPARE(m_client->call<GetUnreadMsgCountResult>("getUnreadMsgCount", request)->errorInfo.errResult,
            std::string("invalidArgument"));
    }

    void marksRead()
    {
        fill();
        MarkMsgReadArg request;
        request.messageIds = {"1", "4", "unknown"};
        QCOMPARE(m_client->call<MarkMsgReadResult>("markMsgRead", request)->errorInfo.errResult,
            std::string("invalidArgument"));
        request.inPages = true;
        const auto marked = m_client->call<MarkMsgReadResult>("markMsgRead", request);
        QCOMPARE(idsOf(marked->items), Ids{"1"});
        QVERIFY(marked->items[0].bRead && !marked->items[0].trayRead);
        QCOMPARE(marked->failedItems.size(), size_t(1));
        QCOMPARE(marked->unreadCount, 3);
        const auto told = m_client->waitForPush<NotifyMsgStatusChangedArg>("notifyMsgStatusChanged");
        QVERIFY(told->items == marked->items);
        request = {};
        request.fileId = "A";
        request.untilTime = 15;
        request.inTray = true;
        QCOMPARE(idsOf(m_client->call<MarkMsgReadResult>("markMsgRead", request)->items), Ids{"1"});
    }

    void deletes()
    {
        fill();
        QCOMPARE(m_client->call<DeleteMsgResult>("deleteMsg", DeleteMsgArg())->errorInfo.errResult,
            std::string("invalidArgument"));
        auto request = filled(&DeleteMsgArg::fileId, "A");
        const auto deleted = m_client->call<DeleteMsgResult>("deleteMsg", request);
        QCOMPARE(deleted->messageIds.size(), size_t(2));
        QCOMPARE(deleted->unreadCount, 2);
        const auto told = m_client->waitForPush<NotifyMsgStatusChangedArg>("notifyMsgStatusChanged");
        QCOMPARE(told->items.size(), size_t(2));
        QVERIFY(told->items[0].deleted);
        request = {};
        request.messageIds = {"1"};
        QCOMPARE(m_client->call<DeleteMsgResult>("deleteMsg", request)->failedItems.size(), size_t(1));
    }

    void waitsForUpdate()
    {
        NewMessageItem item = fullMessage();
        store(item);
        auto request =
            filled(&VelaIpcArg::nameSpace, "KVelaIpcCallObj", &VelaIpcArg::method, "setMsgWaitForUpdate");
        for (const bool waits : {false, true}) {
            request.argMap = {{"msgId", "full"}, {"waitForUpdate", waits ? "true" : "false"}};
            QCOMPARE(m_client->call<VelaIpcResult>("velaIpcCall", request)->state, 0);
            const auto list =
                m_client->call<GetUnreadNewMsgListResult>("getUnreadNewMsgList", GetUnreadNewMsgListArg());
            item.waitForUpdate = waits;
            QVERIFY(list->messages.at(0) == item);
        }
    }

    void commandLines()
    {
        const auto other = m_fixture->client();
        QCOMPARE(command(*other).first, std::string("MessageDbLoadFinish"));
        const auto run = [this](const QString &line) {
            return m_client
                ->call<ZelBoxAsynCommandLineResult>("zelBoxAsynCommandLine",
                    filled(&ZelBoxAsynCommandLineArg::commandline, line.toStdString()))
                ->state;
        };
        QCOMPARE(run("/noSuchCommand=1"_s), int(wire::ServiceError::InvalidArgument));
        QCOMPARE(run(commandLine("GetRadarMsg", "select * from metadata_zelbox_fileradar Order by Time Desc",
                     "GetUnreadRadarMsg")),
            0);
        const auto rows = command(*m_client);
        QCOMPARE(rows.first, std::string("GetRadarMsg"));
        QVERIFY2(rows.second.find(R"("guid":"GetUnreadRadarMsg")") != std::string::npos, rows.second.c_str());
        QCOMPARE(run(commandLine("GetRadarMsg", "delete from metadata_zelbox_filemessage", "x")), 0);
        QVERIFY(command(*m_client).second.find("failed") != std::string::npos);
        QCOMPARE(run("/closeRadarSwitch /type=1"_s), 0);
        // Replies reached their asker only, so this is the first that the other one hears.
        const auto switched = command(*other);
        QCOMPARE(switched.first, std::string("QQRadarSettingChange"));
        QCOMPARE(switched.second, std::string(R"({"setting":"false"})"));
    }

private:
    using Ids = std::vector<std::string>;
    static NewMessageItem message(
        const char *id, const char *topic, qint64 time, const char *file, const char *person)
    {
        NewMessageItem item;
        item.messageId = id;
        item.category = "document";
        item.topic = topic;
        item.type = "shared";
        item.time = time;
        item.fileId = file;
        item.operatorId = person;
        return item;
    }
    static NewMessageItem fullMessage()
    {
        NewMessageItem item = message("full", "zel.link", 1700000000123, "file", "person");
        item.fileName = "Notes $$$$ #### 'x'.odt";
        item.filePath = "/home/user/Notes.odt";
        item.groupId = "group";
        item.groupName = "Group";
        item.parentId = "parent";
        item.companyId = "company";
        item.linkSid = "link";
        item.operatorName = "Jürgen 山田";
        item.operatorAvatar = "https://example.org/p.png";
        item.deviceId = "device";
        item.deviceName = "desk";
        item.fileVersion = 9007199254740993;
        item.waitForUpdate = true;
        item.msgContent.title = "title";
        item.msgContent.content = "line\nline";
        item.msgContent.summary = "summary";
        item.msgContent.url = "https://example.org/";
        item.msgContent.iconUrl = "icon";
        item.msgContent.ext = R"({"a": [1]})";
        item.msgContent.buttons.resize(2);
        item.msgContent.buttons[0].text = "Open";
        item.msgContent.buttons[0].action = "openFile";
        item.msgContent.buttons[0].target = "file";
        item.msgContent.buttons[0].primary = true;
        item.extraParam = {{"", "empty key"}, {"key", ""}};
        return item;
    }
    template <class Items> static Ids idsOf(const Items &items)
    {
        Ids ids;
        for (const auto &item : items) {
            if constexpr (requires { item.messageId; })
                ids.push_back(item.messageId);
            else
                ids.push_back(item.id);
        }
        return ids;
    }
    static QString commandLine(const char *command, const char *statement, const char *guid)
    {
        return "/%1=%2 /TaskGuid=%3"_s.arg(QLatin1String(command),
            QString::fromLatin1(QByteArray(statement).toBase64()), QLatin1String(guid));
    }

    StoreZelBoxMessageResult store(const NewMessageItem &item, bool replace = false)
    {
        return m_client
            ->call<StoreZelBoxMessageResult>("storeZelBoxMessage",
                filled(
                    &StoreZelBoxMessageArg::message, item, &StoreZelBoxMessageArg::replaceExisting, replace))
            .value_or(StoreZelBoxMessageResult());
    }

    void fill()
    {
        store(message("1", "zel.file", 10, "A", "ann"));
        store(message("2", "zel.link", 20, "A", "bob"));
        store(message("3", "zel.roaming", 30, "B", "ann"));
        NewMessageItem read = message("4", "zel.file", 40, "C", "bob");
        read.bRead = true;
        store(read);
        NewMessageItem team = message("5", "zel.file", 50, "", "ann");
        team.category = "team";
        store(team);
    }

    /// The next command pushed to `client`: name and JSON.
    std::pair<std::string, std::string> command(WireClient &client)
    {
        const auto push = client.waitForPush<NotifyActionsMapArg>("notifyActionsMap");
        return push && push->actionsMap.size() == 1 ? *push->actionsMap.begin()
                                                    : std::pair<const std::string, std::string>();
    }

    std::unique_ptr<ServiceFixture> m_fixture;
    std::unique_ptr<WireClient> m_client;
};

QTEST_GUILESS_MAIN(TestMessages)
#include "tst_messages.moc"
