#pragma once

class QAbstractItemView;
class QMenu;
class QPoint;

/// The menu of a list's current row, asked for by keyboard. GUI thread; outlived by its view.
class KeyboardMenu
{
public:
    explicit KeyboardMenu(QAbstractItemView *view) : m_view(view) { }

    /// Selects the current row and lets the view ask for a menu at its lower edge, where the row stays to be
    /// seen; without a current row outside of all.
    void request();
    /// Opens any menu of the list; the first entry of one that was asked for here is marked.
    void popUp(QMenu *menu, const QPoint &globalPos) const;

private:
    QAbstractItemView *m_view;
    bool m_requesting = false;
};
