#include "widgets/loadingindicator.h"

#include "klitestyle.h"
#include "kskin.h"

#include <QPainter>
#include <QTimerEvent>
#include <cmath>

namespace {
constexpr int FirstMoment = 300; // ms
constexpr int Tick = 60;         // ms
constexpr int TicksPerRound = 24;
constexpr int Dots = 3;
} // namespace

LoadingIndicator::LoadingIndicator(const QString &name, QWidget *parent) : QWidget(parent)
{
    setAccessibleName(name);
}

void LoadingIndicator::showEvent(QShowEvent *event)
{
    m_step = 0;
    m_delay.start(FirstMoment, this);
    QWidget::showEvent(event);
}

void LoadingIndicator::hideEvent(QHideEvent *event)
{
    m_delay.stop();
    m_animation.stop();
    m_shows = false;
    QWidget::hideEvent(event);
}

void LoadingIndicator::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_delay.timerId()) {
        m_delay.stop();
        m_shows = true;
        if (KSkin::animationsEnabled())
            m_animation.start(Tick, this);
    }
    ++m_step;
    update();
}

void LoadingIndicator::paintEvent(QPaintEvent *)
{
    if (!m_shows)
        return;
    const qreal size = KLiteStyle::dpiScaledF(8);
    const qreal pitch = size * 2;
    const QPointF middle = QRectF(rect()).center();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < Dots; ++i) {
        const double phase = 2 * M_PI * (double(m_step) / TicksPerRound - double(i) / (2 * Dots));
        QColor color = KSkin::color(KSkin::Color::Accent);
        color.setAlphaF(0.35 + 0.3 * (1 + std::sin(phase)));
        painter.setBrush(color);
        painter.drawEllipse(middle + QPointF((i - (Dots - 1) / 2.0) * pitch, 0), size / 2, size / 2);
    }
}
