#pragma once

#include "kcloudsvrproxy.h"

#include "drive_types.h"
#include "link_types.h"
#include "recent_types.h"
#include "recycle_types.h"

#include <QMetaObject>
#include <QStringList>

/// A proxy without a service: keeps the requests of the Recent page until the test answers them.
class FakeCloud : public KCloudSvrProxy
{
    Q_OBJECT
public:
    QString user;
    QStringList asked; ///< method and what matters of its record

    void logIn(const QString &name)
    {
        user = name;
        Q_EMIT loginStatusChanged();
    }
    bool isLogined() override { return !user.isEmpty(); }
    bool getUserLoginInfo(KVelaIpcLoginCache *cache) override
    {
        *cache = {};
        cache->userId = user;
        cache->loginState = user.isEmpty() ? 0 : 1;
        return true;
    }

    QString asynCallEx(
        const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot) override
    {
        asked << QString(method + QLatin1Char(' ') + textOf(arg)).trimmed();
        const QString id = QString::number(++m_last);
        if (receiver)
            m_waiting.append({id, receiver, slot.toLatin1()});
        return id;
    }

    bool isAnyWaiting() const { return !m_waiting.isEmpty(); }
    /// Answers the oldest request that waits, on its slot as the link does it.
    template <class Result> bool answer(bool ok, const char *type, const Result &result)
    {
        const Waiting next = m_waiting.takeFirst();
        return QMetaObject::invokeMethod(next.receiver, next.slot.constData(), Qt::DirectConnection,
            Q_ARG(bool, ok), Q_ARG(QString, next.id), QGenericArgument(type, &result));
    }
    bool answerRemove(bool ok, int state = 0, const char *recycleId = "bin")
    {
        zel::vela::RemoveResult result;
        result.state = state;
        result.recycleId = recycleId;
        return answer(ok, "zel::vela::RemoveResult", result);
    }

private:
    struct Waiting
    {
        QString id;
        QObject *receiver;
        QByteArray slot;
    };

    template <class Record> static const Record &as(const QGenericArgument &arg)
    {
        return *static_cast<const Record *>(arg.data());
    }

    static QString textOf(const QGenericArgument &arg)
    {
        using namespace zel::vela;
        const QByteArray type = arg.name();
        std::string text;
        if (type == "RemoveArg") {
            const auto &remove = as<RemoveArg>(arg);
            text = remove.item.id.empty() ? remove.extraParam.at("path") : "id " + remove.item.id;
        } else if (type == "RecoverRecyclesArg") {
            text = as<RecoverRecyclesArg>(arg).recycleIds.at(0);
        } else if (type == "VelaIpcArg") {
            text = as<VelaIpcArg>(arg).nameSpace + " " + as<VelaIpcArg>(arg).method;
            for (const auto &[key, value] : as<VelaIpcArg>(arg).argMap)
                text += " " + key + "=" + value;
        } else if (type == "ShowFileShareDlgArg") {
            const auto &share = as<ShowFileShareDlgArg>(arg);
            text = share.fileId + "," + share.fileName + "," + share.filePath + ","
                + std::to_string(share.accessTime) + "," + share.caller;
        }
        return QString::fromStdString(text);
    }

    QVector<Waiting> m_waiting;
    int m_last = 0;
};
