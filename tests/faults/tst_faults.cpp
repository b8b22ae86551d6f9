#include "faultcontrol.h"
#include "kcloudsvrproxy.h"
#include "support/serviceprocess.h"
#include "support/wireclient.h"

#include "cloud/wire/serviceerror.h"
#include "document_types.h"
#include "drive_types.h"
#include "message_types.h"
#include "notify_types.h"
#include "transfer_types.h"

using namespace zel::vela;
using zel::wire::ServiceError;

namespace {

constexpr int Patience = 60000;

StoreZelBoxMessageArg message(const std::string &id)
{
    auto arg = filled(&StoreZelBoxMessageArg::category, "share");
    arg.message.messageId = id;
    arg.message.topic = "zel.file";
    arg.message.fileId = "f1";
    arg.message.time = 1700000000000;
    arg.message.msgContent.content = std::string(2000, 'x');
    return arg;
}

} // namespace

/// Sends envelopes and counts how each of them ended.
class Asker final : public QObject
{
    Q_OBJECT
public:
    explicit Asker(KCloudSvrProxy &proxy) : m_proxy(proxy) { }

    void ask(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_asked.insert(m_proxy.asynCallEx("velaIpcCall"_s,
                QArgument<VelaIpcArg>("VelaIpcArg",
                    filled(&VelaIpcArg::nameSpace, "KVelaIpcCallObj", &VelaIpcArg::method,
                        "getTransBubbleFrequncy")),
                this, "onAnswer"_s));
        }
    }
    int asked() const { return m_asked.size(); }
    int answered() const { return m_answered; }
    int ended() const { return m_ended.size(); }
    int endedTwice() const { return m_endedTwice; }

Q_SIGNALS:
    void endedOne();

public Q_SLOTS:
    void onAnswer(bool ok, const QString &requestId, const zel::vela::VelaIpcResult &)
    {
        m_answered += ok ? 1 : 0;
        m_endedTwice += m_ended.contains(requestId) || !m_asked.contains(requestId) ? 1 : 0;
        m_ended.insert(requestId);
        Q_EMIT endedOne();
    }

private:
    KCloudSvrProxy &m_proxy;
    QSet<QString> m_asked;
    QSet<QString> m_ended;
    int m_answered = 0;
    int m_endedTwice = 0;
};

class TestFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_service = std::make_unique<ServiceProcess>(); }
    void cleanup() { m_service.reset(); }
    void crashOnARequest_data()
    {
        const auto row = zeltest::table<int>("nth");
        for (int nth : {1, 2, 100, 499})
            row(QString::number(nth), nth);
    }
    void crashOnARequest()
    {
        QFETCH(int, nth);
        QVERIFY(m_service->start());
        KCloudSvrProxy proxy;
        QVERIFY(connectProxy(proxy));
        Asker asker(proxy);
        connect(&asker, &Asker::endedOne, this, [&] {
            if (asker.ended() == nth)
                m_service->kill();
        });
        asker.ask(500);
        QTRY_COMPARE_WITH_TIMEOUT(asker.ended(), 500, Patience);
        QVERIFY(asker.answered() >= nth);
        QCOMPARE(asker.endedTwice(), 0);

        QVERIFY(m_service->start());
        QVERIFY(connectProxy(proxy));
        asker.ask(1);
        QTRY_COMPARE_WITH_TIMEOUT(asker.ended(), 501, Patience);
        QCOMPARE(asker.endedTwice(), 0);
    }

    void tenThousandInFlight()
    {
        QVERIFY(m_service->start());
        KCloudSvrProxy proxy;
        QVERIFY(connectProxy(proxy));
        Asker asker(proxy);
        asker.ask(10000);
        QTRY_COMPARE_WITH_TIMEOUT(asker.ended(), 10000, Patience);
        QCOMPARE(asker.answered(), 10000);
        QCOMPARE(asker.endedTwice(), 0);
    }

    void restartsUnderLoad()
    {
        QVERIFY(m_service->start());
        KCloudSvrProxy proxy;
        QVERIFY(connectProxy(proxy));
        Asker asker(proxy);
        bool asking = true;
        const auto keepAHundredUnderWay = [&] {
            if (asking && proxy.isConnected() && asker.asked() - asker.ended() < 100)
                asker.ask(100 - asker.asked() + asker.ended());
        };
        connect(&asker, &Asker::endedOne, &asker, keepAHundredUnderWay);
        connect(&proxy, &KCloudSvrProxy::velaInited, &asker, keepAHundredUnderWay);
        keepAHundredUnderWay();
        for (int i = 0; i < 3; ++i) {
            const int before = asker.answered();
            QTRY_VERIFY_WITH_TIMEOUT(asker.answered() > before + 500, Patience);
            QVERIFY(asker.asked() > asker.ended());
            m_service->kill();
            QVERIFY(m_service->start());
            QTRY_VERIFY_WITH_TIMEOUT(proxy.isConnected(), Patience);
        }
        asking = false;
        QTRY_COMPARE_WITH_TIMEOUT(asker.ended(), asker.asked(), Patience);
        QCOMPARE(asker.endedTwice(), 0);
    }

    // Killed at any moment, the service still has every message whose storing it has confirmed.
    void nothingAcknowledgedIsLost()
    {
        std::set<std::string> confirmed;
        for (int round = 0; round < 5; ++round) {
            const auto client = startForClient();
            std::map<int32_t, std::string> sent;
            for (int i = 0; i < 200; ++i) {
                const std::string id = std::to_string(round) + "-" + std::to_string(i);
                sent[client->send("storeZelBoxMessage", message(id))] = id;
            }
            QTRY_VERIFY_WITH_TIMEOUT(client->answersWaiting() > size_t(round) * 40, Patience);
            m_service->kill();
            QVERIFY(client->waitForClosed());
            for (const auto &[number, id] : sent) {
                const auto answer = client->answerTo<StoreZelBoxMessageResult>(number);
                if (answer && answer->state == 0)
                    confirmed.insert(id);
            }
        }
        QVERIFY(confirmed.size() > 300);
        QVERIFY(m_service->start());
        const std::set<std::string> kept = storedIds();
        for (const std::string &id : confirmed)
            QVERIFY2(kept.contains(id), id.c_str());
    }

    // And what others make in the drive's folder is told, which begins with the first client too.
    void uploadGoesOnAfterACrash()
    {
        const QString source = m_service->home() + "/large.bin"_s;
        QFile file(source);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(400LL << 20));
        file.close();
        std::string task;
        {
            const auto client = startForClient();
            BatchUploadFilesToCloudArg upload;
            upload.filePaths = {source.toStdString()};
            const auto accepted = client->call<VelaIpcResult>("batchUploadFileListToAnyExistedPath", upload);
            QVERIFY(accepted && accepted->resultList.size() == 1);
            task = accepted->resultList.front();
            m_service->kill();
        }
        const auto client = startForClient();
        TransferInfoListArg list;
        list.taskIds = {task};
        const auto isDone = [&] {
            const auto answer = client->call<TransferInfoListResult>("transferInfoList", list);
            return answer && answer->tasks.size() == 1 && answer->tasks.front().transferState == 4;
        };
        QTRY_VERIFY_WITH_TIMEOUT(isDone(), Patience);
        const QString drive = m_service->home() + "/ZEL Cloud"_s;
        QCOMPARE(QFileInfo(drive + "/large.bin"_s).size(), 400LL << 20);
        const auto names = QDir(drive).entryList(QDir::Files | QDir::Hidden);
        QCOMPARE(names, QStringList{"large.bin"_s});

        QVERIFY(QDir(drive).mkdir("made by another program"_s));
        std::optional<NotifyFileCreationArg> told;
        do
            told = client->waitForPush<NotifyFileCreationArg>("notifyFileCreation");
        while (told && told->item.name != "made by another program");
        QVERIFY(told);
    }

    // A service that was told to end while it flushes shares its work with nobody before it has ended.
    void startsWhileTheOldOneFlushes()
    {
        const QByteArray content(8 << 20, 'c');
        const QString target = m_service->home() + "/target"_s;
        QVERIFY(QDir().mkpath(m_service->home() + "/ZEL Cloud"_s) && QDir().mkpath(target));
        QFile source(m_service->home() + "/ZEL Cloud/large"_s);
        QVERIFY(source.open(QIODevice::WriteOnly) && source.write(content) == content.size());
        source.close();
        if (qEnvironmentVariableIsEmpty("ZEL_FAULT_LAYER"))
            QSKIP("no layer with sanitizers");
        const QStringList layer = faults(target);
        m_faults->takes[FaultControl::Flushes] = 3000;
        m_faults->takes[FaultControl::Writes] = 100; // each of 32
        auto client = startForClient(layer);
        const auto find = filled(&GetFileIdByFilePathArg::filePath, source.fileName().toStdString());
        QVERIFY(client->call<DownloadCloudFileResult>("downloadFileFromCloud",
            filled(&DownloadCloudFileArg::item,
                client->call<GetFileIdByFilePathResult>("getFileIdByFilePath", find)->item,
                &DownloadCloudFileArg::targetPath, target.toStdString() + "/large")));
        const auto parts = [&target](qint64 least) {
            const auto files = QDir(target).entryInfoList({".zel-part-*"_s}, QDir::Files | QDir::Hidden);
            return std::count_if(
                files.begin(), files.end(), [least](const QFileInfo &file) { return file.size() >= least; });
        };
        QTRY_COMPARE_WITH_TIMEOUT(parts(content.size()), 1, Patience);
        m_service->terminate();
        client = startForClient(layer);
        const QString real = target + "/large"_s;
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(real), Patience);
        m_service->kill();
        QCOMPARE(QFileInfo(real).size(), qint64(content.size()));
        client = startForClient();
        QTRY_COMPARE_WITH_TIMEOUT(parts(0), 0, Patience);
    }

    // One file system that does not answer holds up what asks it, and neither the drive nor the end.
    void deadFileSystem()
    {
        const QString dead = m_service->home() + "/dead"_s;
        QVERIFY(QDir().mkpath(dead));
        if (qEnvironmentVariableIsEmpty("ZEL_FAULT_LAYER"))
            QSKIP("no layer with sanitizers");
        const QStringList layer = faults(dead);
        m_faults->takes[FaultControl::Looks] = 60000;
        const auto client = startForClient(layer);
        client->send("uploadFile", filled(&UploadFileArg::filePath, dead.toStdString() + "/a"));
        QElapsedTimer since;
        since.start();
        QVERIFY(client->call<GetInfoListResult>("getInfoList", GetInfoListArg()));
        QVERIFY2(since.elapsed() < 3000, "the drive answers");
        m_service->terminate();
        QVERIFY2(m_service->hasEnded(20000), "and so does its end");
    }

    // A file system of one megabyte, in a namespace of its own so that no right is needed.
    void fullDisk()
    {
        const QStringList small = {"unshare"_s, "--user"_s, "--map-root-user"_s, "--mount"_s, "sh"_s, "-c"_s,
            "mount -t tmpfs -o size=1m none \"$XDG_DATA_HOME\" || exit 77; exec \"$0\" \"$@\""_s};
        QProcess trial;
        trial.start(small.constFirst(), small.mid(1) + QStringList{"true"_s});
        if (!trial.waitForFinished() || trial.exitCode() != 0)
            QSKIP("no namespaces of its own for this user");

        const auto client = startForClient(small);
        std::set<std::string> confirmed;
        std::optional<StoreZelBoxMessageResult> answer;
        for (int i = 0; i < 1000; ++i) {
            const std::string id = std::to_string(i);
            answer = client->call<StoreZelBoxMessageResult>("storeZelBoxMessage", message(id));
            QVERIFY(answer);
            if (answer->state != 0)
                break;
            confirmed.insert(id);
        }
        QCOMPARE(answer->state, int32_t(ServiceError::DiskFull));
        QVERIFY(confirmed.size() > 5);
        const std::set<std::string> kept = storedIds();
        for (const std::string &id : confirmed)
            QVERIFY2(kept.contains(id), id.c_str());
    }

    void damagedDatabase()
    {
        {
            const auto client = startForClient();
            for (int i = 0; i < 20; ++i)
                QVERIFY(
                    client->call<StoreZelBoxMessageResult>("storeZelBoxMessage", message(std::to_string(i))));
        }
        m_service->kill();
        const QString path = m_service->dataFolder() + "/cloud.db"_s;
        for (const char *companion : {"-wal", "-shm"})
            QFile::remove(path + QLatin1String(companion));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite)
            && file.seek(100)); // the first page's tree, behind the file's head
        QCOMPARE(file.write(QByteArray(3000, '\x55')), qint64(3000));
        file.close();

        const auto client = startForClient();
        const auto told = client->waitForPush<NotifyUserGenericInfoArg>("notifyUserGenericInfo");
        QVERIFY(told);
        QCOMPARE(QByteArray::fromStdString(told->infoKey), QByteArray("databaseDamaged"));
        const auto stored = client->call<StoreZelBoxMessageResult>("storeZelBoxMessage", message("new"));
        QVERIFY(stored && stored->state == 0);
        QCOMPARE(storedIds(), std::set<std::string>{"new"});
        const QStringList kept =
            QDir(m_service->dataFolder()).entryList({"cloud.db.damaged-*"_s}, QDir::Files);
        QVERIFY2(!kept.filter(QRegularExpression("\\d$"_s)).isEmpty(), "the damaged file is kept aside");
    }

