#include "notify_types.h"
#include "service/methods/envelope/machinefacts.h"
#include "service/servicefixture.h"
#include "support/temptree.h"

using namespace zel;
using namespace zel::vela;
using service::ClientId;

class TestEnvelope : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void init()
    {
        m_client.reset();
        m_fixture = std::make_unique<ServiceFixture>();
        m_client = m_fixture->client();
    }

    void calls_data()
    {
        // steps: method, values, expected result; and so on
        const auto row = zeltest::table<QStringList>("steps");
        const auto words = [](const char *text) { return QString::fromUtf8(text).split(QLatin1Char(' ')); };
        row("bubbles",
            words("getTransBubbleFrequncy  frequency=0 "
                  "setTransBubbleFrequncy userID=;frequency=2 frequency=2 "
                  "setTransBubbleFrequncy frequency=9 invalidArgument "
                  "setTransBubbleFrequncy userID=stranger;frequency=1 notFound "
                  "getTransBubbleFrequncy  frequency=2"));
        row("auto update",
            words("updateAutoUpdateFolders folderList=/b|/c|/b  "
                  "getFolderAutoUpdateType folderList=/a|/b /a=0;/b=1"));
        row("sync folders",
            words("addSyncFolder folderName=/a;callFrom=menu folderName=/a "
                  "addSyncFolder folderName=/a exists "
                  "addSyncFolder folderName=/a|/b invalidArgument "
                  "addSyncFolder  invalidArgument"));
        row("messages",
            words("reloadMessageConfig   "
                  "setMsgWaitForUpdate msgId=7;waitForUpdate=true notFound "
                  "setMsgWaitForUpdate waitForUpdate=true invalidArgument "
                  "setMsgWaitForUpdate msgId=7;waitForUpdate=1 invalidArgument"));
        row("nobody there",
            words("reportCloudDoc file=/a notServed "
                  "reportCloudDoc  invalidArgument "
                  "getCloudDiskEntryVisible  notServed "
                  "setCloudDiskEntryVisible visible=true notServed "
                  "cancelTask taskIDs=1|2 notServed "
                  "cancelTask taskIDs=| invalidArgument "
                  "delRoamingFileRecord fileIds=1 notServed "
                  "delRoamingFileRecord roamingIds=| invalidArgument "
                  "noSuchMethod  notServed"));
    }

    void calls()
    {
        QFETCH(QStringList, steps);
        QCOMPARE(steps.size() % 3, 0);
        QCOMPARE(call("getTransBubbleFrequncy", {}, "KOther"), "invalidArgument"_s);
        for (int i = 0; i < steps.size(); i += 3)
            QCOMPARE(call(qPrintable(steps[i]), steps[i + 1]), steps[i + 2]);
    }

    // What file managers had in their list stays, whoever wrote it and where a link leads.
    void diskEntry_data()
    {
        // kept, old: in GTK's file and in that of its earlier version, empty: not there; later: once it is
        // listed
        const auto row = zeltest::table<QByteArray, QByteArray, QByteArray>("kept", "old", "later");
        const QByteArray ours = "file:///home/me/My%20Drive\n";
        row("none yet", "", "", ours);
        row("others", "file:///a Title of a\nsftp://b/c", "", "file:///a Title of a\nsftp://b/c\n" + ours);
        row("earlier version", "", "file:///old\n", "file:///old\n" + ours);
        row("listed twice", "file:///home/me/My%20Drive/ Mine\nfile:///a\n" + ours, "", "");
    }
    void diskEntry()
    {
        const auto [kept, old, later] = zeltest::row<QByteArray, QByteArray, QByteArray>();
        const zeltest::TempTree home;
        qputenv("HOME", home.bytes());
        qputenv("XDG_CONFIG_HOME", home.bytes() + "/config");
        m_fixture->service().hooks().driveFolder = [] { return "/home/me/My Drive"_s; };
        if (!kept.isEmpty()) {
            home.write("dotfiles/places", kept);
            home.link("dotfiles/places", "config/gtk-3.0/bookmarks");
        }
        if (!old.isEmpty())
            home.write(".gtk-bookmarks", old);
        const bool isListed = later.isEmpty();
        QCOMPARE(call("getCloudDiskEntryVisible"), isListed ? "visible=true"_s : "visible=false"_s);
        QCOMPARE(call("setCloudDiskEntryVisible", "visible=maybe"_s), "invalidArgument"_s);
        QCOMPARE(call("setCloudDiskEntryVisible", "visible=true"_s), "visible=true"_s);
        QCOMPARE(home.read("config/gtk-3.0/bookmarks"), isListed ? kept : later);
        QCOMPARE(call("setCloudDiskEntryVisible", "visible=false"_s), "visible=false"_s);
        QVERIFY(!home.read("config/gtk-3.0/bookmarks").contains("Drive"));
        QCOMPARE(QFileInfo(home.path("config/gtk-3.0/bookmarks")).isSymLink(), !kept.isEmpty());
        QCOMPARE(call("getCloudDiskEntryVisible"), "visible=false"_s);
    }

    void settingsOutliveTheProcess()
    {
        call("setRealTimeUploadState", "enable=true"_s);
        call("addSyncFolder", "folderName=/a"_s);
        m_fixture->restart();
        m_client = m_fixture->client();
        QCOMPARE(call("getRealTimeUploadStateAsync"), "enable=true"_s);
        call("addSyncFolder", "folderName=/b"_s);
        QCOMPARE(m_list, (std::vector<std::string>{"/a", "/b"}));
    }

    void cacheSize()
    {
        const QString cache = service::cloudCacheDir();
        QVERIFY(cache.startsWith(qEnvironmentVariable("XDG_CACHE_HOME")));
        QDir(cache).removeRecursively();
        QCOMPARE(call("getCloudFileCacheSize"), "size=0"_s);
        m_files.write(cache + "/a"_s, QByteArray(1000, 'a'));
        m_files.write(cache + "/deep/er/.b"_s, QByteArray(234, 'b'));
        QVERIFY(QFile::link(cache, cache + "/deep/round"_s));
        QCOMPARE(call("getCloudFileCacheSize"), "size=1234"_s);
    }

    void autoRun_data()
    {
        // ofUser: empty: no file
        const auto row = zeltest::table<QByteArray, QByteArray, QString>("ofUser", "ofSystem", "result");
        const QByteArray on = "[Desktop Entry]\nType=Application\nExec=zelbox\n";
        const QByteArray hidden = "[Desktop Entry]\nHidden = true\n";
        row("of the user", on, QByteArray(), "autoRun=true");
        row("the user hides the system's", hidden, on, "autoRun=false");
    }

    void autoRun()
    {
        const auto [ofUser, ofSystem] = zeltest::row<QByteArray, QByteArray>();
        const QString system = m_fixture->folder() + "/xdg"_s;
        const QString file = "/autostart/org.zelbox.ZelBox.desktop"_s;
        qputenv("XDG_CONFIG_DIRS", QFile::encodeName(system));
        QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + file);
        if (!ofUser.isEmpty())
            m_files.write(qEnvironmentVariable("XDG_CONFIG_HOME") + file, ofUser);
        if (!ofSystem.isEmpty())
            m_files.write(system + file, ofSystem);
        QTEST(call("getZelBoxAutoRunStatus"), "result");
    }

    void autoUpdateFolders()
    {
        call("updateAutoUpdateFolders", "folderList=/a|/b"_s);
        QVERIFY(m_client->waitForPush<NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged"));
        call("updateAutoUpdateFolders", "folderList=/b|/c"_s);
        const auto told =
            m_client->waitForPush<NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged");
        QCOMPARE(told->addedPaths, std::vector<std::string>{"/c"});
        QCOMPARE(told->removedPaths, std::vector<std::string>{"/a"});
        QCOMPARE(told->folderPaths, (std::vector<std::string>{"/b", "/c"}));
        call("updateAutoUpdateFolders", "folderList=/b|/c"_s);
        QVERIFY2(
            !m_client->waitForPush<NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged", 50),
            "nothing changed");
    }

    void transferNotices()
    {
        const service::TransferSubscriptions &subscriptions = m_fixture->service().subscriptions();
        const auto subscribers = [&subscriptions](const char *task) {
            return subscriptions.subscribersOf(QString::fromLatin1(task)).size();
        };
        const auto subscribe = [this](const char *values) {
            call("subscribeTransNotify", QString::fromLatin1(values));
        };
        QCOMPARE(call("subscribeTransNotify", "taskIDs=1"_s), "invalidArgument"_s);
        subscribe("taskIDs=1|2;subscribe=true");
        QCOMPARE(subscribers("2"), 1);
        QCOMPARE(subscribers("3"), 0);
        subscribe("taskIDs=2;subscribe=false");
        QCOMPARE(subscribers("1"), 1);
        QCOMPARE(subscribers("2"), 0);
        m_client = m_fixture->client();
        QTRY_COMPARE(subscribers("1"), 0); // the first one has gone
        subscribe("subscribe=true");
        QCOMPARE(subscribers("3"), 1);
        subscribe("subscribe=false");
        QCOMPARE(subscribers("3"), 0);
    }

    void hooks()
    {
        QStringList seen;
        service::ServiceHooks &hooks = m_fixture->service().hooks();
        hooks.cancelTasks = [&seen](const QStringList &tasks) {
            seen = tasks;
            return tasks.contains("9"_s) ? wire::ServiceError::NotFound : wire::ServiceError::None;
        };
        hooks.reportCloudDoc = [&seen](const QString &file) {
            seen = QStringList{file};
            return wire::ServiceError::None;
        };
        QCOMPARE(call("cancelTask", "taskIDs=1|2"_s), QString());
        QCOMPARE(seen, (QStringList{"1"_s, "2"_s}));
        QCOMPARE(call("cancelTask", "taskIDs=9"_s), "notFound"_s);
        QCOMPARE(call("reportCloudDoc", "file=/a b"_s), QString());
        QCOMPARE(seen, QStringList{"/a b"_s});
    }

private:
    // "a=1;b=2"
    static std::map<std::string, std::string> mapOf(const QString &text)
    {
        std::map<std::string, std::string> map;
        for (const QString &pair : text.split(QLatin1Char(';'), Qt::SkipEmptyParts))
            map[pair.section(QLatin1Char('='), 0, 0).toStdString()] =
                pair.section(QLatin1Char('='), 1).toStdString();
        return map;
    }

    /// The results as "a=1;b=2", or the error's name.
    QString call(const char *method, const QString &values = {}, const char *object = "KVelaIpcCallObj")
    {
        const auto answer = m_client->call<VelaIpcResult>("velaIpcCall",
            filled(&VelaIpcArg::nameSpace, object, &VelaIpcArg::method, method, &VelaIpcArg::argMap,
                mapOf(values)));
        if (!answer)
            return m_client->error();
        if (answer->state != 0)
            return QString::fromStdString(answer->resultMap.at("errResult"));
        m_list = answer->resultList;
        const auto pair = [](const auto &entry) { return entry.first + '=' + entry.second; };
        return zeltest::joined(answer->resultMap, pair, ";"_s);
    }

    zeltest::TempTree m_files;
    std::unique_ptr<ServiceFixture> m_fixture;
    std::unique_ptr<WireClient> m_client;
    std::vector<std::string> m_list;
};

QTEST_GUILESS_MAIN(TestEnvelope)
#include "tst_envelope.moc"
