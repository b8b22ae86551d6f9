#include "cloud/wire/rowcodec.h"
#include "message_types.h"
#include "notify_types.h"
#include "service/methods/clouddocuments.h"
#include "service/servicefixture.h"

using namespace zel;
using namespace zel::vela;

/// The whole service at a real socket, and two clients: one tells what another device did.
class TestRoamingMessages final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void init()
    {
        m_device.reset();
        m_box.reset();
        m_fixture = std::make_unique<ServiceFixture>([this](service::CloudService &service) {
            const service::CloudDocuments::Places places{
                m_fixture->folder() + "/Drive"_s, m_fixture->folder() + "/drive.db"_s};
            auto documents =
                std::make_shared<service::CloudDocuments>(places, service.database(), service.methods(),
                    service.server(), service.hooks(), nullptr, [&service] { return service.identity(); });
            m_documents = documents;
            return documents;
        });
        m_fixture->restart();
        m_device = m_fixture->client();
        m_box = m_fixture->client();
        m_time = 1000;
    }

    void counts_data()
    {
        // steps: uses as device:operation, or what the box does
        const auto row = zeltest::table<QString, QString>("steps", "counts");
        row("used here", "here:open", "0/0/0");
        row("new elsewhere", "far:open", "1/0/1");
        row("changed elsewhere", "here:open far:save", "0/1/1");
        row("only opened elsewhere", "here:open far:open", "0/0/0");
        row("new stays new, one message an event", "far:open far:save", "2/0/1");
        row("then opened here", "far:open far:save here:open", "0/0/0");
        row("opened here in the same request", "far:open+here:open", "0/0/0");
        row("seen", "far:open read", "0/0/0");
        row("unread again: the newest", "far:open far:save read unread", "1/0/1");
        row("told twice", "here:open far:save again", "0/1/1");
        row("told again after it was seen", "far:save read again", "0/0/0");
        row("taken off", "far:open remove", "0/0/0");
        row("taken off by envelope", "far:open envelope", "0/0/0");
        row("list emptied", "far:open removeAll", "0/0/0");
        row("its file gone", "far:open gone", "0/0/0");
        row("and back", "far:open gone back", "1/0/1");
        row("file of the other device only", "far:open:local", "1/0/0");
        row("that one seen", "far:open:local readAll", "0/0/0");
    }

    void counts()
    {
        const auto [steps, counts] = zeltest::row<QString, QString>();
        for (const QString &step : steps.split(QLatin1Char(' ')))
            perform(step);
        QCOMPARE(countsNow(), counts);
        m_box.reset();
        m_device.reset();
        m_fixture->restart();
        m_box = m_fixture->client();
        QCOMPARE(countsNow(), counts);
        if (steps.contains("local"_s))
            return;
        const auto list = m_box->call<GetRecentFilesResult>("getRecentFiles", GetRecentFilesArg());
        QCOMPARE(QString::number(list->unreadCount), counts.section(QLatin1Char('/'), 2));
        QCOMPARE(list->extraParam.at("deviceId"), m_fixture->service().identity().deviceId.toStdString());
    }

    void toldToEverybody()
    {
        const auto added = add({{"far", "open"}, {"far", "save"}});
        const auto list = m_box->waitForPush<NotifyMsgListArg>("notifyMsgList");
        QCOMPARE(list->newMessages.size(), size_t(2));
        const NewMessageItem &message = list->newMessages.at(0);
        QCOMPARE(message.topic, std::string("zel.roaming"));
        QCOMPARE(message.type, std::string("roaming_create"));
        QCOMPARE(message.fileName, std::string("x.odt"));
        QCOMPARE(message.deviceName, std::string("far"));
        QCOMPARE(message.extraParam.at("roamingId"), added.items.at(0).roamingId);
        QVERIFY(!message.bRead && !message.trayRead && !message.recentRead);
        for (bool told = false; !told;) {
            const auto push = m_box->waitForPush<NotifyActionsMapArg>("notifyActionsMap");
            QVERIFY(push);
            told = push->actionsMap.count("NewRoamingMsgArrive") > 0;
        }
        SetCloudItemReadArg read;
        read.roamingIds = {added.items.at(0).roamingId};
        m_box->call<SetCloudItemReadResult>("setCloudItemRead", read);
        const auto marked = m_device->waitForPush<NotifyMsgStatusChangedArg>("notifyMsgStatusChanged");
        QCOMPARE(marked->items.size(), size_t(2));
        QVERIFY(marked->items.at(0).recentRead && marked->items.at(0).bRead);
        QCOMPARE(marked->unreadCount, 0);
    }

    // Without the rest of the service, so that a few are many.
    void keepsTheNewest()
    {
        sqlite::Database &database = m_fixture->service().database().connection();
        service::RoamingMessages messages(database, 3);
        service::RoamingChange change;
        change.arrived.resize(2);
        for (const char *version : {"1", "2", "3"}) {
            for (RecentFileItem &item : change.arrived) {
                item.roamingId = "r";
                item.opv = version;
            }
            sqlite::Transaction transaction(database);
            messages.follow(change);
            QVERIFY(transaction.commit());
        }
        QCOMPARE(database.number("SELECT count(*) FROM metadata_zelbox_filemessage"), qint64(3));
        QCOMPARE(messages.take().stored.size(), 2);
        QVERIFY(messages.take().isEmpty());
    }

