#include "lists/ui/sectionlistview.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"
#include "lists/ui/listaccessible.h"
#include "lists/ui/scrollkeeper.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

namespace {

bool opensOnOneClick(const QWidget *widget)
{
    return widget->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, widget);
}

} // namespace

using View = SectionListView;

SectionListView::SectionListView(QWidget *parent) : TypingListArea(parent)
{
    ListAccessible::install();
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers); // beginRename()
    setContextMenuPolicy(Qt::CustomContextMenu);
    viewport()->setMouseTracking(true);
    bindKeys();
    connect(&m_drop, &ListDropTarget::changed, viewport(), qOverload<>(&QWidget::update));
    connect(&m_drop, &ListDropTarget::rowLingered, this, &View::dragLingered);
}

void View::reset()
{
    m_memory.clear();
    m_drop.leave();
    const bool typed = viewport()->isAncestorOf(QApplication::focusWidget());
    TypingListArea::reset();
    if (typed) // into an editor; the keyboard went on to what comes next in the window
        setFocus(Qt::OtherFocusReason);
    if (underMouse())
        QToolTip::hideText(); // that of a row which is not there any more
}

QModelIndexList View::chosenRows() const
{
    const QModelIndexList selected = selectedRows();
    return selected.isEmpty() && leads(currentIndex()) ? QModelIndexList{currentIndex()} : selected;
}

QString View::currentId() const
{
    return currentIndex().isValid() ? listModel()->idOf(currentIndex().row()) : QString();
}

// Not while the user types a name: to go elsewhere would give it to the row.
void View::selectIds(const QStringList &ids)
{
    if (isRenaming())
        return;
    const auto here = std::find_if(
        ids.cbegin(), ids.cend(), [this](const QString &id) { return listModel()->rowOf(id) >= 0; });
    if (here == ids.cend())
        return;
    const QModelIndex first = listModel()->index(listModel()->rowOf(*here));
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(zel::selectionOf(*listModel(), ids), QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

void View::rowsInserted(const QModelIndex &parent, int start, int end)
{
    TypingListArea::rowsInserted(parent, start, end);
    const ScrollKeeper keeper(this);
    if (start == 0 && end == listModel()->rowCount() - 1)
        m_memory.giveBack(*listModel(), selectionModel());
    else if (!isRenaming() && m_returning.arrive(*listModel(), selectionModel(), start, end))
        scrollTo(currentIndex());
}

// A reload takes all rows away and brings most of them back at once.
void View::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const bool looked = viewport()->rect().intersects(visualRect(currentIndex()));
    const ScrollKeeper keeper(looked ? nullptr : this);
    if (const int row = currentIndex().row(); row >= start && row <= end)
        m_rename.end();
    if (start == 0 && end == listModel()->rowCount() - 1)
        m_memory.keep(*listModel(), *selectionModel());
    else if (m_leaving.leave(*listModel(), selectionModel(), start, end))
        setKeyboardLeads(false); // else the next key would act on a row that nobody went to
    TypingListArea::rowsAboutToBeRemoved(parent, start, end);
}

void View::changeFilter(bool hidesRows, const QStringList &words, const std::function<void()> &apply)
{
    if (hidesRows)
        m_unfiltered.note(currentId());
    apply();
    setMarkedWords(words);
    if (hidesRows)
        return scrollToTop();
    m_unfiltered.giveBack(*listModel(), selectionModel());
    const bool inView = viewport()->rect().contains(visualRect(currentIndex()));
    scrollTo(currentIndex(), inView ? EnsureVisible : PositionAtCenter);
}

void View::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    TypingListArea::currentChanged(current, previous);
    updateRow(previous);
    updateRow(current);
    ListAccessible::tellCurrent(this);
}

void View::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    TypingListArea::selectionChanged(selected, deselected);
    ListAccessible::tellSelection(this);
    Q_EMIT selectedRowsChanged();
}

// One row has its buttons: where the pointer is, else where the keyboard is.
void View::fillOption(ListRowOption *option, const QModelIndex &index) const
{
    TypingListArea::fillOption(option, index);
    option->state.setFlag(QStyle::State_MouseOver, m_hover.row() == index);
    option->state.setFlag(QStyle::State_HasFocus, leads(index));
    // By keyboard they would seem to be for all that is selected.
    option->buttons = m_hover.row().isValid() ? m_hover.row() == index : leads(index) && selectedCount() <= 1;
    option->dropTarget = m_drop.row().isValid() && m_drop.row() == index;
    m_hover.fill(option, index);
}

