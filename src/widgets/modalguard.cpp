#include "widgets/modalguard.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QShortcut>
#include <QWidget>
#include <algorithm>

namespace {

// A menu stands for the window that it was opened from.
QWidget *windowOf(QWidget *widget)
{
    QWidget *window = widget ? widget->window() : nullptr;
    while (window && window->windowType() == Qt::Popup && window->parentWidget())
        window = window->parentWidget()->window();
    return window;
}

bool isAtOrIn(const QWidget *widget, const QWidget *window) // dialogs are in the window they belong to
{
    return widget && (widget == window || isAtOrIn(widget->parentWidget(), window));
}

bool isOver(const QWidget *dialog, const QWidget *window)
{
    const QWidget *parent = dialog->parentWidget();
    return dialog->windowModality() == Qt::ApplicationModal
        || (parent && (isAtOrIn(parent, window) || isAtOrIn(window, parent->window())));
}

} // namespace

ModalGuard::ModalGuard(QWidget *window) : QObject(window), m_window(window)
{
    window->installEventFilter(this);
}

bool ModalGuard::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowBlocked:
        if (watched == m_window)
            block();
        return false;
    case QEvent::WindowUnblocked:
        if (watched == m_window)
            unblock();
        return false;
    case QEvent::WindowActivate:
        if (watched == m_window && m_isBlocked)
            bringBlockerToFront();
        return false;
    case QEvent::Shortcut:
        if (!m_isBlocked || !belongsHere(watched))
            return false;
        bringBlockerToFront();
        return true;
    default:
        return false;
    }
}

// Only the application sees the keys of actions on their way, and only as long as that is needed.
void ModalGuard::block()
{
    m_isBlocked = true;
    qApp->installEventFilter(this);
    if (QWidget *popup = QApplication::activePopupWidget(); popup && windowOf(popup) == m_window)
        popup->close();
}

// The upper of two dialogs has gone: the window manager may have moved the keyboard before this one could
// take it.
void ModalGuard::unblock()
{
    m_isBlocked = false;
    qApp->removeEventFilter(this);
    if (m_window->isModal() && m_window->isVisible() && QGuiApplication::focusWindow())
        QMetaObject::invokeMethod(m_window, &QWidget::activateWindow, Qt::QueuedConnection);
}

bool ModalGuard::belongsHere(QObject *target) const
{
    if (const auto *action = qobject_cast<QAction *>(target)) {
        const QList<QWidget *> widgets = action->associatedWidgets();
        return std::any_of(widgets.cbegin(), widgets.cend(),
            [this](QWidget *widget) { return windowOf(widget) == m_window; });
    }
    if (const auto *shortcut = qobject_cast<QShortcut *>(target))
        return windowOf(shortcut->parentWidget()) == m_window;
    return windowOf(qobject_cast<QWidget *>(target)) == m_window;
}

QWidget *ModalGuard::blocker() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.cbegin(), windows.cend(), [this](const QWidget *each) {
        if (each == m_window || !each->isVisible() || !each->isModal() || !isOver(each, m_window))
            return false;
        const auto *guard = each->findChild<ModalGuard *>(QString(), Qt::FindDirectChildrenOnly);
        return !guard || !guard->m_isBlocked;
    });
    return found == windows.cend() ? nullptr : *found;
}

void ModalGuard::bringBlockerToFront() const
{
    if (QWidget *dialog = blocker()) {
        dialog->raise();
        dialog->activateWindow();
    }
}
