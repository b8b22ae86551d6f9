#include "support/fakecloud.h"

#include "cloud/wire/registry.h"
#include "link_types.h"

#include <utility>

using namespace zel::vela;

namespace {

std::string joined(const std::vector<std::string> &texts)
{
    std::string all;
    for (const std::string &text : texts)
        all += (all.empty() ? "" : " ") + text;
    return all;
}
std::string ids(const std::vector<CloudItemId> &items)
{
    std::vector<std::string> texts;
    for (const auto &item : items)
        texts.push_back(item.id);
    return joined(texts);
}
std::string placed(const std::string &what, const std::string &folder, int policy)
{
    return what + " -> " + folder + " (" + std::to_string(policy) + ')';
}

/// What matters of a record.
struct About
{
    static std::string of(const GetInfoListArg &list) { return list.parentId; }
    static std::string of(const CloudItemsMoveToArg &move)
    {
        return placed(ids(move.items), move.targetParentId, move.conflictPolicy);
    }
    static std::string of(const CloudItemsCopyToArg &copy)
    {
        return placed(ids(copy.items), copy.targetParentId, copy.conflictPolicy);
    }
    static std::string of(const UploadItemsArg &upload)
    {
        return placed(joined(upload.localPaths), upload.parentId, upload.conflictPolicy);
    }
    static std::string of(const RenameArg &rename) { return rename.item.id + " -> " + rename.newName; }
    static std::string of(const BatchRemoveArg &remove) { return ids(remove.items); }
    static std::string of(const CreateFolderArg &create) { return create.name; }
    static std::string of(const DownloadItemsArg &download) { return ids(download.items); }
    static std::string of(const UpdateTransferInfoArg &update)
    {
        return joined(update.taskIds) + " step " + std::to_string(update.operation);
    }
    static std::string of(const RemoveArg &remove)
    {
        return remove.item.id.empty() ? remove.extraParam.at("path") : "id " + remove.item.id;
    }
    static std::string of(const RecoverRecyclesArg &recover) { return joined(recover.recycleIds); }
    static std::string of(const VelaIpcArg &envelope)
    {
        std::string text = envelope.nameSpace + " " + envelope.method;
        for (const auto &[key, value] : envelope.argMap)
            text += " " + key + "=" + value;
        return text;
    }
    static std::string of(const ShowFileShareDlgArg &share)
    {
        return share.fileId + "," + share.fileName + "," + share.filePath + ","
            + std::to_string(share.accessTime) + "," + share.caller;
    }
};

template <class... Records> std::string textOf(const QByteArray &type, const void *data)
{
    std::string text;
    const auto *record = zel::wire::findRecord(type.constData());
    const auto look = [&]<class Record>(std::in_place_type_t<Record>) {
        if (record && *record->type == typeid(Record))
            text = About::of(*static_cast<const Record *>(data));
    };
    (look(std::in_place_type<Records>), ...);
    return text;
}
std::string textOf(const QGenericArgument &arg)
{
    return textOf<GetInfoListArg, CloudItemsMoveToArg, CloudItemsCopyToArg, UploadItemsArg, RenameArg,
        BatchRemoveArg, CreateFolderArg, DownloadItemsArg, UpdateTransferInfoArg, RemoveArg,
        RecoverRecyclesArg, VelaIpcArg, ShowFileShareDlgArg>(arg.name(), arg.data());
}

} // namespace

QStringList FakeCloud::askedFor(const char *method) const
{
    const QString begin = QLatin1String(method) + QLatin1Char(' ');
    QStringList texts;
    for (const QString &one : asked) {
        if (QString(one + QLatin1Char(' ')).startsWith(begin))
            texts << one.mid(begin.size());
    }
    return texts;
}

QString FakeCloud::asynCallEx(
    const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot)
{
    asked << QString(method + QLatin1Char(' ') + QString::fromStdString(textOf(arg))).trimmed();
    const bool reads =
        method.startsWith("get"_s) || method == "transferInfoList"_s || method == "velaIpcCall"_s;
    if (!reads)
        wanted << asked.last();
    const QString id = QString::number(++m_last);
    if (receiver)
        m_waiting.append({id, method, receiver, slot.toLatin1()});
    return id;
}

CloudItem FakeCloud::item(const QString &text, const QString &parent)
{
    CloudItem item;
    item.type = text.endsWith(QLatin1Char('/')) ? "folder" : "file";
    item.name = QString(text).remove(QLatin1Char('/')).toStdString();
    item.id = item.name;
    item.parentId = parent.toStdString();
    return item;
}

GetInfoListResult FakeCloud::page(const QString &folder, const QStringList &items, bool more, int64_t version)
{
    GetInfoListResult result;
    const bool root = folder == "root"_s;
    result.folder = item(folder + QLatin1Char('/'), root ? QString() : "root"_s);
    result.folder.name = root ? "" : result.folder.name;
    for (const QString &text : items)
        result.items.push_back(item(text, folder));
    result.total = int64_t(result.items.size());
    result.hasMore = more;
    result.listVersion = version;
    return result;
}

void FakeCloud::tellRemoved(const QString &id, const QString &parent)
{
    push("notifyFileAction",
        filled(&NotifyFileActionArg::action, "remove", &NotifyFileActionArg::item, item(id, parent)));
}

void FakeCloud::tellCreated(const QString &text, const QString &parent)
{
    Q_EMIT velaEventObject()->signal_notifyFileCreation(
        filled(&NotifyFileCreationArg::item, item(text, parent)));
}

void FakeCloud::tellProperty(const CloudItem &item, const char *field)
{
    NotifyFilePropertyArg property;
    property.items = {item};
    property.changedFields = {field};
    push("notifyFileProperty", property);
}
