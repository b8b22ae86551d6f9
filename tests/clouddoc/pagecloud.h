#pragma once

#include "clouddoc/fakecloud.h"

/// A cloud that writes down what the page asks of it, with what matters: "move report -> a (0)".
class PageCloud : public FakeCloud
{
    Q_OBJECT
public:
    QStringList wanted; ///< changes only, not what is read

    QString asynCallEx(
        const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot) override
    {
        if (const std::string text = textOf(method, arg.data()); !text.empty())
            wanted << QString::fromStdString(text);
        return FakeCloud::asynCallEx(method, arg, receiver, slot);
    }

private:
    template <class Record> static std::string carried(const char *verb, const Record &record)
    {
        return verb + ids(record.items) + " -> " + record.targetParentId + " ("
            + std::to_string(record.conflictPolicy) + ')';
    }
    static std::string ids(const std::vector<zel::vela::CloudItemId> &items)
    {
        std::string text;
        for (const auto &item : items)
            text += ' ' + item.id;
        return text;
    }

    static std::string textOf(const QString &method, const void *record)
    {
        using namespace zel::vela;
        if (method == QLatin1String("cloudItemsMoveTo"))
            return carried("move", *static_cast<const CloudItemsMoveToArg *>(record));
        if (method == QLatin1String("cloudItemsCopyTo"))
            return carried("copy", *static_cast<const CloudItemsCopyToArg *>(record));
        if (method == QLatin1String("rename")) {
            const auto &rename = *static_cast<const RenameArg *>(record);
            return "rename " + rename.item.id + " -> " + rename.newName;
        }
        if (method == QLatin1String("batchRemove"))
            return "remove" + ids(static_cast<const BatchRemoveArg *>(record)->items);
        if (method == QLatin1String("createFolder"))
            return "folder " + static_cast<const CreateFolderArg *>(record)->name;
        if (method == QLatin1String("uploadItems")) {
            const auto &upload = *static_cast<const UploadItemsArg *>(record);
            std::string text = "upload";
            for (const std::string &path : upload.localPaths)
                text += ' ' + path;
            return text + " -> " + upload.parentId + " (" + std::to_string(upload.conflictPolicy) + ')';
        }
        if (method == QLatin1String("downloadItems"))
            return "download" + ids(static_cast<const DownloadItemsArg *>(record)->items);
        if (method == QLatin1String("updateTransferInfo")) {
            const auto &update = *static_cast<const UpdateTransferInfoArg *>(record);
            return "transfer " + update.taskIds.at(0) + " step " + std::to_string(update.operation);
        }
        return {};
    }
};
