#pragma once

#include "clouddoc/clouddocument.h"
#include "lists/listsort.h"
#include "lists/namekeys.h"

/// Compares documents as a file manager does: folders first, equal ones by name. Keeps keys of the names, by
/// handle. One thread at a time.
class CloudDocOrder
{
public:
    zel::ListSort sort() const { return m_sort; }
    void setSort(zel::ListSort sort) { m_sort = sort; }

    void setName(zel::Handle handle, const QString &name); ///< is new
    void clear();
    /// Whether `a` comes before `b`; a total order. Names of both handles are set.
    bool isBefore(
        const CloudDocument &a, zel::Handle handleA, const CloudDocument &b, zel::Handle handleB) const;

private:
    int compare(
        const CloudDocument &a, zel::Handle handleA, const CloudDocument &b, zel::Handle handleB) const;

    zel::ListSort m_sort{zel::ListSort::Key::Name, Qt::AscendingOrder};
    zel::NameKeys m_names;
    zel::NameKeys m_suffixes;
};
