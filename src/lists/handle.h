#pragma once

#include <QtGlobal>
#include <vector>

namespace zel {

/// The number of a record's place in memory: the same while the record is here, wherever its row moves, and
/// free for another one afterwards. Small numbers, so that what is known of a record can lie in a vector.
using Handle = quint32;
using Handles = std::vector<Handle>;

} // namespace zel
