#pragma once

#include <QAbstractItemView>

/// While it lives, another row may become the current one without being scrolled to: the user looks
/// elsewhere. Null: does nothing. GUI thread.
class ScrollKeeper
{
public:
    explicit ScrollKeeper(QAbstractItemView *view) : m_view(view && view->hasAutoScroll() ? view : nullptr)
    {
        if (m_view)
            m_view->setAutoScroll(false);
    }
    ~ScrollKeeper()
    {
        if (m_view)
            m_view->setAutoScroll(true);
    }
    Q_DISABLE_COPY_MOVE(ScrollKeeper)

private:
    QAbstractItemView *m_view;
};
