#pragma once

#include "kcloudask.h"
#include "kcloudsvrproxy.h"

#include <QObject>
#include <optional>

namespace zel::cloudipc {

/// The receiver of one request of zel::ask(), and a child of who asked; goes by itself after its end. GUI
/// thread.
class CloudRequest final : public QObject
{
    Q_OBJECT
public:
    using Then = std::function<void(const CloudEnding &)>;
    using Send = std::function<QString(KCloudSvrProxy *proxy, QObject *receiver, const QString &slot)>;

    /// Null `proxy`, or a `send` that returns no id, ends it as Gone; no `send` as Rejected.
    CloudRequest(KCloudSvrProxy *proxy, QObject *parent, Then then, const Send &send);

    bool isWaiting() const { return bool(m_then); }
    void cancel();

public Q_SLOTS:
    void onEnded(bool bOk, const QString &requestId, const zel::CloudEnding &ending);

private:
    void endLater(CloudEnd end, const QString &detail); ///< what else comes, but a cancel, is dropped
    void end(const CloudEnding &ending);

    QPointer<KCloudSvrProxy> m_proxy;
    Then m_then; ///< none: it has ended
    QString m_requestId;
    std::optional<CloudEnding> m_ending; ///< on a later turn
};

} // namespace zel::cloudipc
