#include "trashqueue.h"

#include "base/detachedjob.h"

#include <QDeadlineTimer>

namespace zel::platform {
namespace {

constexpr int MostThreads = 4;
constexpr std::chrono::seconds EndPatience(1);

trash::Result noAnswer()
{
    trash::Result result;
    result.logText = QStringLiteral("no answer in time");
    return result;
}

} // namespace

TrashQueue::TrashQueue(QObject *parent, std::chrono::milliseconds patience)
    : QObject(parent), m_patience(patience)
{
}

// A user who deletes and leaves at once has deleted.
TrashQueue::~TrashQueue()
{
    const QDeadlineTimer end(EndPatience);
    if (!m_job || !m_job->waitFor(EndPatience) || m_requests.size() < 2)
        return;
    std::vector<Request> rest(m_requests.begin() + 1, m_requests.end());
    DetachedJob last(
        [rest = std::move(rest)] {
            for (const Request &request : rest)
                request.work();
        },
        nullptr);
    const auto left = end.remainingTimeAsDuration();
    last.start({});
    last.waitFor(std::chrono::duration_cast<std::chrono::milliseconds>(left));
}

void TrashQueue::add(Work work, Then then)
{
    m_requests.push_back({std::move(work), std::move(then)});
    if (!m_job)
        next();
}

void TrashQueue::next()
{
    if (m_requests.empty())
        return;
    const bool isFull = *m_threads >= MostThreads; // all of them hang
    const auto result = std::make_shared<trash::Result>(noAnswer());
    ++*m_threads; // here, as a thread may get its first turn late
    std::shared_ptr<void> whenGone(nullptr, [count = m_threads](void *) { --*count; }); // or was never begun
    m_job =
        new DetachedJob([result, whenGone = std::move(whenGone),
                            work = isFull ? Work(noAnswer) : m_requests.front().work] { *result = work(); },
            this);
    connect(m_job, &DetachedJob::done, this,
        [this, result](bool inTime) { finish(inTime ? *result : noAnswer()); });
    m_job->start(m_patience);
}

void TrashQueue::finish(const trash::Result &result)
{
    m_job = nullptr;
    const Then then = std::move(m_requests.front().then);
    m_requests.erase(m_requests.begin());
    next();
    then(result); // last: it may destroy this
}

} // namespace zel::platform
