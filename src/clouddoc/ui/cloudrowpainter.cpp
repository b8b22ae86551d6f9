#include "clouddoc/ui/cloudrowpainter.h"

#include "clouddoc/ui/clouddrag.h"
#include "kfileiconprovider.h"
#include "kskin.h"
#include "widgets/rowpaint.h"

#include <QPainter>

namespace zel::clouddoc {

namespace {

constexpr qreal FadedOpacity = 0.5;

void paintIcon(QPainter *painter, const QRect &rect, const CloudRow &row)
{
    const QString name = row.isFolder ? QString(row.fileName + QLatin1Char('/')) : row.fileName;
    KFileIconProvider::instance()->icon(name).paint(painter, rect);
}

void paintState(QPainter *painter, const CloudRow &row, const CloudCell &cell, const CloudRowFonts &fonts)
{
    if (!cell.state.isNull()) {
        painter->setPen(KSkin::color(row.failed ? KSkin::Color::Badge : KSkin::Color::TextSecondary));
        paintTextLine(painter, cell.state, fonts.smallMetrics, row.state);
    }
    if (!cell.progress.isNull())
        paintProgress(painter, cell.progress, row.progress, KSkin::color(KSkin::Color::Accent));
}

void paintColumns(QPainter *painter, const CloudRow &row, const CloudCell &cell, const CloudRowFonts &fonts)
{
    painter->setPen(KSkin::color(KSkin::Color::TextSecondary));
    if (!cell.detail.isNull())
        paintTextLine(painter, cell.detail, fonts.smallMetrics, row.detail);
    if (!cell.time.isNull())
        paintTextLine(painter, cell.time, fonts.smallMetrics, row.time);
    if (!cell.size.isNull()) { // numbers are compared by their ends
        const int indent = cell.size.width() - fonts.smallMetrics.horizontalAdvance(row.size);
        paintTextLine(painter, cell.size.adjusted(indent, 0, 0, 0), fonts.smallMetrics, row.size);
    }
}

} // namespace

void paintProgress(QPainter *painter, const QRect &rect, int percent, const QColor &color)
{
    QColor ground = KSkin::color(KSkin::Color::Text);
    ground.setAlphaF(0.14);
    const qreal radius = rect.height() / 2.0;
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(rect, radius, radius);
    if (percent <= 0)
        return;
    QRectF done(rect);
    done.setWidth(qMax<qreal>(rect.height(), rect.width() * qMin(percent, 100) / 100.0));
    painter->setBrush(color);
    painter->drawRoundedRect(done, radius, radius);
}

void paintRow(QPainter *painter, const CloudRow &row, const CloudCell &cell, const CloudRowFonts &fonts,
    const QStyleOptionViewItem &option, bool dropTarget)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintRowGround(painter, cell.ground, option);
    if (dropTarget)
        paintDropGround(painter, cell.ground);
    if (row.faded)
        painter->setOpacity(FadedOpacity);
    paintIcon(painter, cell.icon, row);
    painter->setFont(fonts.name);
    painter->setPen(KSkin::color(KSkin::Color::Text));
    paintTextLine(painter, cell.name, fonts.nameMetrics, row.name);
    if (!cell.glyph.isNull())
        paintGlyph(painter, cell.glyph, QStringLiteral(":/icons_svg/row_problem.svg"),
            KSkin::color(KSkin::Color::Badge));
    painter->setFont(fonts.small);
    paintColumns(painter, row, cell, fonts);
    paintState(painter, row, cell, fonts);
    painter->restore();
}

} // namespace zel::clouddoc
