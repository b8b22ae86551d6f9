#include "service/methods/messages/messagerecords.h"

#include "base/latin1.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zel::service {
namespace {

constexpr QLatin1String WaitsKey = latin1("waitForUpdate");
constexpr QLatin1String VersionKey = latin1("fileVersion");
constexpr QLatin1String ButtonsKey = latin1("buttons");
constexpr QLatin1String ParamsKey = latin1("extraParam");

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

/// The texts that have no column, each with its name; one list for both directions.
template <class Item, class Visit> void visitExtraTexts(Item &item, Visit visit)
{
    visit(latin1("filePath"), item.filePath);
    visit(latin1("groupName"), item.groupName);
    visit(latin1("parentId"), item.parentId);
    visit(latin1("companyId"), item.companyId);
    visit(latin1("operatorAvatar"), item.operatorAvatar);
    visit(latin1("deviceId"), item.deviceId);
    visit(latin1("deviceName"), item.deviceName);
    visit(latin1("summary"), item.msgContent.summary);
    visit(latin1("url"), item.msgContent.url);
    visit(latin1("iconUrl"), item.msgContent.iconUrl);
    visit(latin1("ext"), item.msgContent.ext);
}

QJsonObject parsed(const QString &extra)
{
    return QJsonDocument::fromJson(extra.toUtf8()).object();
}

QString written(const QJsonObject &object)
{
    return object.isEmpty() ? QString()
                            : QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonArray toJson(const std::vector<vela::MessageButtonInfo> &buttons)
{
    QJsonArray array;
    for (const vela::MessageButtonInfo &button : buttons)
        array.append(QJsonObject{{latin1("text"), text(button.text)}, {latin1("action"), text(button.action)},
            {latin1("target"), text(button.target)}, {latin1("primary"), button.primary}});
    return array;
}

std::vector<vela::MessageButtonInfo> toButtons(const QJsonArray &array)
{
    std::vector<vela::MessageButtonInfo> buttons;
    for (const QJsonValue &value : array) {
        vela::MessageButtonInfo button;
        button.text = value[latin1("text")].toString().toStdString();
        button.action = value[latin1("action")].toString().toStdString();
        button.target = value[latin1("target")].toString().toStdString();
        button.primary = value[latin1("primary")].toBool();
        buttons.push_back(button);
    }
    return buttons;
}

QString extraOf(const vela::NewMessageItem &item)
{
    QJsonObject extra;
    visitExtraTexts(item, [&extra](QLatin1String name, const std::string &value) {
        if (!value.empty())
            extra.insert(name, text(value));
    });
    if (item.fileVersion != 0)
        extra.insert(VersionKey, text(std::to_string(item.fileVersion))); // a JSON number would lose digits
    if (item.waitForUpdate)
        extra.insert(WaitsKey, true);
    if (!item.msgContent.buttons.empty())
        extra.insert(ButtonsKey, toJson(item.msgContent.buttons));
    QJsonObject params;
    for (const auto &[key, value] : item.extraParam)
        params.insert(text(key), text(value));
    if (!params.isEmpty())
        extra.insert(ParamsKey, params);
    return written(extra);
}

int businessOf(const QString &topic)
{
    const QStringList topics{QStringLiteral("zel.file"), QStringLiteral("zel.link"),
        QStringLiteral("zel.link.local"), QStringLiteral("zel.roaming")};
    return topics.indexOf(topic) + 1;
}

} // namespace

Message toMessage(const vela::NewMessageItem &item, const std::string &category)
{
    Message message;
    message.fileId = text(item.fileId);
    message.operatorId = text(item.operatorId);
    message.time = item.time;
    message.read = item.bRead;
    message.trayRead = item.trayRead;
    message.recentRead = item.recentRead;
    message.topic = text(item.topic);
    message.type = text(item.type);
    message.messageId = text(item.messageId);
    message.title = text(item.msgContent.title);
    message.content = text(item.msgContent.content);
    message.operatorName = text(item.operatorName);
    message.fileName = text(item.fileName);
    message.groupId = text(item.groupId);
    message.category = text(category.empty() ? item.category : category);
    message.linkId = text(item.linkSid);
    message.extra = extraOf(item);
    return message;
}

vela::NewMessageItem toNewMessageItem(const Message &message)
{
    vela::NewMessageItem item;
    item.messageId = message.messageId.toStdString();
    item.category = message.category.toStdString();
    item.topic = message.topic.toStdString();
    item.type = message.type.toStdString();
    item.time = message.time;
    item.fileId = message.fileId.toStdString();
    item.fileName = message.fileName.toStdString();
    item.groupId = message.groupId.toStdString();
    item.linkSid = message.linkId.toStdString();
    item.operatorId = message.operatorId.toStdString();
    item.operatorName = message.operatorName.toStdString();
    item.bRead = message.read;
    item.trayRead = message.trayRead;
    item.recentRead = message.recentRead;
    item.msgContent.title = message.title.toStdString();
    item.msgContent.content = message.content.toStdString();
    const QJsonObject extra = parsed(message.extra);
    visitExtraTexts(item,
        [&extra](QLatin1String name, std::string &value) { value = extra[name].toString().toStdString(); });
    item.fileVersion = extra[VersionKey].toString().toLongLong();
    item.waitForUpdate = extra[WaitsKey].toBool();
    item.msgContent.buttons = toButtons(extra[ButtonsKey].toArray());
    const QJsonObject params = extra[ParamsKey].toObject();
    for (auto it = params.begin(); it != params.end(); ++it)
        item.extraParam[it.key().toStdString()] = it.value().toString().toStdString();
    return item;
}

vela::MessageItem toMessageItem(const Message &message)
{
    const vela::NewMessageItem from = toNewMessageItem(message);
    vela::MessageItem item;
    item.id = from.messageId;
    item.ext = from.msgContent.ext;
    item.ctime = std::to_string(from.time);
    item.category = from.category;
    item.bread = from.bRead ? 1 : 0;
    item.bussType = businessOf(message.topic);
    item.msgContent.title = from.msgContent.title;
    item.msgContent.text = from.msgContent.content;
    item.msgContent.url = from.msgContent.url;
    vela::MessageDataInfo &data = item.msgContent.dataInfo;
    data.topic = from.topic;
    data.type = from.type;
    data.time = from.time;
    data.fileId = from.fileId;
    data.fileName = from.fileName;
    data.groupId = from.groupId;
    data.groupName = from.groupName;
    data.parentId = from.parentId;
    data.companyId = from.companyId;
    data.linkSid = from.linkSid;
    data.fileVersion = from.fileVersion;
    data.messageOperator.userId = from.operatorId;
    data.messageOperator.userName = from.operatorName;
    data.messageOperator.userAvatar = from.operatorAvatar;
    data.messageOperator.time = from.time;
    data.trayRead = from.trayRead;
    data.recentRead = from.recentRead;
    item.extraParam = from.extraParam;
    return item;
}

void setWaitsForUpdate(Message &message, bool waits)
{
    QJsonObject extra = parsed(message.extra);
    if (waits)
        extra.insert(WaitsKey, true);
    else
        extra.remove(WaitsKey);
    message.extra = written(extra);
}

} // namespace zel::service
