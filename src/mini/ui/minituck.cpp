#include "mini/ui/minituck.h"

#include "klook.h"
#include "kskin.h"

#include <chrono>

using namespace std::chrono_literals;

MiniTuck::MiniTuck(QObject *parent) : QObject(parent)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(400ms);
    connect(&m_patience, &QTimer::timeout, this, [this] { slideTo(0); });
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_part = value.toReal();
        Q_EMIT partChanged(m_part);
    });
}

void MiniTuck::setAllowed(bool allowed)
{
    m_allowed = allowed;
    evaluate();
}

void MiniTuck::setPointerInside(bool inside)
{
    m_pointerInside = inside;
    m_asked = m_asked && !inside;
    evaluate();
}

void MiniTuck::setActive(bool active)
{
    m_active = active;
    m_asked = m_asked && !active;
    evaluate();
}

void MiniTuck::setHeld(bool held)
{
    m_held = held;
    evaluate();
}

void MiniTuck::comeOut()
{
    m_asked = !m_pointerInside && !m_active;
    evaluate();
}

void MiniTuck::reset()
{
    m_slide.stop();
    m_patience.stop();
    m_part = m_target = 1;
    m_pointerInside = m_active = m_held = m_asked = false;
}

bool MiniTuck::isWanted() const
{
    return !m_allowed || m_pointerInside || m_active || m_held || m_asked;
}

void MiniTuck::evaluate()
{
    if (isWanted()) {
        m_patience.stop();
        slideTo(1);
    } else if (m_target > 0 && !m_patience.isActive()) {
        m_patience.start();
    }
}

void MiniTuck::slideTo(int part)
{
    if (part == m_target)
        return;
    m_target = part;
    m_slide.stop();
    // A long way takes the whole time, what is left of a way its share.
    const int time = qRound(KSkin::animationDuration(zel::look::MotionSlow) * qAbs(part - m_part));
    if (time == 0) {
        m_part = part;
        Q_EMIT partChanged(m_part);
        return;
    }
    m_slide.setStartValue(m_part);
    m_slide.setEndValue(qreal(part));
    m_slide.setDuration(time);
    m_slide.start();
}
