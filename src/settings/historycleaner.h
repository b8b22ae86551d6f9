#pragma once

#include "kcloudask.h"

#include <QObject>
#include <QPointer>

class KCloudSvrProxy;

/// Clears the history of documents wherever the box keeps it: in the store and, while somebody is signed in,
/// on the list that the service keeps for all of the user's devices. GUI thread.
class HistoryCleaner final : public QObject
{
    Q_OBJECT
public:
    enum class Outcome {
        Cleared,
        DesktopListKept, ///< that list could not be written; what is on it is hidden in the box
        ServiceKept,     ///< nobody is signed in, or the service did not answer or refused
    };
    Q_ENUM(Outcome)

    /// `cloud` is not owned, may be null and may be destroyed first.
    explicit HistoryCleaner(KCloudSvrProxy *cloud, QObject *parent = nullptr);
    ~HistoryCleaner() override; ///< what was begun is done nevertheless, as far as the store goes

    /// finished() follows exactly once; while it is under way further calls do nothing.
    void clear();

Q_SIGNALS:
    void finished(HistoryCleaner::Outcome outcome);

private:
    void onStoreCleared(bool completely);

    QPointer<KCloudSvrProxy> m_cloud;
    bool m_busy = false;
    CloudCall m_asking; ///< the service; the store comes next
    bool m_serviceKept = false;
};
