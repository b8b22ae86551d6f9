#pragma once

#include "clouddoc/ui/cloudrow.h"

#include <QStyleOptionViewItem>

namespace zel::clouddoc {

/// Paints `row` into `cell`, both from CloudRow::fit(). GUI thread. `dropTarget`: what is dragged would go
/// into this folder.
void paintRow(QPainter *painter, const CloudRow &row, const CloudCell &cell, const CloudRowFonts &fonts,
    const QStyleOptionViewItem &option, bool dropTarget);

/// A thin bar; below 0 percent an empty one.
void paintProgress(QPainter *painter, const QRect &rect, int percent, const QColor &color);

} // namespace zel::clouddoc