private:
    struct Use
    {
        const char *device;
        const char *operation;
        const char *fileId = "7";
    };
    AddRoamingRecordResult add(const std::vector<Use> &uses)
    {
        AddRoamingRecordArg request;
        for (const Use &use : uses) {
            FileRecordItem event;
            event.path = "/x.odt";
            event.fileId = use.fileId;
            event.deviceId = use.device;
            event.deviceName = use.device;
            event.operation = use.operation;
            event.actionTime = ++m_time;
            request.records.push_back(event);
        }
        m_last = request;
        return *m_device->call<AddRoamingRecordResult>("addRoamingRecord", request);
    }

    void perform(const QString &step)
    {
        SetCloudItemReadArg read;
        read.items.resize(1);
        read.items[0].id = "7";
        read.unread = step == "unread"_s;
        read.allItems = step == "readAll"_s;
        DelRoamingRecordArg remove;
        remove.fileIds = {"7"};
        remove.allRecords = step == "removeAll"_s;
        auto envelope =
            filled(&VelaIpcArg::nameSpace, "KVelaIpcCallObj", &VelaIpcArg::method, "delRoamingFileRecord");
        envelope.argMap["fileIds"] = "5|7";
        if (step.startsWith("remove"_s)) {
            QVERIFY(m_box->call<DelRoamingRecordResult>("delRoamingRecord", remove)->removedCount > 0);
        } else if (step == "envelope"_s) {
            const auto answer = m_box->call<VelaIpcResult>("velaIpcCall", envelope);
            QCOMPARE(answer->resultMap.at("removedCount"), std::string("1"));
            QCOMPARE(answer->resultList.size(), size_t(1));
        } else if (step == "gone"_s || step == "back"_s) {
            m_documents.lock()->roaming().markFiles({"7"_s}, step == "gone"_s);
        } else if (step == "again"_s) {
            QCOMPARE(m_device->call<AddRoamingRecordResult>("addRoamingRecord", m_last)->state, 0);
        } else if (step.contains("ead"_s)) {
            QCOMPARE(m_box->call<SetCloudItemReadResult>("setCloudItemRead", read)->state, 0);
        } else {
            std::vector<QByteArray> words;
            std::vector<Use> uses;
            for (const QString &use : step.split(QLatin1Char('+')))
                for (int part = 0; part < 3; ++part)
                    words.push_back(use.section(QLatin1Char(':'), part, part).toUtf8());
            for (size_t i = 0; i < words.size(); i += 3)
                uses.push_back({words[i] == "here" ? "" : words[i].constData(), words[i + 1].constData(),
                    words[i + 2] == "local" ? "" : "7"});
            QCOMPARE(add(uses).state, 0);
        }
    }

    QString ask(const char *statement, const char *guid)
    {
        ZelBoxAsynCommandLineArg request;
        request.commandline =
            "/GetStoredMsg=" + QByteArray(statement).toBase64().toStdString() + " /TaskGuid=" + guid;
        m_box->call<ZelBoxAsynCommandLineResult>("zelBoxAsynCommandLine", request);
        for (;;) {
            const auto push = m_box->waitForPush<NotifyActionsMapArg>("notifyActionsMap");
            if (!push)
                return "no reply"_s;
            const auto reply = push->actionsMap.find(guid);
            if (reply == push->actionsMap.end())
                continue;
            const auto values = QJsonDocument::fromJson(QByteArray::fromStdString(reply->second)).object();
            return values.value("commandline"_s).toString();
        }
    }

    // "<messages of new documents>/<of changed ones>/<documents that the recent tab counts>"
    QString countsNow()
    {
        const auto messages = [this](const char *statement, const char *guid) {
            int count = 0;
            const auto rows = wire::splitRows(ask(statement, guid));
            for (const QStringList &row : rows)
                count += row.value(1).toInt();
            return QString::number(count);
        };
        const QString created =
            messages("select fileId,count(*),max(time),* from metadata_zelbox_filemessage where"
                     " read = 0 and type = 'roaming_create' group by fileId Order by time Desc",
                "GetRoamingCreateMsg");
        const QString updated =
            messages("select fileId,count(*),max(time),* from metadata_zelbox_filemessage where"
                     " read = 0 and type = 'roaming_update' group by fileId Order by time Desc",
                "GetRoamingUpdateMsg");
        const QString tab =
            ask("select count(distinct fileId) as 'count(*)' from metadata_zelbox_filemessage where"
                " recentRead = 0 and topic = 'zel.roaming' and fileId != ''",
                "GetRoamingTabUnread");
        return created + QLatin1Char('/') + updated + QLatin1Char('/') + tab;
    }

    std::unique_ptr<ServiceFixture> m_fixture;
    std::weak_ptr<service::CloudDocuments> m_documents;
    std::unique_ptr<WireClient> m_device;
    std::unique_ptr<WireClient> m_box;
    qint64 m_time = 0;
    AddRoamingRecordArg m_last;
};

QTEST_GUILESS_MAIN(TestRoamingMessages)
#include "tst_roamingmessages.moc"
