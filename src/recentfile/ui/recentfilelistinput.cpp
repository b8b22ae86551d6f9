// Keyboard, mouse and time: the part of the recent list that answers the user.
#include "recentfile/ui/recentfilelistview.h"

#include "recentfile/recentfilemodel.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTimerEvent>

namespace {
constexpr int SettleDelay = 250; // ms
}

void ZelBoxRecentFileListView::keyPressEvent(QKeyEvent *event)
{
    m_showFocusRing = true;
    viewport()->update(visualRect(currentIndex()));
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (currentIndex().isValid() && !event->isAutoRepeat())
            Q_EMIT activated(currentIndex());
        event->accept();
        return;
    }
    QAbstractItemView::keyPressEvent(event);
}

void ZelBoxRecentFileListView::focusInEvent(QFocusEvent *event)
{
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        m_showFocusRing = true;
    QAbstractItemView::focusInEvent(event);
}

void ZelBoxRecentFileListView::mousePressEvent(QMouseEvent *event)
{
    m_showFocusRing = false;
    m_releaseEndsDoubleClick = false;
    m_pressed = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    QAbstractItemView::mousePressEvent(event);
}

// A double click is one thing: doubleClicked() once, and no click on top of it when the button comes up. On
// desktops where the first click already opens, the second has nothing left to do. When the list has moved in
// between, the second click meets a row that the first was not for: it is a first one then.
void ZelBoxRecentFileListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || m_pressed != index) {
        QMouseEvent press(QEvent::MouseButtonPress, event->localPos(), event->windowPos(), event->screenPos(),
            event->button(), event->buttons(), event->modifiers(), event->source());
        mousePressEvent(&press);
        return;
    }
    m_releaseEndsDoubleClick = true;
    if (!style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, this))
        Q_EMIT doubleClicked(index);
}

void ZelBoxRecentFileListView::mouseReleaseEvent(QMouseEvent *event)
{
    // The base class opens on single-click desktops whichever button comes up.
    if (std::exchange(m_releaseEndsDoubleClick, false) || event->button() != Qt::LeftButton)
        setState(NoState);
    else
        QAbstractItemView::mouseReleaseEvent(event);
}

void ZelBoxRecentFileListView::mouseMoveEvent(QMouseEvent *event)
{
    setHover(indexAt(event->pos()));
    QAbstractItemView::mouseMoveEvent(event);
}

bool ZelBoxRecentFileListView::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Leave:
        setHover({});
        break;
    case QEvent::Enter:
        refreshDay();
        break;
    case QEvent::WindowActivate: // files may have gone from under the rows, or come back
        refreshDay();
        settleSoon();
        break;
    default:
        break;
    }
    return QAbstractItemView::viewportEvent(event);
}

void ZelBoxRecentFileListView::setHover(const QModelIndex &index)
{
    if (m_hover == index)
        return;
    viewport()->update(visualRect(m_hover));
    m_hover = index;
    viewport()->update(visualRect(m_hover));
}

// Rows also move under a pointer that stays where it is.
void ZelBoxRecentFileListView::updateHover()
{
    setHover(viewport()->underMouse() ? indexAt(viewport()->mapFromGlobal(QCursor::pos())) : QModelIndex());
}

void ZelBoxRecentFileListView::changeEvent(QEvent *event)
{
    QAbstractItemView::changeEvent(event);
    switch (event->type()) {
    case QEvent::LanguageChange:
        setAccessibleName(tr("Recent files"));
        if (m_model)
            m_model->retranslate();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
        relayout();
        break;
    default:
        break;
    }
}

// Whenever the user comes back: while the machine was asleep, a day may have begun unnoticed.
void ZelBoxRecentFileListView::refreshDay()
{
    if (m_model)
        m_model->refreshDay();
}

// A hidden page is not told that its window has become active.
void ZelBoxRecentFileListView::showEvent(QShowEvent *event)
{
    refreshDay();
    QAbstractItemView::showEvent(event);
    settleSoon();
}

void ZelBoxRecentFileListView::settleSoon()
{
    if (isVisible() && m_layout.contentHeight() > 0)
        m_settle.start(SettleDelay, this);
}

void ZelBoxRecentFileListView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_settle.timerId()) {
        QAbstractItemView::timerEvent(event);
        return;
    }
    m_settle.stop();
    const auto [first, last] =
        m_layout.rowsBetween(verticalOffset(), verticalOffset() + viewport()->height());
    if (isVisible() && first >= 0)
        Q_EMIT sigVisibleRowsSettled(first, last);
}
