#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/// Longest time in which the loop of this thread did not come round, from the beginning of its life on.
class LoopGap
{
public:
    LoopGap()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_longest = std::max(m_longest, m_watch.nsecsElapsed());
            m_watch.start();
        });
        m_watch.start();
        m_timer.start(0);
    }
    double ms() const { return double(m_longest) / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_watch;
    qint64 m_longest = 0;
};
