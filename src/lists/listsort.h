#pragma once

#include <Qt>

namespace zel {

/// In which order a list stands. Plain value.
struct ListSort
{
    enum class Key { Time, Name, Size, Type };
    Key key = Key::Time;
    Qt::SortOrder order = Qt::DescendingOrder; ///< of Time: newest first; of Name: usually ascending

    bool operator==(const ListSort &) const = default;
};

} // namespace zel
