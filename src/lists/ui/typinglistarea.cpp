#include "lists/ui/typinglistarea.h"

#include "lists/ui/listkeyboard.h"

#include <QInputMethodEvent>

TypingListArea::TypingListArea(QWidget *parent) : SectionListArea(parent)
{
    acceptInputMethods();
}

void TypingListArea::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    SectionListArea::currentChanged(current, previous);
    acceptInputMethods();
}

void TypingListArea::focusInEvent(QFocusEvent *event)
{
    SectionListArea::focusInEvent(event);
    acceptInputMethods();
}

void TypingListArea::setTypeToFilter(bool on)
{
    m_typeToFilter = on;
    acceptInputMethods();
}

// The base class wants input methods for rows that can be edited only, and says so again and again.
void TypingListArea::acceptInputMethods()
{
    if (m_typeToFilter)
        setAttribute(Qt::WA_InputMethodEnabled);
}

// The base class calls this with whatever a key has brought, control characters too.
void TypingListArea::keyboardSearch(const QString &text)
{
    if (!ListKeyboard::isPrintable(text))
        return;
    if (m_typeToFilter)
        Q_EMIT textTyped(text);
    else
        SectionListArea::keyboardSearch(text);
}

void TypingListArea::inputMethodEvent(QInputMethodEvent *event)
{
    keyboardSearch(event->commitString());
    event->accept();
}

// The place is where an input method shows what may be meant.
QVariant TypingListArea::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnabled)
        return m_typeToFilter;
    if (query != Qt::ImCursorRectangle)
        return SectionListArea::inputMethodQuery(query);
    const QRect current = visualRect(currentIndex()) & viewport()->rect();
    return current.isEmpty() ? QRect(0, 0, 1, layout().headerHeight()) : current;
}
