#include "service/methods/envelope/envelopemethods.h"

#include "base/latin1.h"
#include "base/logging.h"
#include "notify_types.h"
#include "service/methods/envelope/drivebookmark.h"
#include "service/methods/envelope/machinefacts.h"
#include "service/methods/failuretexts.h"

#include <QSet>
#include <algorithm>
#include <memory>

namespace zel::service {

using vela::VelaIpcResult;
using wire::ServiceError;

namespace {

constexpr QLatin1String FoldersKey = latin1("autoUpdate/folders");
constexpr QLatin1String SyncFoldersKey = latin1("sync/folders");
constexpr QLatin1Char Separator('|');

/// A pair of methods that reads and writes one setting.
struct Setting
{
    QLatin1String getMethod;
    QLatin1String setMethod;
    QLatin1String key;
    QLatin1String first; ///< until it is written
    std::initializer_list<QLatin1String> values;
};
constexpr auto Flags = {latin1("true"), latin1("false")};
constexpr auto Frequencies = {latin1("0"), latin1("1"), latin1("2")};
constexpr Setting Settings[] = {
    {latin1("getTransBubbleFrequncy"), latin1("setTransBubbleFrequncy"), latin1("frequency"), latin1("0"),
        Frequencies},
    {latin1("getRealTimeUploadStateAsync"), latin1("setRealTimeUploadState"), latin1("enable"),
        latin1("false"), Flags},
};

QMap<QString, QString> textsOf(const std::map<std::string, std::string> &map)
{
    QMap<QString, QString> texts;
    for (const auto &[key, value] : map)
        texts.insert(QString::fromStdString(key), QString::fromStdString(value));
    return texts;
}

std::vector<std::string> utf8(const QStringList &texts)
{
    std::vector<std::string> result;
    for (const QString &text : texts)
        result.push_back(text.toStdString());
    return result;
}

VelaIpcResult resultWith(QLatin1String key, const QString &value)
{
    VelaIpcResult result;
    result.resultMap[key.latin1()] = value.toStdString();
    result.resultString = value.toStdString();
    return result;
}

QStringList split(const QString &joined)
{
    QStringList parts = joined.split(Separator, Qt::SkipEmptyParts);
    parts.removeDuplicates();
    return parts;
}

QSet<QString> setOf(const QStringList &texts)
{
    return {texts.begin(), texts.end()};
}

// Sends `result` when there is no error.
void finish(Answer<VelaIpcResult> &reply, ServiceError error, const VelaIpcResult &result = {})
{
    if (error == ServiceError::None)
        reply.send(result);
    else
        reply.fail(error, databaseText());
}

QString noDriveText()
{
    return QStringLiteral("There is no drive.");
}

void refuse(Answer<VelaIpcResult> &reply, const char *what)
{
    reply.fail(ServiceError::InvalidArgument, QString::fromLatin1(what));
}

} // namespace

EnvelopeMethods::EnvelopeMethods(EnvelopeParts parts) : m_parts(std::move(parts))
{
    m_pool.setMaxThreadCount(1);
}

EnvelopeMethods::~EnvelopeMethods() = default;

void EnvelopeMethods::serve(MethodTable &methods)
{
    methods.serve("velaIpcCall", this, &EnvelopeMethods::call);
}

EnvelopeMethods::Handler EnvelopeMethods::handlerOf(const QString &method)
{
    static const QMap<QString, Handler> handlers = {
        {QStringLiteral("reloadMessageConfig"), &EnvelopeMethods::reloadMessageConfig},
        {QStringLiteral("setMsgWaitForUpdate"), &EnvelopeMethods::setMsgWaitForUpdate},
        {QStringLiteral("reportCloudDoc"), &EnvelopeMethods::reportCloudDoc},
        {QStringLiteral("getCloudFileCacheSize"), &EnvelopeMethods::getCloudFileCacheSize},
        {QStringLiteral("getCloudDiskEntryVisible"), &EnvelopeMethods::getCloudDiskEntryVisible},
        {QStringLiteral("setCloudDiskEntryVisible"), &EnvelopeMethods::setCloudDiskEntryVisible},
        {QStringLiteral("getFolderAutoUpdateType"), &EnvelopeMethods::getFolderAutoUpdateType},
        {QStringLiteral("updateAutoUpdateFolders"), &EnvelopeMethods::updateAutoUpdateFolders},
        {QStringLiteral("addSyncFolder"), &EnvelopeMethods::addSyncFolder},
        {QStringLiteral("getZelBoxAutoRunStatus"), &EnvelopeMethods::getZelBoxAutoRunStatus},
        {QStringLiteral("subscribeTransNotify"), &EnvelopeMethods::subscribeTransNotify},
        {QStringLiteral("cancelTask"), &EnvelopeMethods::cancelTask},
        {QStringLiteral("delRoamingFileRecord"), &EnvelopeMethods::delRoamingFileRecord},
    };
    return handlers.value(method, nullptr);
}

void EnvelopeMethods::call(const vela::VelaIpcArg &request, Reply reply)
{
    if (request.nameSpace != "KVelaIpcCallObj")
        return refuse(reply, "There is no such object.");
    const Values values = textsOf(request.argMap);
    if (!m_parts.account.isOurs(values.value(QStringLiteral("userID")).toStdString()))
        return reply.fail(ServiceError::NotFound, unknownUserText());
    const QString method = QString::fromStdString(request.method);
    if (callSetting(method, values, reply))
        return;
    const Handler handler = handlerOf(method);
    if (!handler)
        return reply.fail(ServiceError::NotServed, QStringLiteral("This service does not do that."));
    (this->*handler)(values, std::move(reply));
}

// False when the method is none of a setting.
bool EnvelopeMethods::callSetting(const QString &method, const Values &values, Reply &reply)
{
    for (const Setting &setting : Settings) {
        if (method != setting.getMethod && method != setting.setMethod)
            continue;
        const QString key = QLatin1String("envelope/") + setting.key;
        const QString user = m_parts.account.userId();
        QString value = setting.first;
        ServiceError error = ServiceError::None;
        if (method == setting.getMethod) {
            error = m_parts.tables.read(user, key, value);
        } else {
            value = values.value(setting.key);
            if (std::find(setting.values.begin(), setting.values.end(), value) == setting.values.end()) {
                refuse(reply, "The setting does not take this value.");
                return true;
            }
            error = m_parts.tables.write(user, {{key, value}});
        }
        finish(reply, error, resultWith(setting.key, value));
        return true;
    }
    return false;
}

void EnvelopeMethods::reloadMessageConfig(const Values &, Reply reply)
{
    reply.send({});
}

void EnvelopeMethods::setMsgWaitForUpdate(const Values &values, Reply reply)
{
    const QString id = values.value(QStringLiteral("msgId"));
    const QString waits = values.value(QStringLiteral("waitForUpdate"));
    if (id.isEmpty() || (waits != latin1("true") && waits != latin1("false")))
        return refuse(reply, "A message and a flag are needed.");
    const ServiceError error = m_parts.setMessageWaits(id, waits == latin1("true"));
    if (error == ServiceError::NotFound)
        return reply.fail(error, QStringLiteral("There is no such message."));
    finish(reply, error);
}

void EnvelopeMethods::reportCloudDoc(const Values &values, Reply reply)
{
    const QString file = values.value(QStringLiteral("file"));
    if (file.isEmpty())
        return refuse(reply, "A file is needed.");
    if (!m_parts.hooks.reportCloudDoc)
        return reply.fail(ServiceError::NotServed, QStringLiteral("Nobody follows the documents in use."));
    finish(reply, m_parts.hooks.reportCloudDoc(file));
}

// On another thread, for what reads or writes much. Nothing: it could not be done.
void EnvelopeMethods::answerApart(Reply reply, std::function<std::optional<VelaIpcResult>()> work)
{
    auto shared = std::make_shared<Reply>(std::move(reply));
    m_pool.start([this, work = std::move(work), shared = std::move(shared)]() mutable {
        // The reply moves along: it must not be answered, nor dropped, on this thread.
        QMetaObject::invokeMethod(
            &m_context,
            [result = work(), shared = std::move(shared)] {
                if (result)
                    shared->send(*result);
                else
                    shared->fail(ServiceError::InputOutput, QStringLiteral("The file cannot be written."));
            },
            Qt::QueuedConnection);
    });
}

void EnvelopeMethods::getCloudFileCacheSize(const Values &, Reply reply)
{
    answerApart(std::move(reply),
        [] { return resultWith(latin1("size"), QString::number(sizeOfFolder(cloudCacheDir()))); });
}

void EnvelopeMethods::getCloudDiskEntryVisible(const Values &, Reply reply)
{
    if (!m_parts.hooks.driveFolder)
        return reply.fail(ServiceError::NotServed, noDriveText());
    answerApart(std::move(reply), [folder = m_parts.hooks.driveFolder()] {
        return resultWith(latin1("visible"), isBookmarked(folder) ? latin1("true") : latin1("false"));
    });
}

void EnvelopeMethods::setCloudDiskEntryVisible(const Values &values, Reply reply)
{
    const QString flag = values.value(QStringLiteral("visible"));
    if (flag != latin1("true") && flag != latin1("false"))
        return refuse(reply, "\"visible\" is \"true\" or \"false\".");
    if (!m_parts.hooks.driveFolder)
        return reply.fail(ServiceError::NotServed, noDriveText());
    answerApart(
        std::move(reply), [flag, folder = m_parts.hooks.driveFolder()]() -> std::optional<VelaIpcResult> {
            if (!setBookmarked(folder, flag == latin1("true")))
                return {};
            return resultWith(latin1("visible"), flag);
        });
}

void EnvelopeMethods::getFolderAutoUpdateType(const Values &values, Reply reply)
{
    QString kept;
    const ServiceError error = m_parts.tables.read(m_parts.account.userId(), FoldersKey, kept);
    const QSet<QString> folders = setOf(split(kept));
    VelaIpcResult result;
    for (const QString &folder : split(values.value(QStringLiteral("folderList"))))
        result.resultMap[folder.toStdString()] = folders.contains(folder) ? "1" : "0";
    finish(reply, error, result);
}

void EnvelopeMethods::updateAutoUpdateFolders(const Values &values, Reply reply)
{
    const QString user = m_parts.account.userId();
    const QStringList folders = split(values.value(QStringLiteral("folderList")));
    QString kept;
    ServiceError error = m_parts.tables.read(user, FoldersKey, kept);
    if (error == ServiceError::None)
        error = m_parts.tables.write(user, {{FoldersKey, folders.join(Separator)}});
    VelaIpcResult result;
    result.resultList = utf8(folders);
    finish(reply, error, result);
    const QStringList before = split(kept);
    if (error != ServiceError::None || before == folders)
        return;
    const auto without = [](QStringList list, const QStringList &others) {
        const QSet<QString> gone = setOf(others);
        list.erase(std::remove_if(
                       list.begin(), list.end(), [&gone](const QString &one) { return gone.contains(one); }),
            list.end());
        return utf8(list);
    };
    vela::NotifyAutoUpdateFoldersChangedArg changed;
    changed.userId = user.toStdString();
    changed.addedPaths = without(folders, before);
    changed.removedPaths = without(before, folders);
    changed.folderPaths = utf8(folders);
    m_parts.pushes.push("notifyAutoUpdateFoldersChanged", changed);
}

void EnvelopeMethods::addSyncFolder(const Values &values, Reply reply)
{
    const QString user = m_parts.account.userId();
    const QString folder = values.value(QStringLiteral("folderName"));
    if (folder.isEmpty() || folder.contains(Separator))
        return refuse(reply, "A folder is needed, and its name may not hold \"|\".");
    QString kept;
    ServiceError error = m_parts.tables.read(user, SyncFoldersKey, kept);
    QStringList folders = split(kept);
    if (folders.contains(folder))
        return reply.fail(ServiceError::Exists, QStringLiteral("The folder is in the list already."));
    folders.append(folder);
    if (error == ServiceError::None)
        error = m_parts.tables.write(user, {{SyncFoldersKey, folders.join(Separator)}});
    VelaIpcResult result = resultWith(latin1("folderName"), folder);
    result.resultList = utf8(folders);
    finish(reply, error, result);
}

void EnvelopeMethods::getZelBoxAutoRunStatus(const Values &, Reply reply)
{
    reply.send(resultWith(latin1("autoRun"), QString(isAutostarted() ? latin1("true") : latin1("false"))));
}

void EnvelopeMethods::subscribeTransNotify(const Values &values, Reply reply)
{
    const QString flag = values.value(QStringLiteral("subscribe"));
    const QStringList tasks = split(values.value(QStringLiteral("taskIDs")));
    if (flag == latin1("true"))
        m_parts.subscriptions.subscribe(reply.client(), tasks);
    else if (flag == latin1("false"))
        m_parts.subscriptions.unsubscribe(reply.client(), tasks);
    else
        return refuse(reply, "\"subscribe\" is \"true\" or \"false\".");
    reply.send({});
}

void EnvelopeMethods::delRoamingFileRecord(const Values &values, Reply reply)
{
    const QStringList ids = split(values.value(QStringLiteral("roamingIds")));
    const QStringList fileIds = split(values.value(QStringLiteral("fileIds")));
    if (ids.isEmpty() && fileIds.isEmpty())
        return refuse(reply, "Records are needed.");
    if (!m_parts.hooks.removeRecords)
        return reply.fail(ServiceError::NotServed, QStringLiteral("There is no recent list."));
    const ServiceError error =
        m_parts.hooks.removeRecords(ids, fileIds, [&reply](const QStringList &removed) {
            VelaIpcResult result = resultWith(latin1("removedCount"), QString::number(removed.size()));
            result.resultList = utf8(removed);
            reply.send(result);
        });
    if (error != ServiceError::None)
        finish(reply, error);
}

void EnvelopeMethods::cancelTask(const Values &values, Reply reply)
{
    const QStringList tasks = split(values.value(QStringLiteral("taskIDs")));
    if (tasks.isEmpty())
        return refuse(reply, "Tasks are needed.");
    if (!m_parts.hooks.cancelTasks)
        return reply.fail(ServiceError::NotServed, QStringLiteral("There are no transfers."));
    const ServiceError error = m_parts.hooks.cancelTasks(tasks);
    if (error == ServiceError::NotFound)
        return reply.fail(error, QStringLiteral("There is no such task."));
    finish(reply, error);
}

} // namespace zel::service
