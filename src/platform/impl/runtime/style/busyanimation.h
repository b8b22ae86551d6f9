#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QVector>

class QWidget;

namespace zel::style {

/// Drives the bars that show "busy without a known end". The timer runs only while such a bar was painted
/// since the last tick, so a hidden or finished one wakes nobody, and never when the desktop wants no motion.
/// GUI thread.
class BusyAnimation : public QObject
{
public:
    static BusyAnimation &instance();

    /// Called from paint: the phase (0 to 1) to draw, and the promise of a next frame for `widget`.
    qreal phaseFor(const QWidget *widget);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_timer;
    QElapsedTimer m_clock;
    QVector<QPointer<QWidget>> m_painted;
};

} // namespace zel::style
