#pragma once

#include "zelplatform_export.h"

#include <QObject>
#include <QSet>

/// Tells when the jobs that the runtime runs at start-up are done. GUI thread.
/// With no job begun it counts as finished, so the box starts without waiting.
class ZELPLATFORM_EXPORT KThreadTiming : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    bool isThreadTimingFinished() const;
    void beginJob(const QString &name); ///< a name begun twice counts once
    void endJob(const QString &name);   ///< the end of the last open job emits threadTiming()

Q_SIGNALS:
    void threadTiming(); ///< emitted each time the set of open jobs becomes empty

private:
    QSet<QString> m_jobs;
};
