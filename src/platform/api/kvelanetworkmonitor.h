#pragma once

#include "zelplatform_export.h"

#include <QObject>

/// Knows whether the cloud service can be reached. One for the process. GUI thread.
class ZELPLATFORM_EXPORT KVelaNetworkMonitor final : public QObject
{
    Q_OBJECT
public:
    /// Made when there is none yet; lives as long as the application object.
    static KVelaNetworkMonitor *instance();

    bool isOnline() const { return m_state == State::Online; } ///< false also while nothing is known

    /// For whoever holds the link. Tells each change once.
    void setOnline(bool online);

Q_SIGNALS:
    void velaOffline(); ///< the service cannot be reached any more, or not at all
    void velaOnline();

private:
    using QObject::QObject;
    enum class State { Unknown, Online, Offline };
    State m_state = State::Unknown;
};
