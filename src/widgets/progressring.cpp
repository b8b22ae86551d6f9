#include "widgets/progressring.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

#include <QPainter>
#include <QVariantAnimation>

namespace {
constexpr qreal Stroke = 2;
constexpr int TurnTime = 1000;     // ms
constexpr qreal BusyShare = 0.28;  // of the circle
constexpr qreal FullCircle = 5760; // in sixteenths of a degree, as QPainter counts
} // namespace

ProgressRing::ProgressRing(const QString &name, QWidget *parent)
    : QProgressBar(parent), m_turning(new QVariantAnimation(this))
{
    setAccessibleName(name);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_turning->setStartValue(0.0);
    m_turning->setEndValue(1.0);
    m_turning->setDuration(TurnTime);
    m_turning->setLoopCount(-1);
    connect(m_turning, &QVariantAnimation::valueChanged, this, QOverload<>::of(&QWidget::update));
}

QSize ProgressRing::sizeHint() const
{
    return KLiteStyle::dpiScaledSize({zel::look::Glyph, zel::look::Glyph});
}

void ProgressRing::paintEvent(QPaintEvent *)
{
    const bool busy = minimum() == maximum();
    const bool turns = busy && KSkin::animationsEnabled();
    if (turns && m_turning->state() != QAbstractAnimation::Running)
        m_turning->start();
    else if (!turns)
        m_turning->stop();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = KLiteStyle::dpiScaledF(Stroke);
    const qreal side = qMin(this->width(), height()) - width;
    QRectF ring(0, 0, side, side);
    ring.moveCenter(QRectF(rect()).center());
    QColor groove = KSkin::color(KSkin::Color::Text);
    groove.setAlphaF(0.14);
    painter.setPen(QPen(groove, width));
    painter.drawEllipse(ring);

    const qreal range = qMax(1, maximum() - minimum());
    const qreal share = busy ? BusyShare : qBound(0.0, (value() - minimum()) / range, 1.0);
    const qreal turned = turns ? m_turning->currentValue().toReal() : 0;
    painter.setPen(QPen(KSkin::color(KSkin::Color::Accent), width, Qt::SolidLine, Qt::RoundCap));
    if (share > 0) // from twelve o'clock, clockwise
        painter.drawArc(ring, qRound(FullCircle / 4 - turned * FullCircle), -qRound(share * FullCircle));
}

void ProgressRing::hideEvent(QHideEvent *event)
{
    m_turning->stop();
    QProgressBar::hideEvent(event);
}
