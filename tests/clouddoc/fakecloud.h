#pragma once

#include "kcloudsvrproxy.h"

#include "drive_types.h"
#include "notify_types.h"
#include "recycle_types.h"
#include "transfer_types.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <QStringList>
#include <QVector>
#include <vector>

/// A proxy without a service: keeps the requests of the page until the test answers them. Items are written
/// "name", folders "name/"; an item's id is its name without the slash.
class FakeCloud : public KCloudSvrProxy
{
    Q_OBJECT
public:
    static zel::vela::CloudItem item(const QString &text, const QString &parent = QStringLiteral("root"))
    {
        zel::vela::CloudItem item;
        item.type = text.endsWith(QLatin1Char('/')) ? "folder" : "file";
        item.name = QString(text).remove(QLatin1Char('/')).toStdString();
        item.id = item.name;
        item.parentId = parent.toStdString();
        return item;
    }
    /// A page of a folder in the folder "root", or of "root" itself.
    static zel::vela::GetInfoListResult page(
        const QString &folder, const QStringList &items, bool more = false, int64_t version = 1)
    {
        zel::vela::GetInfoListResult result;
        const bool root = folder == QLatin1String("root");
        result.folder = item(folder + QLatin1Char('/'), root ? QString() : QStringLiteral("root"));
        result.folder.name = root ? "" : result.folder.name;
        for (const QString &text : items)
            result.items.push_back(item(text, folder));
        result.total = int64_t(result.items.size());
        result.hasMore = more;
        result.listVersion = version;
        return result;
    }

    QString asynCallEx(
        const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot) override
    {
        asked << method;
        if (method == QLatin1String("getInfoList"))
            listed << QString::fromStdString(
                static_cast<const zel::vela::GetInfoListArg *>(arg.data())->parentId);
        if (method == QLatin1String("recoverRecycles"))
            for (const std::string &one :
                static_cast<const zel::vela::RecoverRecyclesArg *>(arg.data())->recycleIds)
                recovered << QString::fromStdString(one);
        const QString id = QString::number(++m_last);
        if (receiver)
            m_waiting.append({id, method, receiver, slot.toLatin1()});
        return id;
    }

    /// Answers the oldest request of the method that waits; false when there is none.
    template <class Result> bool answer(const char *method, const Result &result, bool ok = true)
    {
        for (int i = 0; i < m_waiting.size(); ++i)
            if (m_waiting.at(i).method == QLatin1String(method))
                return call(m_waiting.takeAt(i), ok, &result);
        return false;
    }
    template <class Result> bool refuse(const char *method, Result result, int state)
    {
        result.state = state;
        return answer(method, result);
    }
    int waiting(const char *method) const
    {
        int count = 0;
        for (const Waiting &one : m_waiting)
            count += one.method == QLatin1String(method);
        return count;
    }

    void connectNow() { Q_EMIT velaEventObject()->SocketConnected(); }
    void disconnectNow() { Q_EMIT velaEventObject()->SocketDisConnected(); }
    template <class Push> void push(const char *method, const Push &push)
    {
        Q_EMIT velaEventObject()->signal_pushArrived(QLatin1String(method), QVariant::fromValue(push));
    }
    void tellRemoved(const QString &id, const QString &parent = QStringLiteral("root"))
    {
        zel::vela::NotifyFileActionArg action;
        action.action = "remove";
        action.item = item(id, parent);
        push("notifyFileAction", action);
    }
    void tellCreated(const QString &text, const QString &parent = QStringLiteral("root"))
    {
        NotifyFileCreationArg creation;
        creation.item = item(text, parent);
        Q_EMIT velaEventObject()->signal_notifyFileCreation(creation);
    }
    void tellProperty(const zel::vela::CloudItem &item, const char *field)
    {
        zel::vela::NotifyFilePropertyArg property;
        property.items = {item};
        property.changedFields = {field};
        push("notifyFileProperty", property);
    }

    QStringList asked;     ///< methods
    QStringList listed;    ///< folders of "getInfoList"
    QStringList recovered; ///< ids in the bin, of "recoverRecycles"

private:
    struct Waiting
    {
        QString id;
        QString method;
        QObject *receiver;
        QByteArray slot;
    };

    static bool call(const Waiting &waiting, bool ok, const void *result)
    {
        const QMetaObject *type = waiting.receiver->metaObject();
        for (int i = 0; i < type->methodCount(); ++i) {
            const QMetaMethod method = type->method(i);
            if (method.name() != waiting.slot)
                continue;
            const QByteArray record = method.parameterTypes().at(2);
            return method.invoke(waiting.receiver, Qt::DirectConnection, Q_ARG(bool, ok),
                Q_ARG(QString, waiting.id), QGenericArgument(record.constData(), result));
        }
        return false;
    }

    QVector<Waiting> m_waiting;
    int m_last = 0;
};

Q_DECLARE_METATYPE(zel::vela::NotifyFileActionArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFilePropertyArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFileTransferArg)
