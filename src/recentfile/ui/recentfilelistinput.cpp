// Mouse and time: the part of the recent list that answers the pointer and notices that the user is back.
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QTimerEvent>

using View = ZelBoxRecentFileListView;

namespace {

constexpr int SettleDelay = 250; // ms

bool opensOnOneClick(const QWidget *widget)
{
    return widget->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, widget);
}

bool extendsSelection(const QMouseEvent &event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
}

} // namespace

View::ButtonSpot View::buttonAt(const QPoint &point) const
{
    const QModelIndex index = indexAt(point);
    const ZelBoxRecentFileDelegate *delegate = rowDelegate();
    if (!index.isValid() || !delegate || !showsButtons(index))
        return {};
    const int button = delegate->buttonAt(rowOption(index), index, point);
    return button == ListRowOption::NoButton ? ButtonSpot() : ButtonSpot{index, button};
}

void View::mousePressEvent(QMouseEvent *event)
{
    const bool left = event->button() == Qt::LeftButton;
    m_pressedButton = left ? buttonAt(event->pos()) : ButtonSpot(); // only one that was there to be seen
    setKeyboardLeads(false);
    m_releaseEndsDoubleClick = false;
    m_pressPos = event->pos();
    m_pressed = left ? indexAt(event->pos()) : QModelIndex();
    if (m_pressedButton.button == ListRowOption::NoButton) {
        QAbstractItemView::mousePressEvent(event);
        return;
    }
    m_pressed = QModelIndex();
    setHotButton(m_pressedButton);
    updateRow(m_pressedButton.row);
}

// A double click is one thing: doubleClicked() once, and no click on top of it when the button comes up. On
// desktops where the first click already opens, the second has nothing left to do. When the list has moved in
// between, the second click meets a row that the first was not for: it is a first one then. So it is on a
// button, and while rows are being picked.
void View::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid() || m_pressed != index || extendsSelection(*event)
        || buttonAt(event->pos()).button != ListRowOption::NoButton) {
        QMouseEvent press(QEvent::MouseButtonPress, event->localPos(), event->windowPos(), event->screenPos(),
            event->button(), event->buttons(), event->modifiers(), event->source());
        mousePressEvent(&press);
        return;
    }
    m_releaseEndsDoubleClick = true;
    if (!opensOnOneClick(this))
        Q_EMIT doubleClicked(index);
}

void View::mouseReleaseEvent(QMouseEvent *event)
{
    const bool left = event->button() == Qt::LeftButton;
    if (left && m_pressedButton.button != ListRowOption::NoButton) {
        const ButtonSpot pressed = std::exchange(m_pressedButton, {});
        updateRow(pressed.row);
        if (buttonAt(event->pos()) == pressed)
            clickButton(pressed);
        return;
    }
    // The base class opens on single-click desktops whichever button comes up, and whatever it was for.
    if (std::exchange(m_releaseEndsDoubleClick, false) || !left) {
        setState(NoState);
    } else if (extendsSelection(*event) && opensOnOneClick(this)) {
        setState(NoState);
        if (m_pressed.isValid() && m_pressed == indexAt(event->pos()))
            Q_EMIT clicked(m_pressed);
    } else {
        QAbstractItemView::mouseReleaseEvent(event);
    }
}

void View::clickButton(const ButtonSpot &spot)
{
    if (spot.button == RecentButton::Share) {
        Q_EMIT sigShareDoc(spot.row);
        return;
    }
    const QRect rect = rowDelegate()->buttonRect(rowOption(spot.row), spot.row, spot.button);
    Q_EMIT sigMoreRequested(spot.row, viewport()->mapToGlobal(rect.bottomLeft() + QPoint(0, 1)));
}

// The base class would want every row to say that it can be dragged, and picks rows under a band that nobody
// sees.
void View::mouseMoveEvent(QMouseEvent *event)
{
    setHover(indexAt(event->pos()));
    setHotButton(buttonAt(event->pos()));
    if (event->buttons() == Qt::NoButton) {
        QAbstractItemView::mouseMoveEvent(event);
        return;
    }
    const int distance = (event->pos() - m_pressPos).manhattanLength();
    if (event->buttons() != Qt::LeftButton || distance <= QApplication::startDragDistance()
        || !selectionModel()->isSelected(m_pressed))
        return;
    startDrag(Qt::CopyAction | Qt::LinkAction);
    m_pressed = QModelIndex();
}

bool View::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Leave:
        setHover({});
        setHotButton({});
        break;
    case QEvent::Enter:
        refreshDay();
        break;
    case QEvent::WindowActivate: // files may have gone from under the rows, or come back
        refreshDay();
        settleSoon();
        break;
    case QEvent::ToolTip: {
        auto *help = static_cast<QHelpEvent *>(event);
        if (const QModelIndex index = indexAt(help->pos()); index.isValid())
            return itemDelegate()->helpEvent(help, this, rowOption(index), index);
        break;
    }
    default:
        break;
    }
    return QAbstractItemView::viewportEvent(event);
}

void View::setHover(const QModelIndex &index)
{
    if (m_hover == index)
        return;
    updateRow(m_hover);
    if (m_keyboardLeads) // the buttons leave the current row, or come back to it
        updateRow(currentIndex());
    m_hover = index;
    updateRow(m_hover);
}

void View::setHotButton(const ButtonSpot &spot)
{
    if (m_hotButton == spot)
        return;
    updateRow(m_hotButton.row);
    m_hotButton = spot;
    updateRow(m_hotButton.row);
}

// Rows also move under a pointer that stays where it is. Who works with the keyboard has left it somewhere.
void View::updateHover()
{
    const bool hovers = !m_keyboardLeads && viewport()->underMouse();
    const QPoint pos = hovers ? viewport()->mapFromGlobal(QCursor::pos()) : QPoint();
    setHover(hovers ? indexAt(pos) : QModelIndex());
    setHotButton(hovers ? buttonAt(pos) : ButtonSpot());
}

void View::setKeyboardLeads(bool leads)
{
    if (m_keyboardLeads == leads)
        return;
    m_keyboardLeads = leads;
    updateHover();
    updateRow(currentIndex());
}

void ZelBoxRecentFileListView::changeEvent(QEvent *event)
{
    QAbstractItemView::changeEvent(event);
    switch (event->type()) {
    case QEvent::LanguageChange:
        setAccessibleName(tr("Recent files"));
        if (ZelBoxRecentFileDelegate *delegate = rowDelegate())
            delegate->retranslate();
        if (m_model && m_model->recentModel())
            m_model->recentModel()->retranslate();
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
void View::refreshDay()
{
    if (m_model && m_model->recentModel())
        m_model->recentModel()->refreshDay();
}

// A hidden page is not told that its window has become active.
void View::showEvent(QShowEvent *event)
{
    refreshDay();
    QAbstractItemView::showEvent(event);
    settleSoon();
}

void View::settleSoon()
{
    if (isVisible() && m_layout.contentHeight() > 0)
        m_settle.start(SettleDelay, this);
}

void View::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_settle.timerId()) {
        QAbstractItemView::timerEvent(event);
        return;
    }
    m_settle.stop();
    QModelIndexList rows;
    const auto [first, last] = visibleRows();
    for (int row = first; row <= last; ++row)
        rows << m_model->index(row);
    if (isVisible() && !rows.isEmpty())
        Q_EMIT sigVisibleRowsSettled(rows);
}
