#include "recentfile/ui/recentfiledelegate.h"

#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recentfilemodel.h"

#include <QAbstractItemView>
#include <QDir>
#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;

/// What one row says, and in which fonts.
struct ZelBoxRecentFileDelegate::Row
{
    QFont nameFont;
    QFont smallFont;
    QString name;
    QString folder;
    QString time;
    QString badge;
    bool missing = false;

    Row(const QFont &font, const QModelIndex &index)
        : nameFont(font),
          smallFont(ZelBoxRecentFileDelegate::smallFont(font)),
          name(plainLine(index.data(Model::NameRole).toString())), // measured and painted alike
          time(index.data(Model::TimeTextRole).toString()),
          missing(index.data(Model::PresenceRole).toInt() == int(RecentFileInfo::Presence::Missing))
    {
        const QString path = index.data(Model::PathRole).toString();
        folder = path.isEmpty() ? tr("On another device") : folderText(path, QDir::homePath());
        const int unread = index.data(Model::UnreadRole).toInt();
        if (missing)
            badge = tr("Missing");
        else if (unread == Model::New)
            badge = tr("New");
        else if (unread != Model::NotUnread)
            badge = tr("Modify");
    }
};

namespace {

void paintGround(QPainter *painter, const QRect &ground, const QStyleOptionViewItem &option)
{
    const qreal radius = KLiteStyle::dpiScaledF(6);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected || option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(KSkin::color(selected ? KSkin::Color::Selected : KSkin::Color::Hover));
        painter->drawRoundedRect(ground, radius, radius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        const qreal width = KLiteStyle::dpiScaledF(1.5);
        painter->setPen(QPen(KSkin::color(KSkin::Color::Accent), width));
        painter->setBrush(Qt::NoBrush);
        const QRectF ring = QRectF(ground).adjusted(width / 2, width / 2, -width / 2, -width / 2);
        painter->drawRoundedRect(ring, radius, radius);
    }
}

void paintBadge(QPainter *painter, const QRect &rect, const QString &text, bool missing)
{
    const QColor color = KSkin::color(missing ? KSkin::Color::TextSecondary : KSkin::Color::Accent);
    QColor ground = color;
    ground.setAlphaF(0.14);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(rect, rect.height() / 2.0, rect.height() / 2.0);
    painter->setPen(color);
    painter->drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, text);
}

} // namespace

QFont ZelBoxRecentFileDelegate::smallFont(const QFont &font)
{
    QFont small = font;
    if (font.pointSizeF() > 0)
        small.setPointSizeF(font.pointSizeF() * 0.9);
    else
        small.setPixelSize(qMax(1, qRound(font.pixelSize() * 0.9)));
    return small;
}

QSize ZelBoxRecentFileDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const auto metrics =
        RecentCellMetrics::of(QFontMetrics(option.font), QFontMetrics(smallFont(option.font)));
    return {metrics.leastNameWidth * 2, metrics.rowHeight};
}

void ZelBoxRecentFileDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    Row row(option.font, index);
    const QFontMetrics nameMetrics(row.nameFont, painter->device());
    const QFontMetrics smallMetrics(row.smallFont, painter->device());
    const auto metrics = RecentCellMetrics::of(nameMetrics, smallMetrics);
    RecentCell::Wishes wishes{nameMetrics.horizontalAdvance(row.name) + 1,
        row.badge.isEmpty() ? 0 : smallMetrics.horizontalAdvance(row.badge),
        row.time.isEmpty() ? 0 : smallMetrics.horizontalAdvance(row.time) + 1};
    RecentCell cell = RecentCell::layout(option.rect, metrics, wishes);
    row.name = elidedName(row.name, nameMetrics, cell.name.width());
    wishes.name = nameMetrics.horizontalAdvance(row.name) + 1; // a badge follows what is left of the name
    cell = RecentCell::layout(option.rect, metrics, wishes);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(painter, cell.ground, option);
    const QIcon icon = KFileIconProvider::instance()->icon(index.data(Model::NameRole).toString());
    icon.paint(painter, cell.icon, Qt::AlignCenter, row.missing ? QIcon::Disabled : QIcon::Normal);
    paintTexts(painter, cell, row);
    painter->restore();
}

void ZelBoxRecentFileDelegate::paintTexts(QPainter *painter, const RecentCell &cell, const Row &row) const
{
    constexpr int Line = Qt::AlignVCenter | Qt::TextSingleLine;
    const QColor quiet = KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::TextSecondary);

    painter->setFont(row.nameFont);
    painter->setPen(KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::Text));
    painter->drawText(cell.name, Line | Qt::AlignLeft, row.name);

    painter->setFont(row.smallFont);
    painter->setPen(quiet);
    const QFontMetrics smallMetrics(row.smallFont, painter->device());
    painter->drawText(cell.folder, Line | Qt::AlignLeft,
        smallMetrics.elidedText(row.folder, Qt::ElideMiddle, cell.folder.width()));
    if (!cell.time.isNull())
        painter->drawText(cell.time, Line | Qt::AlignRight, row.time);
    if (!cell.badge.isNull())
        paintBadge(painter, cell.badge, row.badge, row.missing);
}

QString ZelBoxRecentFileDelegate::toolTip(const QModelIndex &index)
{
    const QString path = index.data(Qt::ToolTipRole).toString();
    const QString first = plainLine(path.isEmpty() ? index.data(Qt::DisplayRole).toString() : path);
    const QDateTime time = index.data(Model::LastAccessRole).toDateTime();
    return QStringLiteral("<p style='white-space:pre-wrap'>") + first.toHtmlEscaped() + QStringLiteral("<br>")
        + QLocale().toString(time, QLocale::LongFormat).toHtmlEscaped() + QStringLiteral("</p>");
}

bool ZelBoxRecentFileDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), toolTip(index), view->viewport(), option.rect);
    return true;
}
