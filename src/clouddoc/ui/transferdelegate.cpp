#include "clouddoc/ui/transferdelegate.h"

#include "clouddoc/cloudtransfermodel.h"
#include "widgets/nametext.h"

TransferRow TransferDelegate::rowOf(const QModelIndex &index) const
{
    return TransferRow::of(index.data(CloudTransferModel::TransferRole).value<CloudTransfer>());
}

QString TransferDelegate::buttonName(const QModelIndex &, int button) const
{
    return TransferRow::Button(button) == TransferRow::Button::Cancel ? tr("Cancel") : tr("Try again");
}

QString TransferDelegate::toolTip(const QModelIndex &index) const
{
    return zel::plainToolTip({rowOf(index).name});
}
