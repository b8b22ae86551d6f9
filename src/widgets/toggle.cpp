#include "widgets/toggle.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/focusring.h"

#include <QPainter>
#include <QVariantAnimation>

namespace {
constexpr QSize TrackSize(36, 20);
constexpr int FocusRoom = 3; // around the track
constexpr qreal KnobInset = 4;
} // namespace

Toggle::Toggle(const QString &name, QWidget *parent)
    : QCheckBox(name, parent), m_motion(new QVariantAnimation(this))
{
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_motion, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_position = value.toReal();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, &Toggle::moveKnob);
}

// Who sets it may keep toggled() to himself; a click comes by toggled() alone.
void Toggle::checkStateSet()
{
    QCheckBox::checkStateSet();
    moveKnob(isChecked());
}

void Toggle::moveKnob(bool checked)
{
    const int duration = isVisible() ? KSkin::animationDuration(zel::look::MotionFast) : 0;
    const qreal target = checked ? 1 : 0;
    m_motion->stop();
    if (duration == 0) {
        m_position = target;
        update();
        return;
    }
    m_motion->setDuration(duration);
    m_motion->setEasingCurve(QEasingCurve::OutCubic);
    m_motion->setStartValue(m_position);
    m_motion->setEndValue(target);
    m_motion->start();
}

QSize Toggle::sizeHint() const
{
    return KLiteStyle::dpiScaledSize(TrackSize + QSize(2 * FocusRoom, 2 * FocusRoom));
}

void Toggle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF track(QPointF(), QSizeF(KLiteStyle::dpiScaledSize(TrackSize)));
    track.moveCenter(QRectF(rect()).center());
    const qreal radius = track.height() / 2;
    const bool on = isChecked();

    const bool hovered = isEnabled() && underMouse();
    QColor ground = on ? KSkin::color(KSkin::Color::Accent)
                       : KSkin::color(hovered ? KSkin::Color::Hover : KSkin::Color::Surface);
    QColor knob = KSkin::color(on ? KSkin::Color::OnAccent : KSkin::Color::ControlBorder);
    QColor edge = on ? ground : knob;
    if (!isEnabled()) {
        edge = KSkin::color(KSkin::Color::TextDisabled);
        ground = on ? edge : QColor(Qt::transparent);
        knob = on ? KSkin::color(KSkin::Color::Surface) : edge;
    }
    const qreal line = KLiteStyle::dpiScaledF(1.25);
    painter.setPen(QPen(edge, line));
    painter.setBrush(ground);
    painter.drawRoundedRect(
        track.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius - line / 2, radius - line / 2);

    const qreal inset = KLiteStyle::dpiScaledF(KnobInset);
    const qreal side = track.height() - 2 * inset;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const qreal travel = (track.width() - track.height()) * (mirrored ? 1 - m_position : m_position);
    painter.setPen(Qt::NoPen);
    painter.setBrush(knob);
    painter.drawEllipse(QRectF(track.left() + inset + travel, track.top() + inset, side, side));
    zel::paintFocusRing(&painter, this, QRectF(rect()), QRectF(rect()).height() / 2);
}
