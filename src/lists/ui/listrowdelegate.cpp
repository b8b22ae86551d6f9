#include "lists/ui/listrowdelegate.h"

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
