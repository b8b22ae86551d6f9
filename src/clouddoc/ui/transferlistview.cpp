#include "clouddoc/ui/transferlistview.h"

#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/ui/transferdelegate.h"

#include <QMouseEvent>

using Button = TransferRow::Button;

namespace {

CloudTransfer transferOf(const QModelIndex &index)
{
    return index.data(CloudTransferModel::TransferRole).value<CloudTransfer>();
}

} // namespace

TransferListView::TransferListView(QWidget *parent)
    : QListView(parent), m_delegate(new TransferDelegate(this))
{
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setFrameShape(NoFrame);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    setAccessibleName(tr("Transfers"));
}

int TransferListView::rowHeight() const
{
    return m_delegate->rowHeight(font());
}

QModelIndex TransferListView::buttonAt(const QPoint &pos) const
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return {};
    ListRowOption option(viewOptions());
    option.rect = visualRect(index);
    return m_delegate->buttonAt(option, index, pos) == ListRowOption::NoButton ? QModelIndex() : index;
}

void TransferListView::setHot(const QModelIndex &index)
{
    if (m_hot == index)
        return;
    update(m_hot);
    m_hot = index;
    update(m_hot);
}

void TransferListView::press(const QModelIndex &index)
{
    const CloudTransfer transfer = transferOf(index);
    switch (TransferRow::of(transfer).button) {
    case Button::None:
        return;
    case Button::Cancel:
        Q_EMIT sigCancelRequested({transfer.id});
        return;
    case Button::Retry:
        Q_EMIT sigRetryRequested(transfer.id);
        return;
    }
}

void TransferListView::choose(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (transferOf(index).state == CloudTransfer::State::Done)
        Q_EMIT sigOpenRequested(index);
    else if (TransferRow::of(transferOf(index)).button == Button::Retry)
        press(index);
}

void TransferListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        choose(currentIndex());
    } else if (event->key() == Qt::Key_Delete) {
        QStringList ids;
        const QModelIndexList rows = selectedIndexes();
        for (const QModelIndex &row : rows) {
            if (transferOf(row).isActive())
                ids << transferOf(row).id;
        }
        if (!ids.isEmpty())
            Q_EMIT sigCancelRequested(ids);
    } else {
        QListView::keyPressEvent(event);
    }
}

void TransferListView::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton ? buttonAt(event->pos()) : QModelIndex();
    if (m_pressed.isValid())
        update(m_pressed);
    else
        QListView::mousePressEvent(event);
}

void TransferListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressed, QPersistentModelIndex());
    if (!pressed.isValid())
        return QListView::mouseReleaseEvent(event);
    update(pressed);
    if (buttonAt(event->pos()) == pressed)
        press(pressed);
}

void TransferListView::mouseMoveEvent(QMouseEvent *event)
{
    setHot(buttonAt(event->pos()));
    if (!m_pressed.isValid())
        QListView::mouseMoveEvent(event);
}

void TransferListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (buttonAt(event->pos()).isValid())
        mousePressEvent(event); // two clicks on a button are two
    else
        choose(indexAt(event->pos()));
}

bool TransferListView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        setHot({});
    return QListView::viewportEvent(event);
}
