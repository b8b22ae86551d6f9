#pragma once

#include "lists/ui/listrow.h"

#include <QPixmap>

namespace zel {

/// What the pointer carries while rows are dragged: icon and name of `row`, and how many there are.
QPixmap dragCard(const ListRow &row, int count, const RowFonts &fonts, qreal ratio);

} // namespace zel