private:
    bool connectProxy(KCloudSvrProxy &proxy)
    {
        QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
        proxy.startVelaProcess(QString());
        return inited.wait(Patience);
    }
    /// Starts the service, and a client that it welcomes.
    std::unique_ptr<WireClient> startForClient(const QStringList &wrapper = {})
    {
        const bool started = m_service->start(wrapper);
        auto client = std::make_unique<WireClient>(m_service->socketPath());
        if (started && client->isOpen() && client->greet())
            return client;
        m_service.reset(); // it would outlive this process
        qFatal("the service does not welcome a client");
    }
    std::set<std::string> storedIds()
    {
        WireClient client(m_service->socketPath());
        std::set<std::string> ids;
        if (!client.greet())
            return ids;
        auto arg = filled(&GetMsgListArg::count, 1000);
        for (;;) {
            const auto list = client.call<GetMsgListResult>("getMsgList", arg);
            if (!list || list->messages.empty())
                return ids;
            for (const MessageItem &item : list->messages)
                ids.insert(item.id);
            arg.offset += int32_t(list->messages.size());
        }
    }

    /// A wrapper for start(), with which the layer does as m_faults says with what lies below a folder.
    QStringList faults(const QString &folder)
    {
        const QByteArray file = QFile::encodeName(m_service->home()) + "/faults";
        m_faults = openFaultControl(file.constData());
        qstrncpy(m_faults->folder, QFile::encodeName(QFileInfo(folder).canonicalFilePath()).constData(),
            sizeof(m_faults->folder));
        return {"env"_s, "LD_PRELOAD="_s + qEnvironmentVariable("ZEL_FAULT_LAYER"),
            "ZEL_FAULTS="_s + QString::fromUtf8(file)};
    }

    std::unique_ptr<ServiceProcess> m_service;
    FaultControl *m_faults = nullptr;
};

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_faults.moc"
