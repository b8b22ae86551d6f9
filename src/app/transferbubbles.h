#pragma once

#include "base/dbus/desktopnotification.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <functional>

class KCloudSvrProxy;
namespace zel::vela {
class NotifyFileTransferArg;
class VelaIpcResult;
} // namespace zel::vela

/// Tells by a message of the desktop how transfers ended that nobody watched: once none is under way any
/// more, and as often as the user wishes (see CloudOptions::Bubbles). GUI thread.
class TransferBubbles final : public QObject
{
    Q_OBJECT
public:
    /// `isWatched`: the user has the box before him at this moment.
    TransferBubbles(std::function<bool()> isWatched, QObject *parent);

    void follow(KCloudSvrProxy *cloud); ///< not owned; the same again does nothing

Q_SIGNALS:
    void transfersRequested(); ///< the message was clicked

public Q_SLOTS:
    void onGetTransBubbleFrequncyFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);

private:
    void take(const zel::vela::NotifyFileTransferArg &transfer);
    void ask();
    void tell();

    std::function<bool()> m_isWatched;
    QPointer<KCloudSvrProxy> m_cloud;
    QSet<QByteArray> m_underWay; ///< ids
    QStringList m_done;          ///< names of what ended since the last message
    QStringList m_failed;
    QTimer m_quiet{this}; ///< one that follows at once belongs to them
    zel::DesktopNotification m_message;
};
