// Painting of a row; what it says and where is in listrow.cpp.
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "lists/ui/listrow.h"
#include "lists/ui/rowicon.h"
#include "widgets/rowpaint.h"

#include <QPainter>

using namespace zel;

namespace {

constexpr qreal FadedOpacity = 0.5;

/// One painting of one row.
class RowPainter
{
public:
    RowPainter(QPainter *painter, const ListRow &row, const RowCell &cell, const RowFonts &fonts)
        : m_painter(painter),
          m_row(row),
          m_cell(cell),
          m_fonts(fonts),
          m_text(KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::Text)),
          m_quiet(KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::TextSecondary))
    {
    }

    void paintName()
    {
        m_painter->setFont(m_fonts.name);
        m_painter->setPen(m_text);
        paintMarkedLine(m_painter, m_cell.name, m_fonts.nameMetrics, {m_row.name, m_row.nameMarks});
        if (!m_cell.nameGlyph.isNull())
            paintGlyph(m_painter, m_cell.nameGlyph, m_row.nameGlyph, toned(m_row.problem));
    }

    void paintSmallTexts()
    {
        m_painter->setFont(m_fonts.small);
        m_painter->setPen(m_quiet);
        if (!m_cell.place.isNull())
            paintMarkedLine(m_painter, m_cell.place, m_fonts.smallMetrics, {m_row.place, m_row.placeMarks});
        if (!m_cell.snippet.isNull())
            paintMarkedLine(m_painter, m_cell.snippet, m_fonts.smallMetrics, m_row.snippet);
        paintLine(m_cell.detail, m_row.detail);
        paintLine(m_cell.time, m_row.time);
        for (int i = 0; i < m_cell.columns.size(); ++i)
            paintColumn(m_cell.columns[i], m_row.columns.at(i), m_row.columnTexts.value(i));
        if (!m_cell.placeGlyph.isNull())
            paintGlyph(m_painter, m_cell.placeGlyph, m_row.placeGlyph, m_quiet);
    }

    void paintState()
    {
        if (!m_cell.state.isNull()) {
            m_painter->setPen(toned(m_row.problem));
            paintLine(m_cell.state, m_row.state);
        }
        if (!m_cell.progress.isNull())
            paintProgress(m_painter, m_cell.progress, m_row.progress);
    }

    void paintRowBadge(bool selected)
    {
        if (m_cell.badge.isNull())
            return;
        const int padding = m_fonts.sizes.badgePadding;
        const QColor color = KSkin::color(m_row.missing ? KSkin::Color::TextSecondary : KSkin::Color::Accent);
        paintBadge(m_painter, m_cell.badge, color, selected);
        paintLine(m_cell.badge.adjusted(padding, 0, -padding, 0), m_row.badge);
    }

    void paintButtons(const ListRowOption &option)
    {
        for (int i = 0; i < m_cell.buttons.size(); ++i) {
            const RowButton &button = m_row.buttons.at(i);
            const bool hovered = option.hovered == button.number;
            if (hovered)
                paintButtonVeil(m_painter, m_cell.buttons[i], option.pressed == button.number);
            const int side = KLiteStyle::dpiScaled(look::Glyph);
            QRect glyph(0, 0, side, side);
            glyph.moveCenter(m_cell.buttons[i].center());
            paintGlyph(m_painter, glyph, button.icon,
                KSkin::color(hovered ? KSkin::Color::Text : KSkin::Color::TextSecondary));
        }
    }

private:
    QColor toned(bool problem) const { return problem ? KSkin::color(KSkin::Color::Badge) : m_quiet; }

    void paintLine(const QRect &rect, const QString &text)
    {
        if (!rect.isNull())
            paintTextLine(m_painter, rect, m_fonts.smallMetrics, text);
    }

    void paintColumn(QRect rect, RowColumn column, const QString &text)
    {
        if (rect.isNull() || text.isEmpty())
            return;
        if (column == RowColumn::Size) // numbers are compared by their ends
            rect.setLeft(rect.right() + 1 - m_fonts.smallMetrics.horizontalAdvance(text));
        paintLine(rect, text);
    }

    QPainter *m_painter;
    const ListRow &m_row;
    const RowCell &m_cell;
    const RowFonts &m_fonts;
    QColor m_text;
    QColor m_quiet;
};

} // namespace

void ListRow::paint(
    QPainter *painter, const RowCell &cell, const RowFonts &fonts, const ListRowOption &option) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintRowGround(painter, cell.ground, option);
    if (option.dropTarget)
        paintDropGround(painter, cell.ground);
    if (faded)
        painter->setOpacity(FadedOpacity);
    paintFileIcon(painter, cell.icon, fileName, missing ? QString() : picture, missing);
    RowPainter row(painter, *this, cell, fonts);
    row.paintName();
    row.paintSmallTexts();
    row.paintState();
    row.paintRowBadge(option.state.testFlag(QStyle::State_Selected));
    row.paintButtons(option);
    painter->restore();
}
