#pragma once

#include "recentfile/recentnamekeys.h"

#include <QObject>
#include <memory>
#include <stop_token>

/// Sorts many names on a thread of the pool. GUI thread. One job at a time: a new one drops the last.
class RecentNameSorter final : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~RecentNameSorter() override;

    void start(std::vector<zel::recent::NamedSlot> records); ///< finished() follows unless dropped
    void drop();
    bool isRunning() const { return m_job != nullptr; }
    zel::recent::NameOrder takeResult() { return std::move(m_result); } ///< in a slot of finished()

Q_SIGNALS:
    void finished();

private:
    struct Job;
    static void run(const std::shared_ptr<Job> &job);
    void onDone(const std::shared_ptr<Job> &job);

    std::shared_ptr<Job> m_job;
    zel::recent::NameOrder m_result;
};
