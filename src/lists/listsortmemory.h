#pragma once

#include "lists/listsort.h"

#include <QLatin1String>

namespace zel {

/// The settings' keys of what a list is sorted by ("time", "name", "size", "type") and of its direction.
struct ListSortKeys
{
    QLatin1String key;
    QLatin1String descending;
};

/// The order that a list was in last, `usual` at first. GUI thread.
ListSort storedSort(const ListSortKeys &names, const ListSort &usual);
void storeSort(const ListSortKeys &names, const ListSort &sort);

} // namespace zel
