// Keyboard: keys, typed text and menus of the recent list.
#include "klitestyle.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

using View = ZelBoxRecentFileListView;

namespace {

bool isPrintable(const QString &text)
{
    const QVector<uint> characters = text.toUcs4();
    return !characters.isEmpty() && QChar::isPrint(characters.constFirst());
}

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_AltGr
        || key == Qt::Key_Meta;
}

} // namespace

void View::keyPressEvent(QKeyEvent *event)
{
    if (!isModifier(event->key())) // that may be on its way to a click
        setKeyboardLeads(true);
    const Command command = commandFor(*event);
    if (command != Command::None) {
        if (!event->isAutoRepeat()) // a key that is held down does not delete one file after the other
            run(command);
        event->accept();
    } else if (event->key() == Qt::Key_Escape) {
        const bool selected = selectionModel() && selectionModel()->hasSelection();
        clearSelection();
        event->setAccepted(selected); // somebody else's, with nothing selected here
    } else {
        QAbstractItemView::keyPressEvent(event);
    }
}

View::Command View::commandFor(const QKeyEvent &event) const
{
    const bool shift = event.modifiers() & Qt::ShiftModifier;
    if (event.matches(QKeySequence::Copy))
        return Command::Copy;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier) ? Command::OpenFolder
                                                                           : Command::Open;
    case Qt::Key_Delete:
        return shift ? Command::DeleteFile : Command::Remove;
    case Qt::Key_Space:
        return shift ? Command::None : Command::Toggle;
    case Qt::Key_F10:
        return shift ? Command::Menu : Command::None;
    default:
        return Command::None;
    }
}

void View::run(Command command)
{
    const QModelIndex current = currentIndex();
    const bool selected = selectionModel() && selectionModel()->hasSelection();
    switch (command) {
    case Command::None:
        return;
    case Command::Open:
        if (current.isValid())
            Q_EMIT activated(current);
        return;
    case Command::OpenFolder:
        if (current.isValid())
            Q_EMIT sigOpenFolderRequested();
        return;
    case Command::Remove:
        if (selected)
            Q_EMIT sigRemoveRequested();
        return;
    case Command::DeleteFile:
        if (selected)
            Q_EMIT sigDeleteFileRequested();
        return;
    case Command::Copy:
        if (selected)
            Q_EMIT sigCopyRequested();
        return;
    case Command::Toggle:
        if (current.isValid())
            selectionModel()->select(current, QItemSelectionModel::Toggle);
        return;
    case Command::Menu:
        requestMenuOfCurrent();
        return;
    }
}

// The base class calls this with whatever a key has brought, control characters too.
void View::keyboardSearch(const QString &text)
{
    if (isPrintable(text))
        Q_EMIT sigTextTyped(text);
}

void View::inputMethodEvent(QInputMethodEvent *event)
{
    keyboardSearch(event->commitString());
    event->accept();
}

// The place is where an input method shows what may be meant.
QVariant View::inputMethodQuery(Qt::InputMethodQuery query) const
{
    switch (query) {
    case Qt::ImEnabled:
        return true;
    case Qt::ImCursorRectangle: {
        const QRect current = visualRect(currentIndex()) & viewport()->rect();
        return current.isEmpty() ? QRect(0, 0, 1, m_layout.headerHeight()) : current;
    }
    default:
        return QAbstractItemView::inputMethodQuery(query);
    }
}

void View::focusInEvent(QFocusEvent *event)
{
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        setKeyboardLeads(true);
    QAbstractItemView::focusInEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled); // the base class wants it for rows that can be edited only
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
    return QAbstractItemView::event(event);
}

void View::requestMenuOfCurrent()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    if (!selectionModel()->isSelected(current))
        selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
    scrollTo(current);
    const QRect rect = visualRect(current);
    Q_EMIT customContextMenuRequested({rect.left() + KLiteStyle::dpiScaled(40), rect.center().y()});
}
