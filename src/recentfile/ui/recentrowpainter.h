#pragma once

#include "recentfile/ui/recentcell.h"
#include "recentfile/ui/recentrow.h"

#include <QStyleOptionViewItem>

/// What a row is painted with beyond the usual option.
struct RecentRowState
{
    RecentDetail detail = RecentDetail::Time;
    bool buttons = false;
    RecentCell::Button hovered = RecentCell::Button::None;
    RecentCell::Button pressed = RecentCell::Button::None;
};

/// The recent list hands it to its delegate, which knows it again by its version.
struct RecentRowOption : QStyleOptionViewItem, RecentRowState
{
    enum StyleOptionVersion { Version = 100 };

    RecentRowOption() : QStyleOptionViewItem(Version) { }
    explicit RecentRowOption(const QStyleOptionViewItem &usual, const RecentRowState &more = {})
        : QStyleOptionViewItem(usual), RecentRowState(more)
    {
        version = Version; // copies of the base class have its own
    }
    RecentRowOption(const RecentRowOption &other) : RecentRowOption(other, other) { }
    RecentRowOption &operator=(const RecentRowOption &) = default;
};

namespace zel::recent {

/// Paints `row` into `cell`, both from RecentRow::fit(). GUI thread; asks for the file's thumbnail.
void paintRow(QPainter *painter, const RecentRow &row, const RecentCell &cell, const RecentRowFonts &fonts,
    const RecentRowOption &option);

/// The file's thumbnail, else the icon of its type, in the middle of `rect`.
void paintFileIcon(QPainter *painter, const QRect &rect, const RecentRow &row);

} // namespace zel::recent
