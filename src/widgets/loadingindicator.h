#pragma once

#include <QBasicTimer>
#include <QWidget>

/// "Loading" as three quiet dots. GUI thread. Shows nothing for the first moment, so that a quick load does
/// not flash; has no timer while hidden. Stands still when nothing is to move.
class LoadingIndicator : public QWidget
{
    Q_OBJECT
public:
    explicit LoadingIndicator(const QString &name, QWidget *parent = nullptr); ///< accessible name

    bool isAnimating() const { return m_animation.isActive(); }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QBasicTimer m_delay;
    QBasicTimer m_animation;
    int m_step = 0;
    bool m_shows = false; ///< the first moment is over
};
