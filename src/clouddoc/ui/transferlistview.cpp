#include "clouddoc/ui/transferlistview.h"

#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/ui/cloudrow.h"
#include "clouddoc/ui/cloudrowpainter.h"
#include "clouddoc/ui/transferrow.h"
#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "kskin.h"
#include "widgets/nametext.h"
#include "widgets/rowpaint.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

using Button = TransferRow::Button;

namespace {

CloudTransfer transferOf(const QModelIndex &index)
{
    return index.data(CloudTransferModel::TransferRole).value<CloudTransfer>();
}

int placeOf(CloudTransfer::State state)
{
    switch (state) {
    case CloudTransfer::State::Running:
        return 0;
    case CloudTransfer::State::Waiting:
    case CloudTransfer::State::Paused:
        return 1;
    case CloudTransfer::State::Failed:
        return 2;
    case CloudTransfer::State::Done:
    case CloudTransfer::State::Cancelled:
        break;
    }
    return 3;
}

TransferCell cellOf(const QRect &rect, const QFont &font, const TransferRow &row)
{
    const CloudRowFonts fonts(font);
    return TransferCell::layout(rect, fonts.nameMetrics, fonts.smallMetrics, row);
}

} // namespace

TransferListView::TransferListView(QWidget *parent) : QListView(parent)
{
    setItemDelegate(new TransferDelegate(this));
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
    const CloudRowFonts fonts(font());
    return TransferCell::rowHeight(fonts.nameMetrics, fonts.smallMetrics);
}

QModelIndex TransferListView::buttonAt(const QPoint &pos) const
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return {};
    const TransferCell cell = cellOf(visualRect(index), font(), TransferRow::of(transferOf(index)));
    return cell.button.contains(pos) ? index : QModelIndex();
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
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    const TransferRow row = index.isValid() ? TransferRow::of(transferOf(index)) : TransferRow();
    QString text = row.name.toHtmlEscaped();
    if (buttonAt(help->pos()).isValid())
        text = row.button == Button::Cancel ? tr("Cancel") : tr("Try again");
    QToolTip::showText(help->globalPos(), text, viewport(), visualRect(index));
    return true;
}

ShownTransfers::ShownTransfers(CloudTransferModel *transfers, QObject *parent) : QSortFilterProxyModel(parent)
{
    setSourceModel(transfers);
    sort(0);
}

bool ShownTransfers::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const int a = placeOf(transferOf(left).state);
    const int b = placeOf(transferOf(right).state);
    return a != b ? a < b : left.row() < right.row();
}

QVariant ShownTransfers::data(const QModelIndex &index, int role) const
{
    if (role != Qt::AccessibleDescriptionRole || !index.isValid())
        return QSortFilterProxyModel::data(index, role);
    const TransferRow row = TransferRow::of(transferOf(index));
    return row.percent < 0 ? row.status : tr("%1%, %2", "progress, details").arg(row.percent).arg(row.status);
}

TransferDelegate::TransferDelegate(TransferListView *view) : QStyledItemDelegate(view), m_view(view) { }

QSize TransferDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {1, m_view->rowHeight()};
}

void TransferDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const CloudTransfer transfer = transferOf(index);
    const TransferRow row = TransferRow::of(transfer);
    const CloudRowFonts fonts(option.font);
    const TransferCell cell = TransferCell::layout(option.rect, fonts.nameMetrics, fonts.smallMetrics, row);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    zel::paintRowGround(painter, cell.ground, option);
    const QString iconName = transfer.folder ? QString(transfer.name + QLatin1Char('/')) : transfer.name;
    KFileIconProvider::instance()->icon(iconName).paint(painter, cell.icon);
    painter->setFont(fonts.name);
    painter->setPen(KSkin::color(KSkin::Color::Text));
    zel::paintTextLine(painter, cell.name, fonts.nameMetrics,
        zel::elidedName(row.name, fonts.nameMetrics, cell.name.width()));
    painter->setFont(fonts.small);
    painter->setPen(KSkin::color(row.failed ? KSkin::Color::Badge : KSkin::Color::TextSecondary));
    zel::paintTextLine(painter, cell.status, fonts.smallMetrics,
        fonts.smallMetrics.elidedText(row.status, Qt::ElideRight, cell.status.width()));
    if (!cell.progress.isNull())
        zel::clouddoc::paintProgress(painter, cell.progress, row.percent, KSkin::color(KSkin::Color::Accent));
    if (!cell.button.isNull()) {
        const bool hot = m_view->hotRow() == index;
        if (hot)
            zel::paintButtonVeil(painter, cell.button, m_view->isHotPressed());
        const int inset = KLiteStyle::dpiScaled(row.button == Button::Cancel ? 8 : 6);
        zel::paintGlyph(painter, cell.button.adjusted(inset, inset, -inset, -inset),
            row.button == Button::Cancel ? QStringLiteral(":/icons_svg/window_close.svg")
                                         : QStringLiteral(":/icons_svg/retry.svg"),
            KSkin::color(hot ? KSkin::Color::Text : KSkin::Color::TextSecondary));
    }
    painter->restore();
}
