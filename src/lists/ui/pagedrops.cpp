#include "lists/ui/pagedrops.h"

#include "lists/ui/listdrag.h"
#include "lists/ui/statestack.h"

#include <QDropEvent>

PageDrops::PageDrops(QWidget *page, StateStack *stack, ListCargo *list, std::function<bool()> isReady)
    : QObject(page), m_stack(stack), m_list(list), m_isReady(std::move(isReady))
{
    page->setAcceptDrops(true);
    page->installEventFilter(this);
}

bool PageDrops::accept(QDropEvent *event)
{
    const bool taken = (!m_isReady || m_isReady()) && m_list->acceptDrop(event, {});
    event->setAccepted(taken);
    return taken;
}

bool PageDrops::eventFilter(QObject *page, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        m_stack->setDropTarget(
            accept(static_cast<QDropEvent *>(event)) && m_stack->state() != StateStack::State::List);
        return true;
    case QEvent::DragMove:
        accept(static_cast<QDropEvent *>(event));
        return true;
    case QEvent::DragLeave:
        m_stack->setDropTarget(false);
        return true;
    case QEvent::Drop:
        m_stack->setDropTarget(false);
        if (accept(static_cast<QDropEvent *>(event)))
            m_list->dropInto({}, static_cast<QDropEvent *>(event));
        return true;
    default:
        return QObject::eventFilter(page, event);
    }
}
