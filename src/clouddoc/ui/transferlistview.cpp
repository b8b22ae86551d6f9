#include "clouddoc/ui/transferlistview.h"

#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/ui/transferdelegate.h"

#include <QKeyEvent>

using Button = TransferRow::Button;

static CloudTransfer transferOf(const QModelIndex &index)
{
    return index.data(CloudTransferModel::TransferRole).value<CloudTransfer>();
}

TransferListView::TransferListView(QWidget *parent) : SectionListView(parent)
{
    setItemDelegate(new TransferDelegate(this));
    setTypeToFilter(false); // there is nothing to filter them by
    setContextMenuPolicy(Qt::DefaultContextMenu);
    setAccessibleName(tr("Transfers"));
    keyboard().bind(Qt::Key_Delete, ListKeyboard::Needs::Row, [this] { cancelSelected(); });
    connect(this, &TransferListView::buttonClicked, this, &TransferListView::press);
    connect(this, &TransferListView::activated, this, &TransferListView::choose);
    connect(this, &TransferListView::doubleClicked, this, &TransferListView::choose);
}

void TransferListView::press(const QModelIndex &index)
{
    const CloudTransfer transfer = transferOf(index);
    switch (TransferRow::of(transfer).button) {
    case Button::None:
        return;
    case Button::Cancel:
        Q_EMIT cancelRequested({transfer.id});
        return;
    case Button::Retry:
        Q_EMIT retryRequested(transfer.id);
        return;
    }
}

void TransferListView::choose(const QModelIndex &index)
{
    if (transferOf(index).state == CloudTransfer::State::Done)
        Q_EMIT openRequested(index);
    else if (TransferRow::of(transferOf(index)).button == Button::Retry)
        press(index);
}

void TransferListView::cancelSelected()
{
    QStringList ids;
    const QModelIndexList rows = chosenRows();
    for (const QModelIndex &row : rows) {
        if (transferOf(row).isActive())
            ids << transferOf(row).id;
    }
    if (!ids.isEmpty())
        Q_EMIT cancelRequested(ids);
}

// Escape closes the panel, whatever is selected in it.
void TransferListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        SectionListView::keyPressEvent(event);
}
