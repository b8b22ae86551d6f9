#include "lists/ui/listrowdelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

int ListRowDelegate::buttonAt(const ListRowOption &, const QModelIndex &, const QPoint &) const
{
    return ListRowOption::NoButton;
}

QRect ListRowDelegate::buttonRect(const ListRowOption &, const QModelIndex &, int) const
{
    return {};
}

QString ListRowDelegate::buttonName(const QModelIndex &, int) const
{
    return {};
}

QString ListRowDelegate::toolTip(const QModelIndex &index) const
{
    return index.data(Qt::ToolTipRole).toString();
}

bool ListRowDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const ListRowOption ours(option);
    const int button = buttonAt(ours, index, event->pos());
    const bool none = button == ListRowOption::NoButton;
    QToolTip::showText(event->globalPos(), none ? toolTip(index) : buttonName(index, button),
        view->viewport(), none ? option.rect : buttonRect(ours, index, button));
    return true;
}
