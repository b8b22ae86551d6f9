#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QVector>
#include <QWidget>

class NoticeBar;
class QAbstractItemView;

/// Where the notices of a page float: over the lower edge of its content, in the column of the page, one
/// above the other. Nothing moves aside for them; they keep off what the keyboard is on. GUI thread. As large
/// as what shows, so that the rest of the page stays within reach of the pointer.
class NoticeArea : public QWidget
{
    Q_OBJECT
public:
    /// Over `over`, a child of `page`; null: over the whole page, which becomes the parent.
    explicit NoticeArea(QWidget *page, QWidget *over = nullptr);

    NoticeBar *addBar();         ///< another one, below those before; hidden until it says something
    void addBar(NoticeBar *bar); ///< likewise; becomes a child of this
    /// The user does something else: what is only said goes; offers and what stays by itself remain.
    void retire();

Q_SIGNALS:
    /// How much of the lower edge is covered by notices that do not go by themselves; pixels, 0: nothing. A
    /// list lets its last rows be scrolled out of there.
    void coverChanged(int height);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Place
    {
        NoticeBar *bar;
        int from = 0; ///< top in this widget, where it comes from and where it goes
        int to = 0;
        bool shown = false; ///< it has been placed since it appeared
    };

    void placeSoon();
    void tellCover();
    void place();
    void moveBars(qreal progress);
    QRect room() const;         ///< of the page, for notices
    QRect keyboardRect() const; ///< on the page; empty: the keyboard is elsewhere
    void followKeyboard();
    bool holds(const QWidget *widget) const; ///< below the notices, not one of them

    QWidget *m_over;
    QVector<Place> m_places;
    QVariantAnimation m_slide;
    QPointer<QAbstractItemView> m_followed;
    int m_cover = 0;
    bool m_placeSoon = false;
};
