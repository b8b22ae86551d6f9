#include "clouddoc/ui/transferdelegate.h"

#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/ui/transferlistview.h"

TransferDelegate::TransferDelegate(TransferListView *view) : RowDelegate(view), m_view(view) { }

TransferRow TransferDelegate::rowOf(const QModelIndex &index) const
{
    return TransferRow::of(index.data(CloudTransferModel::TransferRole).value<CloudTransfer>());
}

void TransferDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    ListRowOption ours(option);
    if (m_view->hotRow() == index) {
        ours.hovered = int(rowOf(index).button);
        ours.pressed = m_view->isHotPressed() ? ours.hovered : ListRowOption::NoButton;
    }
    RowDelegate::paint(painter, ours, index);
}

QString TransferDelegate::buttonName(const QModelIndex &, int button) const
{
    return TransferRow::Button(button) == TransferRow::Button::Cancel ? tr("Cancel") : tr("Try again");
}

QString TransferDelegate::toolTip(const QModelIndex &index) const
{
    return rowOf(index).name.toHtmlEscaped();
}
