#include "widgets/noticearea.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/contentcolumn.h"
#include "widgets/noticebar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <algorithm>

namespace look = zel::look;

NoticeArea::NoticeArea(QWidget *page, QWidget *over) : QWidget(page), m_over(over ? over : page)
{
    m_over->installEventFilter(this);
    m_slide.setStartValue(0.0);
    m_slide.setEndValue(1.0);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this,
        [this](const QVariant &progress) { moveBars(progress.toReal()); });
    connect(qApp, &QApplication::focusChanged, this, &NoticeArea::followKeyboard);
    hide();
}

NoticeBar *NoticeArea::addBar()
{
    auto *bar = new NoticeBar(this);
    addBar(bar);
    return bar;
}

void NoticeArea::addBar(NoticeBar *bar)
{
    if (bar->parentWidget() != this)
        bar->setParent(this);
    bar->installEventFilter(this);
    m_places.append({bar});
}

void NoticeArea::retire()
{
    for (const Place &place : std::as_const(m_places)) {
        if (place.bar->isPassing())
            place.bar->hide();
    }
}

bool NoticeArea::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::LayoutRequest:
        if (watched != m_over)
            placeSoon();
        break;
    case QEvent::Resize:
    case QEvent::Move:
        if (watched == m_over)
            place();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// One notice often goes while another comes, and its text is laid out a moment later.
void NoticeArea::placeSoon()
{
    const bool any = std::any_of(
        m_places.cbegin(), m_places.cend(), [](const Place &place) { return !place.bar->isHidden(); });
    setVisible(any);
    if (std::exchange(m_placeSoon, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_placeSoon = false;
            place();
        },
        Qt::QueuedConnection);
}

void NoticeArea::tellCover()
{
    const int gap = KLiteStyle::dpiScaled(look::SpaceM);
    int cover = 0;
    for (const Place &place : std::as_const(m_places))
        cover += place.bar->isStanding() ? place.bar->height() + gap : 0;
    if (std::exchange(m_cover, cover) != cover)
        Q_EMIT coverChanged(cover);
}

void NoticeArea::place()
{
    const QRect room = this->room();
    const int gap = KLiteStyle::dpiScaled(look::SpaceS);
    const int oldTop = y();
    int width = 0;
    for (const Place &place : std::as_const(m_places)) {
        if (!place.bar->isHidden())
            width = qMax(width, qMin(place.bar->naturalWidth(), room.width()));
    }
    int height = 0;
    bool appeared = false;
    for (Place &place : m_places) {
        if (place.bar->isHidden()) {
            place.shown = false;
            continue;
        }
        place.to = height + (height > 0 ? gap : 0);
        place.bar->resize(width, place.bar->heightForWidth(width));
        height = place.to + place.bar->height();
    }
    tellCover();
    if (height == 0)
        return hide();
    int top = room.bottom() + 1 - height;
    const QRect keyboard = keyboardRect();
    if (keyboard.intersects(QRect(room.left(), top - gap, room.width(), height + gap)))
        top = qMax(room.top(), keyboard.top() - gap - height);
    for (Place &place : m_places) {
        if (place.bar->isHidden())
            continue;
        appeared = appeared || !place.shown;
        place.from = place.shown ? place.bar->y() + oldTop - top : height;
        place.shown = true;
    }
    setGeometry(room.left() + (room.width() - width) / 2, top, width, height);
    raise();
    show();
    const int duration = KSkin::animationDuration(look::Motion);
    const bool slides = duration > 0 && (appeared || m_slide.state() == QAbstractAnimation::Running);
    m_slide.stop();
    moveBars(slides ? 0 : 1);
    if (slides) {
        m_slide.setDuration(duration);
        m_slide.start();
    }
    if (appeared)
        followKeyboard();
}

void NoticeArea::moveBars(qreal progress)
{
    for (const Place &place : std::as_const(m_places))
        place.bar->move(0, qRound(place.from + (place.to - place.from) * progress));
}

QRect NoticeArea::room() const
{
    const QRect over(
        m_over == parentWidget() ? QPoint() : m_over->mapTo(parentWidget(), QPoint()), m_over->size());
    const int margin = KLiteStyle::dpiScaled(look::SpaceM);
    return zel::contentRect(over).adjusted(margin, margin, -margin, -margin);
}

QRect NoticeArea::keyboardRect() const
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus || !holds(focus))
        return {};
    if (auto *view = qobject_cast<QAbstractItemView *>(focus)) {
        const QRect row = view->visualRect(view->currentIndex()) & view->viewport()->rect();
        return row.isEmpty() ? QRect()
                             : QRect(view->viewport()->mapTo(parentWidget(), row.topLeft()), row.size());
    }
    return {focus->mapTo(parentWidget(), QPoint()), focus->size()};
}

bool NoticeArea::holds(const QWidget *widget) const
{
    return (widget == m_over || m_over->isAncestorOf(widget)) && !isAncestorOf(widget);
}

// Only while something shows, and only the list that has the focus.
void NoticeArea::followKeyboard()
{
    auto *view = isHidden() ? nullptr : qobject_cast<QAbstractItemView *>(QApplication::focusWidget());
    if (view && !holds(view))
        view = nullptr;
    if (view != m_followed) {
        if (m_followed) {
            m_followed->verticalScrollBar()->disconnect(this);
            if (m_followed->selectionModel())
                m_followed->selectionModel()->disconnect(this);
        }
        m_followed = view;
        if (view && view->selectionModel()) {
            connect(
                view->selectionModel(), &QItemSelectionModel::currentChanged, this, &NoticeArea::placeSoon);
            connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &NoticeArea::placeSoon);
        }
    }
    if (!isHidden())
        placeSoon();
}
