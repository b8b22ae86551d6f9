#pragma once

#include "clouddoc/clouddocument.h"
#include "lists/listsort.h"
#include "lists/namekeys.h"

/// In which order the documents of a folder stand. Folders come first in any.
using CloudSort = zel::ListSort;

/// Compares documents as a file manager does; equal ones by name. Keeps keys of the names, by handle. One
/// thread at a time.
class CloudDocOrder
{
public:
    CloudSort sort() const { return m_sort; }
    void setSort(CloudSort sort) { m_sort = sort; }

    void setName(zel::Handle handle, const QString &name); ///< is new
    void clear();
    /// Whether `a` comes before `b`; a total order. Names of both handles are set.
    bool isBefore(
        const CloudDocument &a, zel::Handle handleA, const CloudDocument &b, zel::Handle handleB) const;

private:
    int compare(
        const CloudDocument &a, zel::Handle handleA, const CloudDocument &b, zel::Handle handleB) const;

    CloudSort m_sort{CloudSort::Key::Name, Qt::AscendingOrder};
    zel::NameKeys m_names;
    zel::NameKeys m_suffixes;
};
