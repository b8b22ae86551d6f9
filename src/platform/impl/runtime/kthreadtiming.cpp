#include "kthreadtiming.h"

bool KThreadTiming::isThreadTimingFinished() const
{
    return m_jobs.isEmpty();
}

void KThreadTiming::beginJob(const QString &name)
{
    m_jobs.insert(name);
}

void KThreadTiming::endJob(const QString &name)
{
    if (m_jobs.remove(name) && m_jobs.isEmpty())
        Q_EMIT threadTiming();
}
