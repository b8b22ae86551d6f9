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
    /// How often a message of the desktop tells that transfers have ended.
    enum class Bubbles { EachTime, OnceADay, Never };

    /// `cloud` is not owned, may be null and may be destroyed first.
    explicit CloudOptions(KCloudSvrProxy *cloud, QObject *parent = nullptr);

    /// Whether file managers list the drive among their places; nothing while that is not known.
    std::optional<bool> isDriveListed() const { return m_driveListed; }
    void setDriveListed(bool listed); ///< changed() or failed() follows

    std::optional<Bubbles> bubbles() const { return m_bubbles; } ///< nothing while that is not known
    void setBubbles(Bubbles bubbles);                            ///< changed() or failed() follows
    /// What an answer to "getTransBubbleFrequncy" or "setTransBubbleFrequncy" says; nothing after a failure.
    static std::optional<Bubbles> bubblesOf(bool bOk, const zel::vela::VelaIpcResult &answer);

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
    void onGetTransBubbleFrequncyFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);
    void onSetTransBubbleFrequncyFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);
    void onGetCloudFileCacheSizeFinished(
        bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);

private:
    void ask();
    void forget();
    void call(const QString &method, const QMap<QString, QString> &arguments, const QString &slot);

    QPointer<KCloudSvrProxy> m_cloud;
    std::optional<bool> m_driveListed;
    std::optional<Bubbles> m_bubbles;
    qint64 m_cacheSize = 0;
};
