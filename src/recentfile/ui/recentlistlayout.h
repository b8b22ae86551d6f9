#pragma once

#include "recentfile/timegroups.h"

#include <utility>

/// Vertical places of the rows and group headers of the recent list, by arithmetic over the seven groups:
/// every question costs the same for ten rows and for 100,000. Plain value; y grows downwards from the top of
/// the whole list, in pixels. An empty group takes no place.
class RecentListLayout
{
public:
    /// What stays at the top edge while the list scrolls.
    struct StickyHeader
    {
        int group = -1; ///< index into TimeGroups, -1: nothing
        int top = 0;    ///< y in the viewport; negative while the next header pushes it out
    };

    RecentListLayout() = default;
    RecentListLayout(
        const zel::recent::TimeGroups &groups, int rowHeight, int headerHeight, int bottomMargin = 0);

    int contentHeight() const { return m_contentHeight; }
    int rowHeight() const { return m_rowHeight; }
    int headerHeight() const { return m_headerHeight; }

    int rowTop(int row) const;      ///< -1 for a row that does not exist
    int rowAt(int y) const;         ///< -1 on a header, above the first and below the last row
    int rowAtOrAfter(int y) const;  ///< first row that ends below y; -1 when there is none
    int rowAtOrBefore(int y) const; ///< last row that starts at or above y; -1 when there is none
    int headerTop(int group) const; ///< -1 for an empty group
    StickyHeader stickyHeader(int scroll) const;
    /// First and last row that show between `top` and `bottom` (exclusive); {-1, -2} when none does.
    std::pair<int, int> rowsBetween(int top, int bottom) const;

private:
    struct Block
    {
        int group;
        int top; ///< of its header
        int firstRow;
        int count;
    };
    int rowsTop(const Block &block) const { return block.top + m_headerHeight; }
    int bottom(const Block &block) const { return rowsTop(block) + block.count * m_rowHeight; }

    std::array<Block, zel::recent::TimeGroupCount> m_blocks = {};
    int m_blockCount = 0; // the groups that have rows, in order
    int m_rowHeight = 1;
    int m_headerHeight = 0;
    int m_contentHeight = 0;
};