bool View::leads(const QModelIndex &index) const
{
    return m_keyboardLeads && hasFocus() && currentIndex() == index;
}

void View::setKeyboardLeads(bool leads)
{
    if (std::exchange(m_keyboardLeads, leads) == leads)
        return;
    updateHover();
    updateRow(currentIndex());
}

void View::hoverMoved(bool toOtherRow)
{
    if (toOtherRow && m_keyboardLeads) // the buttons leave the current row, or come back to it
        updateRow(currentIndex());
}

// Rows also move under a pointer that stays where it is. Who works with the keyboard has left it somewhere.
void View::updateHover()
{
    if (m_menu.isOpen())
        return;
    const bool hovers = !m_keyboardLeads && viewport()->underMouse();
    hoverMoved(hovers ? m_hover.moveTo(viewport()->mapFromGlobal(QCursor::pos())) : m_hover.leave());
}

void View::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::BackButton || event->button() == Qt::ForwardButton) {
        event->ignore(); // the page's
        return;
    }
    m_returning.clear();
    const bool left = event->button() == Qt::LeftButton;
    const ListHover::Spot button =
        left ? m_hover.buttonAt(event->pos()) : ListHover::Spot(); // that was to be seen
    setKeyboardLeads(false);
    m_press.begin(*event, left && !button.isButton() ? indexAt(event->pos()) : QModelIndex());
    m_hover.press(button);
    if (!button.isButton())
        TypingListArea::mousePressEvent(event);
}

// On desktops where the first click already opens, the second has nothing left to do. Two clicks on a button
// are two.
void View::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (!m_press.isSecondHalf(*event, index) || m_hover.buttonAt(event->pos()).isButton()) {
        QMouseEvent press(QEvent::MouseButtonPress, event->localPos(), event->windowPos(), event->screenPos(),
            event->button(), event->buttons(), event->modifiers(), event->source());
        mousePressEvent(&press);
        return;
    }
    m_press.beginSecondHalf();
    if (!opensOnOneClick(this))
        Q_EMIT doubleClicked(index);
}

void View::mouseReleaseEvent(QMouseEvent *event)
{
    const bool left = event->button() == Qt::LeftButton;
    if (left && m_hover.pressed().isButton()) {
        const ListHover::Spot pressed = m_hover.release();
        if (m_hover.buttonAt(event->pos()) == pressed)
            Q_EMIT buttonClicked(pressed.row, pressed.button, m_hover.below(pressed));
        return;
    }
    // The base class opens on single-click desktops whichever button comes up, and whatever it was for.
    if (m_press.endsDoubleClick() || !left) {
        setState(NoState);
    } else if (ListPress::picksRows(*event) && opensOnOneClick(this)) {
        setState(NoState);
        if (m_press.row().isValid() && m_press.row() == indexAt(event->pos()))
            Q_EMIT clicked(m_press.row());
    } else {
        TypingListArea::mouseReleaseEvent(event);
    }
}

// The base class would want every row to say that it can be dragged, and picks rows under a band that nobody
// sees.
void View::mouseMoveEvent(QMouseEvent *event)
{
    hoverMoved(m_hover.moveTo(event->pos()));
    if (event->buttons() == Qt::NoButton) {
        TypingListArea::mouseMoveEvent(event);
        return;
    }
    if (!dragEnabled() || !m_press.isDrag(*event) || !selectionModel()->isSelected(m_press.row()))
        return;
    startDrag(dragActions());
    m_press.forget();
}

void View::startDrag(Qt::DropActions actions)
{
    if (rowDelegate())
        runDrag(this, *rowDelegate(), selectedRows(), m_press.row(), actions);
}

void View::dragEnterEvent(QDragEnterEvent *event)
{
    m_drop.enter(event, indexAt(event->pos()), verticalOffset());
}

void View::dragMoveEvent(QDragMoveEvent *event)
{
    m_drop.move(event, indexAt(event->pos()), verticalOffset());
    startAutoScroll();
}

void View::dragLeaveEvent(QDragLeaveEvent *event)
{
    stopAutoScroll();
    m_drop.leave();
    event->accept();
}

