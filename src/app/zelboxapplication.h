#pragma once

#include "kcoreapplication.h"

#include <QAbstractNativeEventFilter>
#include <QPointer>

class ZelBoxCloudSvr;
class ZelBoxCore;

/// The application object of the stand-alone process. GUI thread. Takes the core's windows down when it goes,
/// because Qt cannot destroy a shown widget after its application.
class ZelBoxApplicationIndependentProcesses : public KCoreApplication, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    /// Makes the cloud service object, as its child.
    ZelBoxApplicationIndependentProcesses(int &argc, char **argv);
    ~ZelBoxApplicationIndependentProcesses() override;

    static bool isRunning(); ///< false: the box is a guest in a host's process

    /// Starts the core; true when the caller is to run the event loop.
    bool start(const QString &cmdline);

    bool nativeEventFilter(const QByteArray &eventType, void *message, long *result) override;

private:
    QPointer<ZelBoxCloudSvr> m_cloudService;
    QPointer<ZelBoxCore> m_core;
};
