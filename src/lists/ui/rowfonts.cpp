#include "lists/ui/rowfonts.h"

#include "klitestyle.h"
#include "klook.h"

#include <algorithm>

RowMetrics RowMetrics::of(const QFontMetrics &name, const QFontMetrics &small)
{
    const auto scaled = [](int value) { return KLiteStyle::dpiScaled(value); };
    const auto width = [&small](const QString &text) { return small.horizontalAdvance(text) + 1; };
    RowMetrics sizes;
    sizes.sideMargin = sizes.padding = sizes.spacing = scaled(zel::look::SpaceM);
    sizes.iconSize = scaled(32);
    sizes.gap = scaled(6);
    sizes.lineGap = 2;
    sizes.glyphSize = scaled(12);
    sizes.buttonSize = scaled(28);
    sizes.badgeHeight = small.height() + scaled(1);
    sizes.badgePadding = scaled(6);
    sizes.barHeight = scaled(3);
    sizes.nameHeight = name.height();
    sizes.smallHeight = small.height();
    sizes.leastNameWidth = scaled(96);
    sizes.wideNameWidth = scaled(200);
    sizes.timeColumn = std::max(width(QStringLiteral("2000-00-00")), scaled(112)); // "yesterday 00:00"
    sizes.sizeColumn = std::max(width(QStringLiteral("0,000.0 MB")), scaled(64));
    sizes.stateColumn = scaled(120);
    const int twoLines = sizes.nameHeight + sizes.smallHeight;
    sizes.rowHeight = std::max(scaled(52), twoLines + scaled(14));
    sizes.snippetHeight = std::max(scaled(64), twoLines + sizes.smallHeight + scaled(16));
    return sizes;
}

int RowMetrics::widthOf(RowColumn column) const
{
    switch (column) {
    case RowColumn::Time:
        return timeColumn;
    case RowColumn::Size:
        return sizeColumn;
    }
    return 0;
}

RowFonts::RowFonts(const QFont &font)
    : name(font),
      small(zel::look::font(zel::look::Type::Caption, font)),
      nameMetrics(name),
      smallMetrics(small),
      sizes(RowMetrics::of(nameMetrics, smallMetrics))
{
}