void View::dropEvent(QDropEvent *event)
{
    stopAutoScroll();
    m_drop.drop(event, indexAt(event->pos()), verticalOffset());
    setState(NoState);
}

void View::bindKeys()
{
    using Needs = ListKeyboard::Needs;
    const auto open = [this] { Q_EMIT activated(currentIndex()); };
    for (const int keys : {int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::SHIFT) + int(Qt::Key_Return)})
        m_keyboard.bind(keys, Needs::Row, open);
    const auto toggle = [this] { selectionModel()->select(currentIndex(), QItemSelectionModel::Toggle); };
    for (const int keys : {int(Qt::Key_Space), int(Qt::CTRL) + int(Qt::Key_Space)})
        m_keyboard.bind(keys, Needs::Row, toggle);
    m_keyboard.bind(int(Qt::SHIFT) + int(Qt::Key_F10), Needs::Nothing, [this] { requestMenuOfCurrent(); });
}

void View::keyPressEvent(QKeyEvent *event)
{
    if (isRenaming() && !hasFocus()) // the editor passes on what it has no use for, Enter among it
        return event->accept();
    const bool ledBefore = leads(currentIndex());
    if (!ListKeyboard::isModifier(event->key())) { // that may be on its way to a click
        setKeyboardLeads(true);
        m_returning.clear();
    }
    const bool isSeen = ledBefore || (selectionModel() && selectionModel()->hasSelection());
    if (m_keyboard.run(*event, isSeen ? currentIndex() : QModelIndex())) {
        event->accept();
    } else if (event->key() == Qt::Key_Escape) {
        const bool selected = selectionModel() && selectionModel()->hasSelection();
        clearSelection();
        event->setAccepted(selected); // somebody else's, with nothing selected here
    } else {
        moveByKey(event, ledBefore);
    }
}

// The base class selects no row that is current already, and steps from a row that nobody sees.
void View::moveByKey(QKeyEvent *event, bool ledBefore)
{
    if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return event->ignore(); // somebody else's, also while that cannot do anything
    const bool moves = ListKeyboard::isMove(*event);
    const bool begins =
        moves && !ledBefore && hasFocus() && selectionModel() && !selectionModel()->hasSelection();
    if (begins && event->key() != Qt::Key_Home && event->key() != Qt::Key_End) {
        setCurrentIndex(firstLead());
        return event->accept();
    }
    TypingListArea::keyPressEvent(event);
    if (moves && selectionModel() && !selectionModel()->hasSelection())
        selectionModel()->select(currentIndex(), QItemSelectionModel::Select);
}

QModelIndex View::firstLead() const
{
    const bool inView = viewport()->rect().contains(visualRect(currentIndex()));
    return inView ? currentIndex() : listModel()->index(visibleRows().first);
}

void View::focusInEvent(QFocusEvent *event)
{
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        setKeyboardLeads(true);
    TypingListArea::focusInEvent(event);
    const ScrollKeeper keeper(this); // the click that brought the keyboard is for the row that it meets
    if (listModel() && !currentIndex().isValid())
        selectionModel()->setCurrentIndex(listModel()->index(0), QItemSelectionModel::NoUpdate);
}

// Something takes room from the list; what the user works with stays in view.
void View::resizeEvent(QResizeEvent *event)
{
    const QRect row = visualRect(currentIndex());
    const bool wasInView = row.isValid() && row.top() >= 0 && row.bottom() < event->oldSize().height();
    TypingListArea::resizeEvent(event);
    if (wasInView)
        scrollTo(currentIndex());
}

// A menu by keyboard belongs to the current row, wherever the pointer is.
bool View::event(QEvent *event)
{
    if (event->type() == QEvent::ContextMenu && contextMenuPolicy() == Qt::CustomContextMenu
        && static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        requestMenuOfCurrent();
        event->accept();
        return true;
    }
    return TypingListArea::event(event);
}

bool View::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Leave:
        updateHover();
        break;
    case QEvent::Enter:
        Q_EMIT userReturned();
        break;
    case QEvent::WindowActivate: // what rows stand for may have gone, or come back
        Q_EMIT userReturned();
        viewport()->update();
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
    return TypingListArea::viewportEvent(event);
}

// A hidden page is not told that its window has become active.
void View::showEvent(QShowEvent *event)
{
    Q_EMIT userReturned();
    TypingListArea::showEvent(event);
    settleSoon();
}
