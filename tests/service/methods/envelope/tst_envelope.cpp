#include "notify_types.h"
#include "service/methods/envelope/machinefacts.h"
#include "service/servicefixture.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace zel;
using service::ClientId;

namespace {

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(bytes) == bytes.size();
}

// "a=1;b=2"
std::map<std::string, std::string> mapOf(const QString &text)
{
    std::map<std::string, std::string> map;
    for (const QString &pair : text.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        map[pair.section(QLatin1Char('='), 0, 0).toStdString()] =
            pair.section(QLatin1Char('='), 1).toStdString();
    return map;
}

} // namespace

class TestEnvelope : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void calls_data();
    void calls();
    void settingsOutliveTheProcess();
    void cacheSize();
    void autoRun_data();
    void autoRun();
    void autoUpdateFolders();
    void transferNotices();
    void hooks();

private:
    /// The results as "a=1;b=2", or the error's name.
    QString call(const char *method, const QString &values = {}, const char *object = "KVelaIpcCallObj");

    std::unique_ptr<ServiceFixture> m_fixture;
    std::unique_ptr<WireClient> m_client;
    std::vector<std::string> m_list;
};

void TestEnvelope::init()
{
    m_client.reset();
    m_fixture = std::make_unique<ServiceFixture>();
    m_client = m_fixture->client();
}

QString TestEnvelope::call(const char *method, const QString &values, const char *object)
{
    vela::VelaIpcArg request;
    request.nameSpace = object;
    request.method = method;
    request.argMap = mapOf(values);
    const auto answer = m_client->call<vela::VelaIpcResult>("velaIpcCall", request);
    if (!answer)
        return m_client->error();
    if (answer->state != 0)
        return QString::fromStdString(answer->resultMap.at("errResult"));
    m_list = answer->resultList;
    QStringList pairs;
    for (const auto &[key, value] : answer->resultMap)
        pairs.append(QString::fromStdString(key) + QLatin1Char('=') + QString::fromStdString(value));
    return pairs.join(QLatin1Char(';'));
}

void TestEnvelope::calls_data()
{
    QTest::addColumn<QStringList>("steps"); // method, values, expected result; and so on
    const auto row = [](const char *name, const QStringList &steps) { QTest::newRow(name) << steps; };
    const auto words = [](const char *text) { return QString::fromUtf8(text).split(QLatin1Char(' ')); };
    row("disk entry",
        words("getCloudDiskEntryVisible  visible=true "
              "setCloudDiskEntryVisible visible=false visible=false "
              "getCloudDiskEntryVisible  visible=false "
              "setCloudDiskEntryVisible visible=maybe invalidArgument "
              "setCloudDiskEntryVisible  invalidArgument "
              "getCloudDiskEntryVisible  visible=false"));
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
              "cancelTask taskIDs=1|2 notServed "
              "cancelTask taskIDs=| invalidArgument "
              "delRoamingFileRecord fileIds=1 notServed "
              "delRoamingFileRecord roamingIds=| invalidArgument "
              "noSuchMethod  notServed"));
}

void TestEnvelope::calls()
{
    QFETCH(QStringList, steps);
    QCOMPARE(steps.size() % 3, 0);
    QCOMPARE(call("getCloudDiskEntryVisible", {}, "KOther"), QStringLiteral("invalidArgument"));
    for (int i = 0; i < steps.size(); i += 3)
        QCOMPARE(call(qPrintable(steps[i]), steps[i + 1]), steps[i + 2]);
}

void TestEnvelope::settingsOutliveTheProcess()
{
    call("setRealTimeUploadState", QStringLiteral("enable=true"));
    call("addSyncFolder", QStringLiteral("folderName=/a"));
    m_fixture->restart();
    m_client = m_fixture->client();
    QCOMPARE(call("getRealTimeUploadStateAsync"), QStringLiteral("enable=true"));
    call("addSyncFolder", QStringLiteral("folderName=/b"));
    QCOMPARE(m_list, (std::vector<std::string>{"/a", "/b"}));
}

