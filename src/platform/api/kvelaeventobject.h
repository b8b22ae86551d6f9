#pragma once

#include "zelplatform_export.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace zel::vela {
class CloudItem;
class NotifyFileCreationArg;
class NotifyUserThumbnailArg;
} // namespace zel::vela

// Signals are looked up by their text, which names these two without their namespace.
using zel::vela::NotifyFileCreationArg;
using zel::vela::NotifyUserThumbnailArg;

/// Tells what the service tells unasked, and how its connection does. Only the proxy emits. GUI thread.
class ZELPLATFORM_EXPORT KVelaEventObject final : public QObject
{
    Q_OBJECT
public:
    /// Registers the types of the signals, so that they can be queued.
    explicit KVelaEventObject(QObject *parent = nullptr);

Q_SIGNALS:
    void SocketConnected();    ///< right after KCloudSvrProxy::velaInited()
    void SocketDisConnected(); ///< before what was in flight ends

    void signal_vipInfoChanged(const QVariant &info); ///< a QVariantMap
    void signal_notifyRecentFileListChanged();
    void signal_notifyFileCreation(const NotifyFileCreationArg &arg);
    void signal_notifyNewMsgList(const QStringList &newMsgList); ///< ids, newest first
    void signal_notifyActionsMapForReadMessage(const QMap<QString, QString> &mapArgs);
    void signal_notifyShareDiscussion(const QMap<QString, QString> &mapArgs);
    void signal_notifyUserThumbnail(const NotifyUserThumbnailArg &arg);
    void signal_notifyRecentFileStateChanged(const QVector<zel::vela::CloudItem> &items);

    /// Any push without a signal of its own. `record` holds the push's record under its own metatype, which
    /// Q_DECLARE_METATYPE of the record's class makes readable with QVariant::value().
    void signal_pushArrived(const QString &method, const QVariant &record);
    void signal_notify(
        const QString &name, const QVariant &first, const QVariant &second); ///< KCloudSvrProxy::notify()
};
