#include "base/boundedjobs.h"

#include "base/detachedjob.h"

#include <QFile>

namespace zel {

void BoundedJobs::start(const QString &path, std::function<void()> work, QObject *context, const Then &then)
{
    forgetReturned();
    const std::string file = QFile::encodeName(path).toStdString();
    if (m_running.size() >= Most || m_dead.contains(file)) {
        QMetaObject::invokeMethod(
            context, [then] { then(false); }, Qt::QueuedConnection);
        return;
    }
    const auto returned = std::make_shared<std::atomic_bool>(false);
    m_running.push_back(returned);
    // Goes with the work: also when that is never begun.
    std::shared_ptr<void> whenGone(nullptr, [returned](void *) { *returned = true; });
    auto *job =
        new DetachedJob([work = std::move(work), whenGone = std::move(whenGone)] { work(); }, context);
    QObject::connect(job, &DetachedJob::done, context, [=, this](bool inTime) {
        if (!inTime) {
            m_late.push_back(returned);
            m_dead.add(file);
        }
        then(inTime); // last: may destroy the context
    });
    job->start(m_patience);
}

// With the last late one back, every place answers again.
void BoundedJobs::forgetReturned()
{
    const auto hasReturned = [](const Flag &flag) { return flag->load(); };
    std::erase_if(m_running, hasReturned);
    std::erase_if(m_late, hasReturned);
    if (m_late.empty())
        m_dead = {};
}

} // namespace zel
