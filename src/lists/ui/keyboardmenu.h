#pragma once

#include <QMenu>
#include <QPointer>
#include <functional>

class QAbstractItemView;

/// The menus of a list's rows, and that of its current one, asked for by keyboard. GUI thread; outlived by
/// its view.
class KeyboardMenu
{
public:
    /// `closed` runs after each of the menus.
    KeyboardMenu(QAbstractItemView *view, std::function<void()> closed)
        : m_view(view), m_closed(std::move(closed))
    {
    }

    /// Selects the current row and lets the view ask for a menu at its lower edge, where the row stays to be
    /// seen; without a current row outside of all.
    void request();
    /// Opens any menu of the list; the first entry of one that was asked for here is marked.
    void popUp(QMenu *menu, const QPoint &globalPos);
    bool isOpen() const { return m_open && m_open->isVisible(); }

private:
    QAbstractItemView *m_view;
    std::function<void()> m_closed;
    QPointer<QMenu> m_open;
    bool m_requesting = false;
};
