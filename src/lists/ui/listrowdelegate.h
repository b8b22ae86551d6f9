#pragma once

#include <QStringList>
#include <QStyledItemDelegate>

/// What a list view tells its delegate of a row beyond the usual option. The delegate knows it again by its
/// version; with a plain option a row has no buttons and nothing is marked.
struct ListRowOption : QStyleOptionViewItem
{
    enum StyleOptionVersion { Version = 100 };
    static constexpr int NoButton = -1;

    ListRowOption() : QStyleOptionViewItem(Version) { }
    explicit ListRowOption(const QStyleOptionViewItem &usual) : QStyleOptionViewItem(usual)
    {
        if (const auto *ours = qstyleoption_cast<const ListRowOption *>(&usual))
            *this = *ours;
        version = Version; // copies of the base class have its own
    }
    ListRowOption(const ListRowOption &) = default;
    ListRowOption &operator=(const ListRowOption &) = default;

    bool buttons = false;    ///< the row's buttons show: the pointer or the keyboard is there
    int hovered = NoButton;  ///< the page's number of the button under the pointer
    int pressed = NoButton;  ///< of the one that is held down
    bool dropTarget = false; ///< what is dragged would go into this row
    QStringList markedWords; ///< folded words of the filter, to be marked where the row's texts have them
};

/// The delegate of a list view: paints rows, and knows where a row's buttons are. GUI thread. Indexes and
/// places are the view's.
class ListRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether rows have buttons in this list; without them their room goes to the texts. True at first.
    void setOffersButtons(bool offers) { m_offersButtons = offers; }
    bool offersButtons() const { return m_offersButtons; }

    virtual int rowHeight(const QFont &font) const = 0; ///< of every row alike, pixels
    /// The button at `pos`, as the row is painted with this option; ListRowOption::NoButton for none.
    virtual int buttonAt(const ListRowOption &option, const QModelIndex &index, const QPoint &pos) const;
    virtual QRect buttonRect(const ListRowOption &option, const QModelIndex &index, int button) const;
    virtual QString buttonName(const QModelIndex &index, int button) const; ///< translated; tool tip
    virtual QString toolTip(const QModelIndex &index) const;                ///< rich text, safe for any name
    /// What the pointer carries while `count` rows are dragged, of which `index` is shown.
    virtual QPixmap dragPixmap(const QModelIndex &index, int count, const QFont &font, qreal ratio) const = 0;

    /// Tool tips: of a button its name, else toolTip().
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

private:
    bool m_offersButtons = true;
};
