#pragma once

#include "lists/ui/listrowdelegate.h"

#include <QPersistentModelIndex>

class SectionListArea;

/// The row and the row's button that the pointer is on, and the button that it holds down. Has the rows
/// repainted whose look changes with it. Places are those of the list's viewport. GUI thread.
class ListHover
{
public:
    /// A row's button, or none.
    struct Spot
    {
        QPersistentModelIndex row;
        int button = ListRowOption::NoButton;

        bool isButton() const { return button != ListRowOption::NoButton; }
        bool operator==(const Spot &other) const { return row == other.row && button == other.button; }
    };

    explicit ListHover(SectionListArea *list) : m_list(list) { }

    const QPersistentModelIndex &row() const { return m_row; } ///< invalid: on none
    bool moveTo(const QPoint &pos);                            ///< false: it is on the same row as before
    bool leave();                                              ///< likewise
    Spot buttonAt(const QPoint &pos) const;                    ///< of those that show
    QPoint below(const Spot &spot) const;                      ///< on the screen, where a menu of it begins

    void press(const Spot &spot); ///< the pointer is on it, too
    Spot pressed() const { return m_pressed; }
    Spot release(); ///< what was held down

    void fill(ListRowOption *option, const QModelIndex &row) const; ///< hovered and pressed

private:
    bool setRow(const QModelIndex &row);
    void setSpot(const Spot &spot);

    SectionListArea *m_list;
    QPersistentModelIndex m_row;
    Spot m_spot;
    Spot m_pressed;
};
