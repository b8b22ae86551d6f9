#include "lists/listlayout.h"

#include <algorithm>

ListLayout::ListLayout(const zel::ListSections &sections, const Sizes &sizes) : m_sizes(sizes)
{
    m_sizes.row = std::max(1, sizes.row);
    m_blocks.reserve(sections.size());
    int y = 0;
    for (const zel::ListSection &section : sections) {
        const bool titled = !section.title.isEmpty();
        const int head = titled ? sizes.header : m_blocks.isEmpty() ? 0 : sizes.gap;
        m_blocks << Block{y, head, section.firstRow, section.count, titled};
        y = bottom(m_blocks.constLast());
    }
    m_contentHeight = y > 0 ? y + sizes.bottom : 0;
}

const ListLayout::Block *ListLayout::blockOf(int row) const
{
    const auto block = std::partition_point(m_blocks.cbegin(), m_blocks.cend(),
        [row](const Block &candidate) { return candidate.firstRow + candidate.count <= row; });
    return row >= 0 && block != m_blocks.cend() ? &*block : nullptr;
}

int ListLayout::rowTop(int row) const
{
    const Block *block = blockOf(row);
    return block ? rowsTop(*block) + (row - block->firstRow) * m_sizes.row : -1;
}

int ListLayout::sectionOf(int row) const
{
    const Block *block = blockOf(row);
    return block ? int(block - m_blocks.constData()) : -1;
}

int ListLayout::coverOf(int row) const
{
    const Block *block = blockOf(row);
    return block && block->titled ? block->head : 0;
}

int ListLayout::rowAtOrAfter(int y) const
{
    const auto block = std::partition_point(m_blocks.cbegin(), m_blocks.cend(),
        [this, y](const Block &candidate) { return bottom(candidate) <= y; });
    return block == m_blocks.cend() ? -1 : block->firstRow + std::max(0, y - rowsTop(*block)) / m_sizes.row;
}

int ListLayout::rowAtOrBefore(int y) const
{
    const auto next = std::partition_point(m_blocks.cbegin(), m_blocks.cend(),
        [this, y](const Block &candidate) { return rowsTop(candidate) <= y; });
    if (next == m_blocks.cbegin())
        return -1;
    const Block &block = *std::prev(next);
    return block.firstRow + std::min((y - rowsTop(block)) / m_sizes.row, block.count - 1);
}

int ListLayout::rowAt(int y) const
{
    const int row = rowAtOrAfter(y);
    return row >= 0 && y >= rowTop(row) ? row : -1;
}

int ListLayout::pageUp(int row, int height) const
{
    return std::min(row - 1, rowAtOrAfter(std::max(0, rowTop(row) - height + m_sizes.row - 1)));
}

int ListLayout::pageDown(int row, int height) const
{
    return std::max(row + 1, rowAtOrBefore(rowTop(row) + height));
}

QVector<ListLayout::Head> ListLayout::headsBetween(int top, int bottom) const
{
    QVector<Head> heads;
    for (int i = std::max(0, sectionOf(rowAtOrAfter(top))); i < m_blocks.size(); ++i) {
        const Block &block = m_blocks.at(i);
        if (block.top >= bottom)
            break;
        if (block.head > 0 && rowsTop(block) > top)
            heads << Head{i, block.top, block.head, block.titled};
    }
    return heads;
}

ListLayout::Head ListLayout::stickyHeader(int scroll) const
{
    const auto next = std::partition_point(m_blocks.cbegin(), m_blocks.cend(),
        [scroll](const Block &candidate) { return candidate.top <= scroll; });
    const auto block = next == m_blocks.cbegin() ? next : std::prev(next);
    if (block == m_blocks.cend() || !block->titled)
        return {};
    const bool last = std::next(block) == m_blocks.cend();
    const int room = last ? block->head : bottom(*block) - std::max(scroll, 0);
    return {int(block - m_blocks.cbegin()), std::min(0, room - block->head), block->head, true};
}

std::pair<int, int> ListLayout::rowsBetween(int top, int bottom) const
{
    const int first = rowAtOrAfter(top);
    const int last = rowAtOrBefore(bottom - 1);
    return first < 0 || last < first ? std::pair(-1, -2) : std::pair(first, last);
}
