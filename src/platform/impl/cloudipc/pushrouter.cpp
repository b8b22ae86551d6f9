#include "pushrouter.h"

#include "base/logging.h"
#include "cloud/wire/registry.h"
#include "cloud/wire/texts.h"
#include "kclientsvrproxy.h"
#include "kvelaeventobject.h"
#include "loginkeeper.h"
#include "message_types.h"
#include "notify_types.h"

#include <algorithm>
#include <iterator>

namespace zel::cloudipc {
namespace {

using wire::AnyRecord;
using wire::toQt;

constexpr int MostUnknown = 64; // a service that makes up names shall not fill the memory

QMap<QString, QString> discussionMap(const vela::NotifyShareDiscussionArg &push)
{
    QMap<QString, QString> map = toQt(push.actionsMap);
    map.insert(QStringLiteral("action"), toQt(push.action));
    map.insert(QStringLiteral("groupId"), toQt(push.groupId));
    map.insert(QStringLiteral("fileId"), toQt(push.fileId));
    map.insert(QStringLiteral("discussionId"), toQt(push.discussionId));
    map.insert(QStringLiteral("content"), toQt(push.content));
    return map;
}

QVariant variantMap(const std::map<std::string, std::string> &map)
{
    QVariantMap values;
    for (const auto &[key, value] : map)
        values.insert(toQt(key), toQt(value));
    return values;
}

QVector<vela::CloudItem> itemsOf(const vela::NotifyFileStateListArg &push)
{
    return {push.items.begin(), push.items.end()};
}

// The pushes with a signal of their own, ordered by name.
struct Route
{
    std::string_view method;
    void (*tell)(KVelaEventObject &events, const AnyRecord &record);
};
constexpr Route Routes[] = {
    {"notifyActionsMap",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyActionsMapForReadMessage(
                toQt(record.as<vela::NotifyActionsMapArg>().actionsMap));
        }},
    {"notifyFileCreation",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyFileCreation(record.as<vela::NotifyFileCreationArg>());
        }},
    {"notifyFileStateList",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyRecentFileStateChanged(
                itemsOf(record.as<vela::NotifyFileStateListArg>()));
        }},
    {"notifyMsgList",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyNewMsgList(toQt(record.as<vela::NotifyMsgListArg>().newMsgList));
        }},
    {"notifyRecentFileChange",
        [](KVelaEventObject &events, const AnyRecord &) {
            Q_EMIT events.signal_notifyRecentFileListChanged();
        }},
    {"notifyShareDiscussion",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyShareDiscussion(
                discussionMap(record.as<vela::NotifyShareDiscussionArg>()));
        }},
    {"notifyUserThumbnail",
        [](KVelaEventObject &events, const AnyRecord &record) {
            Q_EMIT events.signal_notifyUserThumbnail(record.as<vela::NotifyUserThumbnailArg>());
        }},
};
static_assert(std::ranges::is_sorted(Routes, {}, &Route::method));

bool ask(KClientSvrProxy &client, const vela::NotifyActionArg &action)
{
    const auto url = [&action] {
        const auto it = action.params.find("url");
        return it == action.params.end() ? QString() : toQt(it->second);
    };
    if (action.action == "activateWindow")
        return client.activateWindow(toQt(action.targetWindow));
    if (action.action == "addBrowserPage")
        return client.addBrowserPage(url());
    return action.action == "addPlumePage" && client.addPlumePage(url());
}

} // namespace

void PushRouter::addClient(KClientSvrProxy *client)
{
    if (client && !m_clients.contains(client))
        m_clients.append(client);
}

bool PushRouter::takePush(const wire::MessageHead &head, wire::MessageReader &reader)
{
    const wire::MethodType *push = wire::findPush(head.method);
    if (!push) {
        const QString name = toQt(head.method);
        if (m_unknown.size() < MostUnknown && !m_unknown.contains(name)) {
            m_unknown.append(name);
            qCInfo(lcPlatform, "the cloud service tells %s, which this program does not know",
                qUtf8Printable(name));
        }
        return true;
    }
    const AnyRecord record(*push->request);
    if (!reader.readRequest(record.base()))
        return false;
    route(*push, record);
    return true;
}

// Whoever hears of it may destroy us, so each way ends with the telling.
void PushRouter::route(const wire::MethodType &push, const AnyRecord &record)
{
    const auto found = std::ranges::lower_bound(Routes, push.name, {}, &Route::method);
    if (found != std::end(Routes) && found->method == push.name)
        return found->tell(*m_events, record);
    if (push.name == "notifyAction")
        return askClients(record.as<vela::NotifyActionArg>());
    if (push.name == "notifyUserGenericInfo" && tellLogin(record))
        return;
    if (push.name == "notifyUserInfo" && tellUser(record))
        return;
    Q_EMIT m_events->signal_pushArrived(QString::fromUtf8(push.name.data(), int(push.name.size())),
        QVariant(record.type()->metaType(), record.object()));
}

bool PushRouter::tellLogin(const AnyRecord &record)
{
    const auto &push = record.as<vela::NotifyUserGenericInfoArg>();
    if (push.infoKey == "loginStatus") {
        m_login->refresh(LoginKeeper::Tell::Always);
        return true;
    }
    if (push.infoKey != "vipInfo")
        return false;
    m_login->refresh(); // it holds the kind of membership, too
    Q_EMIT m_events->signal_vipInfoChanged(variantMap(push.info));
    return true;
}

bool PushRouter::tellUser(const AnyRecord &record)
{
    if (!record.as<vela::NotifyUserInfoArg>().isSelf)
        return false;
    m_login->refresh(LoginKeeper::Tell::Always);
    return true;
}

void PushRouter::askClients(const vela::NotifyActionArg &action)
{
    const QList<QPointer<KClientSvrProxy>> clients = m_clients;
    for (const QPointer<KClientSvrProxy> &client : clients) {
        if (client && ask(*client, action))
            return;
    }
    qCInfo(lcPlatform, "no window does what the cloud service asks: %s", action.action.c_str());
}

} // namespace zel::cloudipc
