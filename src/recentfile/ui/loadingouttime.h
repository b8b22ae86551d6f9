#pragma once

#include "widgets/emptystate.h"

#include <QTimer>

/// Watches that something does not take too long. GUI thread.
class LoadingOuttime : public QObject
{
    Q_OBJECT
public:
    explicit LoadingOuttime(int milliseconds, QObject *parent = nullptr);

    void start() { m_timer.start(); } ///< again: from the beginning
    void stop() { m_timer.stop(); }
    bool isRunning() const { return m_timer.isActive(); }

Q_SIGNALS:
    void sigTimeout(); ///< once for each start() that was not stopped in time

private:
    QTimer m_timer;
};

/// What the page shows when loading takes too long.
class ZelBoxLoadingOuttimeWidget : public EmptyStateWidget
{
    Q_OBJECT
public:
    explicit ZelBoxLoadingOuttimeWidget(QWidget *parent = nullptr);

Q_SIGNALS:
    void retryRequested();
    void feedbackRequested();
};
