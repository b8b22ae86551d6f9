#include "mainwindow/ui/searchbox.h"

#include "klitestyle.h"

#include <QAction>
#include <QKeyEvent>

SearchBox::SearchBox(QWidget *parent) : SearchField(tr("Search"), parent)
{
    setObjectName(QStringLiteral("searchBox"));
    setMaximumWidth(KLiteStyle::dpiScaled(420));
    setMinimumWidth(KLiteStyle::dpiScaled(120));
}

void SearchBox::setPage(const QString &title, const QWidget *page)
{
    for (QAction *action : std::exchange(m_pageActions, page->actions()))
        removeAction(action);
    addActions(m_pageActions);
    setPrompt(title.isEmpty() ? tr("Search") : tr("Search in %1").arg(title));
}

void SearchBox::begin(const QString &typed)
{
    setFocus(Qt::ShortcutFocusReason);
    if (typed.isEmpty()) {
        selectAll();
        return;
    }
    m_typedInPage = true;
    end(false);
    insert(typed);
}

void SearchBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ended(true);
        return;
    case Qt::Key_Escape:
        if (text().isEmpty() || m_typedInPage) {
            clear();
            Q_EMIT ended(false);
            return;
        }
        break;
    default:
        break;
    }
    if (!undoesInPage(*event))
        SearchField::keyPressEvent(event);
}

// In the empty field there is no typing to be taken back; what was done in the page is meant, if anything.
bool SearchBox::undoesInPage(const QKeyEvent &event) const
{
    return text().isEmpty() && event.matches(QKeySequence::Undo);
}

void SearchBox::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        m_typedInPage = false;
    SearchField::focusOutEvent(event);
}

bool SearchBox::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && undoesInPage(*static_cast<QKeyEvent *>(event))) {
        event->ignore();
        return true;
    }
    return SearchField::event(event);
}

// To what was found, instead of to the window's buttons.
bool SearchBox::focusNextPrevChild(bool next)
{
    if (!next || text().isEmpty())
        return SearchField::focusNextPrevChild(next);
    Q_EMIT ended(false);
    return true;
}
