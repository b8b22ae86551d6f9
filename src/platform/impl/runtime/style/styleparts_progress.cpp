#include "styleparts.h"

#include "busyanimation.h"
#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QPainterPath>
#include <QProxyStyle>
#include <QStyleOptionProgressBar>
#include <QWidget>

namespace zel::style {
namespace {

constexpr int FrameInterval = 33; // ms
constexpr int BusyPeriod = 1400;  // ms
constexpr int BarThickness = 6;
constexpr qreal RestingPhase = 0.5;
constexpr qreal BusyShare = 0.3; // of the bar's length

QRectF barOf(const QStyleOptionProgressBar &option)
{
    const qreal thickness = KLiteStyle::dpiScaledF(BarThickness);
    const QRectF rect(option.rect);
    if (option.orientation == Qt::Vertical)
        return {rect.center().x() - thickness / 2, rect.top(), thickness, rect.height()};
    return {rect.left(), rect.center().y() - thickness / 2, rect.width(), thickness};
}

// The part of `bar` between two shares of its length, seen from where the bar fills from.
QRectF slice(const QStyleOptionProgressBar &option, const QRectF &bar, qreal from, qreal to)
{
    if (option.orientation == Qt::Vertical) {
        if (!option.bottomToTop)
            return {bar.left(), bar.top() + bar.height() * from, bar.width(), bar.height() * (to - from)};
        return {bar.left(), bar.bottom() - bar.height() * to, bar.width(), bar.height() * (to - from)};
    }
    const bool mirrored = (option.direction == Qt::RightToLeft) != option.invertedAppearance;
    const qreal begin = mirrored ? 1 - to : from;
    return {bar.left() + bar.width() * begin, bar.top(), bar.width() * (to - from), bar.height()};
}

void fillClipped(QPainter *painter, const QRectF &bar, const QRectF &part)
{
    const qreal radius = qMin(bar.width(), bar.height()) / 2;
    QPainterPath outline;
    outline.addRoundedRect(bar, radius, radius);
    painter->save();
    painter->setClipPath(outline, Qt::IntersectClip);
    fillRounded(painter, part, radius, KSkin::color(KSkin::Color::Accent));
    painter->restore();
}

} // namespace

BusyAnimation &BusyAnimation::instance()
{
    static BusyAnimation animation;
    return animation;
}

qreal BusyAnimation::phaseFor(const QWidget *widget)
{
    if (!KSkin::animationsEnabled())
        return RestingPhase;
    if (!m_clock.isValid())
        m_clock.start();
    QPointer<QWidget> target(const_cast<QWidget *>(widget));
    if (target && !m_painted.contains(target))
        m_painted.append(target);
    if (target && !m_timer.isActive())
        m_timer.start(FrameInterval, this);
    return qreal(m_clock.elapsed() % BusyPeriod) / BusyPeriod;
}

void BusyAnimation::timerEvent(QTimerEvent *)
{
    if (m_painted.isEmpty())
        m_timer.stop();
    const auto painted = std::exchange(m_painted, {});
    for (const QPointer<QWidget> &widget : painted) {
        if (widget)
            widget->update();
    }
}

void drawProgressGroove(const QStyleOptionProgressBar &option, QPainter *painter)
{
    const QRectF bar = barOf(option);
    fillRounded(painter, bar, qMin(bar.width(), bar.height()) / 2, grooveColor());
}

void drawProgressContents(const QStyleOptionProgressBar &option, QPainter *painter, const QWidget *w)
{
    const QRectF bar = barOf(option);
    if (option.minimum == option.maximum) {
        const qreal head = BusyAnimation::instance().phaseFor(w) * (1 + BusyShare);
        fillClipped(painter, bar, slice(option, bar, head - BusyShare, head));
        return;
    }
    const qreal range = qreal(option.maximum) - option.minimum;
    const qreal share = qBound(0.0, (qreal(option.progress) - option.minimum) / range, 1.0);
    if (share > 0)
        fillClipped(painter, bar, slice(option, bar, 0, share));
}

void drawProgressBar(
    const QProxyStyle &style, const QStyleOptionProgressBar &option, QPainter *painter, const QWidget *w)
{
    QStyleOptionProgressBar part = option;
    part.rect = style.subElementRect(QStyle::SE_ProgressBarGroove, &option, w);
    style.drawControl(QStyle::CE_ProgressBarGroove, &part, painter, w);
    style.drawControl(QStyle::CE_ProgressBarContents, &part, painter, w);
    if (!option.textVisible || option.text.isEmpty())
        return;
    painter->save();
    painter->setPen(textColor(option, KSkin::Color::TextSecondary));
    const QRect label = style.subElementRect(QStyle::SE_ProgressBarLabel, &option, w);
    painter->drawText(label, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, option.text);
    painter->restore();
}

// A bar this thin has its text beside it.
QRect progressPart(const QStyleOptionProgressBar &option, QStyle::SubElement part)
{
    const bool label = part == QStyle::SE_ProgressBarLabel;
    if (!option.textVisible || option.orientation == Qt::Vertical)
        return label ? QRect() : option.rect;
    const int widest = qMax(option.fontMetrics.horizontalAdvance(option.text),
        option.fontMetrics.horizontalAdvance(QStringLiteral("100%")));
    const int width = widest + KLiteStyle::dpiScaled(look::SpaceS);
    QRect rect = option.rect;
    if (label)
        rect.setLeft(rect.right() - width + 1);
    else
        rect.setRight(rect.right() - width);
    return QStyle::visualRect(option.direction, option.rect, rect);
}

} // namespace zel::style
