#pragma once

#include <QObject>
#include <QPointer>
#include <optional>

class KCloudSvrProxy;
namespace zel::vela {
class VelaIpcResult;
}

/// What the cloud service keeps for the settings to show and change; asked anew whenever the service comes.
/// GUI thread.
class CloudOptions final : public QObject
{
    Q_OBJECT
public:
    /// `cloud` is not owned, may be null and may be destroyed first.
    explicit CloudOptions(KCloudSvrProxy *cloud, QObject *parent = nullptr);

    /// Whether file managers list the drive among their places; nothing while that is not known.
    std::optional<bool> isDriveListed() const { return m_driveListed; }
    void setDriveListed(bool listed); ///< changed() or failed() follows

    qint64 cacheSize() const
    {
        return m_cacheSize;
    } ///< bytes of copies of cloud documents; 0 also while not known

Q_SIGNALS:
    void changed();
    void failed(); ///< the setting is as it was

public Q_SLOTS:
    void onGetCloudDiskEntryVisibleFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);
    void onSetCloudDiskEntryVisibleFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);
    void onGetCloudFileCacheSizeFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);

private:
    void ask();
    void forget();
    void call(const QString &method, const QMap<QString, QString> &arguments, const QString &slot);

    QPointer<KCloudSvrProxy> m_cloud;
    std::optional<bool> m_driveListed;
    qint64 m_cacheSize = 0;
};
