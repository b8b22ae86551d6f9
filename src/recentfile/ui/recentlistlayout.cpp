#include "recentfile/ui/recentlistlayout.h"

#include <algorithm>

RecentListLayout::RecentListLayout(
    const zel::recent::TimeGroups &groups, int rowHeight, int headerHeight, int bottomMargin)
    : m_rowHeight(std::max(1, rowHeight)), m_headerHeight(headerHeight)
{
    int y = 0;
    for (size_t i = 0; i < groups.size(); ++i) {
        if (groups[i].count == 0)
            continue;
        Block &block = m_blocks[size_t(m_blockCount++)];
        block = {int(i), y, groups[i].firstRow, groups[i].count};
        y = bottom(block);
    }
    m_contentHeight = y > 0 ? y + bottomMargin : 0;
}

int RecentListLayout::rowTop(int row) const
{
    for (int i = 0; i < m_blockCount; ++i) {
        const Block &block = m_blocks[size_t(i)];
        if (row >= block.firstRow && row < block.firstRow + block.count)
            return rowsTop(block) + (row - block.firstRow) * m_rowHeight;
    }
    return -1;
}

int RecentListLayout::rowAtOrAfter(int y) const
{
    for (int i = 0; i < m_blockCount; ++i) {
        const Block &block = m_blocks[size_t(i)];
        if (y < bottom(block))
            return block.firstRow + std::max(0, y - rowsTop(block)) / m_rowHeight;
    }
    return -1;
}

int RecentListLayout::rowAtOrBefore(int y) const
{
    for (int i = m_blockCount; i-- > 0;) {
        const Block &block = m_blocks[size_t(i)];
        if (y >= rowsTop(block))
            return block.firstRow + std::min((y - rowsTop(block)) / m_rowHeight, block.count - 1);
    }
    return -1;
}

int RecentListLayout::rowAt(int y) const
{
    const int row = rowAtOrAfter(y);
    return row >= 0 && y >= rowTop(row) ? row : -1;
}

int RecentListLayout::headerTop(int group) const
{
    for (int i = 0; i < m_blockCount; ++i) {
        if (m_blocks[size_t(i)].group == group)
            return m_blocks[size_t(i)].top;
    }
    return -1;
}

RecentListLayout::StickyHeader RecentListLayout::stickyHeader(int scroll) const
{
    for (int i = m_blockCount; i-- > 0;) {
        const Block &block = m_blocks[size_t(i)];
        if (block.top > scroll)
            continue;
        const int room = i + 1 < m_blockCount ? bottom(block) - scroll : m_headerHeight;
        return {block.group, std::min(0, room - m_headerHeight)};
    }
    return {m_blockCount > 0 ? m_blocks[0].group : -1, 0};
}

std::pair<int, int> RecentListLayout::rowsBetween(int top, int bottom) const
{
    const int first = rowAtOrAfter(top);
    const int last = rowAtOrBefore(bottom - 1);
    return first < 0 || last < first ? std::pair(-1, -2) : std::pair(first, last);
}
