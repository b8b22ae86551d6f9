#include "widgets/sidelist.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/focusring.h"
#include "widgets/svgicon.h"

#include <QEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

namespace look = zel::look;

constexpr int MinWidth = 168;
constexpr int IconRole = Qt::UserRole; // resource path
constexpr int Gap = 2;                 // between rows

struct Cell
{
    QRect plate;
    QRect glyph;
    QRect title;
};

Cell cellIn(const QRect &row, Qt::LayoutDirection direction)
{
    const int pad = KLiteStyle::dpiScaled(look::SpaceM);
    const int side = KLiteStyle::dpiScaled(look::Glyph);
    Cell cell{row.adjusted(0, 0, 0, -KLiteStyle::dpiScaled(Gap)), {}, {}};
    const QRect &plate = cell.plate;
    const QRect glyph(plate.left() + pad, plate.top() + (plate.height() - side) / 2, side, side);
    const int textLeft = glyph.right() + 1 + KLiteStyle::dpiScaled(10);
    const QRect title(textLeft, plate.top(), plate.right() - pad - textLeft + 1, plate.height());
    cell.glyph = QStyle::visualRect(direction, plate, glyph);
    cell.title = QStyle::visualRect(direction, plate, title);
    return cell;
}

class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QFontMetrics metrics(look::font(look::Type::Strong, option.font));
        const int beside = KLiteStyle::dpiScaled(2 * look::SpaceM + look::Glyph + 10);
        const int tall = qMax(KLiteStyle::dpiScaled(look::SideRowHeight),
            metrics.height() + KLiteStyle::dpiScaled(look::SpaceS));
        return {
            metrics.horizontalAdvance(index.data().toString()) + beside, tall + KLiteStyle::dpiScaled(Gap)};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool chosen = option.state & QStyle::State_Selected;
        const bool hovered = option.state & QStyle::State_MouseOver;
        const Cell cell = cellIn(option.rect, option.direction);
        const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (chosen || hovered) {
            painter->setPen(chosen && KSkin::highContrast() ? QPen(KSkin::color(KSkin::Color::ControlBorder))
                                                            : QPen(Qt::NoPen));
            painter->setBrush(KSkin::color(chosen ? KSkin::Color::Selected : KSkin::Color::Hover));
            painter->drawRoundedRect(QRectF(cell.plate).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
        }
        const QColor ink = KSkin::color(chosen ? KSkin::Color::Accent : KSkin::Color::TextSecondary);
        const qreal ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(cell.glyph.topLeft(),
            zel::tintedPixmap(index.data(IconRole).toString(), cell.glyph.size(), ratio, ink));
        painter->setPen(KSkin::color(KSkin::Color::Text));
        painter->setFont(look::font(chosen ? look::Type::Strong : look::Type::Body, option.font));
        const QString text =
            painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, cell.title.width());
        painter->drawText(cell.title,
            Qt::AlignVCenter | int(QStyle::visualAlignment(option.direction, Qt::AlignLeft)), text);
        if (chosen)
            zel::paintFocusRing(painter, option.widget, cell.plate, radius);
        painter->restore();
    }
};

} // namespace

SideList::SideList(const QString &name, QWidget *parent) : QListWidget(parent)
{
    setAccessibleName(name);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setMouseTracking(true);
    setItemDelegate(new RowDelegate(this));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    viewport()->setAutoFillBackground(false); // the dialog's own ground shows through
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            Q_EMIT pageChosen(row);
    });
}

int SideList::addPage(const QString &icon, const QString &title)
{
    auto *item = new QListWidgetItem(title, this);
    item->setData(IconRole, icon);
    if (count() == 1)
        setCurrentRow(0);
    updateGeometry();
    return count() - 1;
}

QSize SideList::sizeHint() const
{
    const int widest = qMax(sizeHintForColumn(0), KLiteStyle::dpiScaled(MinWidth));
    return {widest, qMax(0, sizeHintForRow(0)) * count()};
}

// A click with Ctrl or beside the rows would leave the dialog without a page.
QItemSelectionModel::SelectionFlags SideList::selectionCommand(const QModelIndex &index, const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void SideList::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    QListWidget::changeEvent(event);
}
