#pragma once

#include "kcloudask.h"
#include "kcloudsvrproxy.h"
#include "support/filled.h"
#include "support/text.h"

#include "drive_types.h"
#include "notify_types.h"
#include "recent_types.h"
#include "recycle_types.h"
#include "transfer_types.h"

#include <QPointer>
#include <QVector>

/// A proxy without a service: keeps the requests until the test answers them. Items of the drive are written
/// "name", folders "name/"; an item's id is its name without the slash.
class FakeCloud : public KCloudSvrProxy
{
    Q_OBJECT
public:
    QString user;             ///< signed in; empty: nobody
    bool isLoginKnown = true; ///< the service has said who is signed in
    QStringList asked;        ///< method and what matters of its record: "cloudItemsMoveTo report -> a (0)"
    QStringList wanted;       ///< of these what changes something, not what reads

    QStringList askedFor(const char *method) const; ///< without its name

    void logIn(const QString &name)
    {
        user = name;
        Q_EMIT loginStatusChanged();
    }
    bool isLogined() override { return !user.isEmpty(); }
    bool getUserLoginInfo(KVelaIpcLoginCache *cache) override
    {
        if (!isLoginKnown)
            return false;
        *cache = {};
        cache->userId = user;
        cache->loginState = user.isEmpty() ? 0 : 1;
        return true;
    }

    void startVelaProcess(const QString &) override { asked << "start"_s; }
    QString asynCallEx(
        const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot) override;

    /// Answers the oldest request of the method that waits, as the link does it; false when there is none.
    /// Not `ok`: the connection is lost instead.
    template <class Result> bool answer(const char *method, const Result &result, bool ok = true)
    {
        for (int i = 0; i < m_waiting.size(); ++i) {
            const Waiting one = m_waiting.at(i);
            if (one.method != QLatin1String(method) || !one.receiver)
                continue;
            m_waiting.removeAt(i);
            const zel::CloudEnding ending{
                ok ? CloudEnd::Answered : CloudEnd::Gone, {}, ok ? &result : nullptr};
            return QMetaObject::invokeMethod(one.receiver, one.slot.constData(), Qt::DirectConnection,
                Q_ARG(bool, ok), Q_ARG(QString, one.id), Q_ARG(zel::CloudEnding, ending));
        }
        return false;
    }
    /// The same for a slot that takes the record itself.
    bool answerSlot(const char *slot, const QGenericArgument &result)
    {
        const auto one = std::find_if(m_waiting.begin(), m_waiting.end(),
            [slot](const Waiting &waiting) { return waiting.receiver && waiting.slot == slot; });
        return one != m_waiting.end()
            && QMetaObject::invokeMethod(
                one->receiver, slot, Q_ARG(bool, true), Q_ARG(QString, one->id), result);
    }
    template <class Result> bool refuse(const char *method, Result result, int state)
    {
        result.state = state;
        return answer(method, result);
    }
    bool answerRemove(bool ok, int state = 0, const char *recycleId = "bin")
    {
        const auto result =
            filled(&zel::vela::RemoveResult::state, state, &zel::vela::RemoveResult::recycleId, recycleId);
        return answer("remove", result, ok);
    }
    int waiting(const char *method) const
    {
        int count = 0;
        for (const Waiting &one : m_waiting)
            count += one.receiver && one.method == QLatin1String(method);
        return count;
    }
    bool isAnyWaiting() const { return !m_waiting.isEmpty(); }

    static zel::vela::CloudItem item(const QString &text, const QString &parent = "root"_s);
    /// A page of a folder in the folder "root", or of "root" itself.
    static zel::vela::GetInfoListResult page(
        const QString &folder, const QStringList &items, bool more = false, int64_t version = 1);

    void connectNow() { Q_EMIT velaEventObject()->SocketConnected(); }
    void disconnectNow() { Q_EMIT velaEventObject()->SocketDisConnected(); }
    template <class Push> void push(const char *method, const Push &push)
    {
        Q_EMIT velaEventObject()->signal_pushArrived(QLatin1String(method), QVariant::fromValue(push));
    }
    void tellRemoved(const QString &id, const QString &parent = "root"_s);
    void tellCreated(const QString &text, const QString &parent = "root"_s);
    void tellProperty(const zel::vela::CloudItem &item, const char *field);

private:
    struct Waiting
    {
        QString id;
        QString method;
        QPointer<QObject> receiver;
        QByteArray slot;
    };

    QVector<Waiting> m_waiting;
    int m_last = 0;
};

Q_DECLARE_METATYPE(zel::vela::NotifyFileActionArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFilePropertyArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFileTransferArg)
