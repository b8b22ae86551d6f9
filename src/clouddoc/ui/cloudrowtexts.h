#pragma once

#include "lists/ui/listrow.h"

class QModelIndex;

/// What one row of the cloud list says: the name, time and size as columns, and the transfer that goes on.
struct CloudRow : ListRow
{
    static CloudRow of(const QModelIndex &index); ///< GUI thread
};
