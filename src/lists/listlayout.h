#pragma once

#include "lists/listsection.h"

#include <utility>

/// Vertical places of the rows and section headers of a list, by arithmetic over the sections: a question
/// costs a search among them, however many rows they have. Plain value; y grows downwards from the top of the
/// whole list, in pixels.
class ListLayout
{
public:
    struct Sizes
    {
        int row = 1;
        int header = 0;
        int gap = 0;    ///< before a section without header, unless it is the first
        int bottom = 0; ///< margin below the last row
    };
    /// What stands above a section's rows: its header, or a gap when it has no title.
    struct Head
    {
        int section = -1; ///< index into the sections, -1: nothing
        int top = 0;
        int height = 0;
        bool titled = false;
    };

    ListLayout() = default;
    ListLayout(const zel::ListSections &sections, const Sizes &sizes);

    int contentHeight() const { return m_contentHeight; }
    int rowHeight() const { return m_sizes.row; }
    int headerHeight() const { return m_sizes.header; }

    int rowTop(int row) const;      ///< -1 for a row that does not exist
    int rowAt(int y) const;         ///< -1 on a header, above the first and below the last row
    int rowAtOrAfter(int y) const;  ///< first row that ends below y; -1 when there is none
    int rowAtOrBefore(int y) const; ///< last row that starts at or above y; -1 when there is none
    /// The furthest row that begins within `height` above or below where `row` does: there and back again
    /// ends at the start. At least one row further, which may be none.
    int pageUp(int row, int height) const;
    int pageDown(int row, int height) const;
    int sectionOf(int row) const; ///< -1 for a row that does not exist
    int coverOf(int row) const;   ///< height of the header that can stay above the row at the top edge
    QVector<Head> headsBetween(int top, int bottom) const; ///< that touch the range, in order
    /// The title that stays at the top edge while the list scrolls; its top is a place in the viewport,
    /// negative while the next section pushes it out. Section -1: nothing stays.
    Head stickyHeader(int scroll) const;
    /// First and last row that show between `top` and `bottom` (exclusive); {-1, -2} when none does.
    std::pair<int, int> rowsBetween(int top, int bottom) const;

private:
    struct Block
    {
        int top; ///< of its head
        int head;
        int firstRow;
        int count;
        bool titled;
    };
    int rowsTop(const Block &block) const { return block.top + block.head; }
    int bottom(const Block &block) const { return rowsTop(block) + block.count * m_sizes.row; }
    const Block *blockOf(int row) const;

    QVector<Block> m_blocks;
    Sizes m_sizes;
    int m_contentHeight = 0;
};