void TestEnvelope::cacheSize()
{
    const QString cache = service::cloudCacheDir();
    QVERIFY(cache.startsWith(qEnvironmentVariable("XDG_CACHE_HOME")));
    QDir(cache).removeRecursively();
    QCOMPARE(call("getCloudFileCacheSize"), QStringLiteral("size=0"));
    QVERIFY(writeFile(cache + QLatin1String("/a"), QByteArray(1000, 'a')));
    QVERIFY(writeFile(cache + QLatin1String("/deep/er/.b"), QByteArray(234, 'b')));
    QVERIFY(QFile::link(cache, cache + QLatin1String("/deep/round")));
    QCOMPARE(call("getCloudFileCacheSize"), QStringLiteral("size=1234"));
}

void TestEnvelope::autoRun_data()
{
    QTest::addColumn<QByteArray>("ofUser"); // empty: no file
    QTest::addColumn<QByteArray>("ofSystem");
    QTest::addColumn<QString>("result");
    const QByteArray on = "[Desktop Entry]\nType=Application\nExec=zelbox\n";
    const QByteArray hidden = "[Desktop Entry]\nHidden = true\n";
    QTest::newRow("of the user") << on << QByteArray() << "autoRun=true";
    QTest::newRow("the user hides the system's") << hidden << on << "autoRun=false";
}

void TestEnvelope::autoRun()
{
    QFETCH(QByteArray, ofUser);
    QFETCH(QByteArray, ofSystem);
    const QString system = m_fixture->folder() + QLatin1String("/xdg");
    const QString file = QStringLiteral("/autostart/org.zelbox.ZelBox.desktop");
    qputenv("XDG_CONFIG_DIRS", QFile::encodeName(system));
    QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + file);
    QVERIFY(ofUser.isEmpty() || writeFile(qEnvironmentVariable("XDG_CONFIG_HOME") + file, ofUser));
    QVERIFY(ofSystem.isEmpty() || writeFile(system + file, ofSystem));
    QTEST(call("getZelBoxAutoRunStatus"), "result");
}

void TestEnvelope::autoUpdateFolders()
{
    call("updateAutoUpdateFolders", QStringLiteral("folderList=/a|/b"));
    QVERIFY(m_client->waitForPush<vela::NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged"));
    call("updateAutoUpdateFolders", QStringLiteral("folderList=/b|/c"));
    const auto told =
        m_client->waitForPush<vela::NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged");
    QCOMPARE(told->addedPaths, std::vector<std::string>{"/c"});
    QCOMPARE(told->removedPaths, std::vector<std::string>{"/a"});
    QCOMPARE(told->folderPaths, (std::vector<std::string>{"/b", "/c"}));
    call("updateAutoUpdateFolders", QStringLiteral("folderList=/b|/c"));
    QVERIFY2(
        !m_client->waitForPush<vela::NotifyAutoUpdateFoldersChangedArg>("notifyAutoUpdateFoldersChanged", 50),
        "nothing changed");
}

void TestEnvelope::transferNotices()
{
    const service::TransferSubscriptions &subscriptions = m_fixture->service().subscriptions();
    const auto subscribers = [&subscriptions](const char *task) {
        return subscriptions.subscribersOf(QString::fromLatin1(task)).size();
    };
    const auto subscribe = [this](const char *values) {
        call("subscribeTransNotify", QString::fromLatin1(values));
    };
    QCOMPARE(call("subscribeTransNotify", QStringLiteral("taskIDs=1")), QStringLiteral("invalidArgument"));
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

void TestEnvelope::hooks()
{
    QStringList seen;
    service::ServiceHooks &hooks = m_fixture->service().hooks();
    hooks.cancelTasks = [&seen](const QStringList &tasks) {
        seen = tasks;
        return tasks.contains(QLatin1String("9")) ? wire::ServiceError::NotFound : wire::ServiceError::None;
    };
    hooks.reportCloudDoc = [&seen](const QString &file) {
        seen = QStringList{file};
        return wire::ServiceError::None;
    };
    QCOMPARE(call("cancelTask", QStringLiteral("taskIDs=1|2")), QString());
    QCOMPARE(seen, (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(call("cancelTask", QStringLiteral("taskIDs=9")), QStringLiteral("notFound"));
    QCOMPARE(call("reportCloudDoc", QStringLiteral("file=/a b")), QString());
    QCOMPARE(seen, QStringList{QStringLiteral("/a b")});
}

QTEST_GUILESS_MAIN(TestEnvelope)
#include "tst_envelope.moc"
