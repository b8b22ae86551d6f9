#pragma once

#include "lists/namekeys.h"

#include <QObject>
#include <memory>
#include <stop_token>

/// Sorts many names on a thread of the pool. GUI thread. One job at a time: a new one drops the last.
class NameSorter final : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~NameSorter() override;

    void start(std::vector<zel::NamedRecord> records); ///< finished() follows unless dropped
    void drop();
    bool isRunning() const { return m_job != nullptr; }
    zel::NameOrder takeResult() { return std::move(m_result); } ///< in a slot of finished()

Q_SIGNALS:
    void finished();

private:
    struct Job;
    static void run(const std::shared_ptr<Job> &job);
    void onDone(const std::shared_ptr<Job> &job);

    std::shared_ptr<Job> m_job;
    zel::NameOrder m_result;
};
