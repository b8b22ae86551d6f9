#pragma once

#include "clouddoc/clouddocument.h"

#include <QCollator>
#include <optional>
#include <vector>

/// In which order the documents of a folder stand. Folders come first in any.
struct CloudSort
{
    enum class Key { Name, Time, Size, Type };
    Key key = Key::Name;
    Qt::SortOrder order = Qt::AscendingOrder;

    bool operator==(const CloudSort &) const = default;
};

/// Compares documents as a file manager does: names by the user's language, case ignored, digits by their
/// value; equal ones by name. Keeps a key for each name, by slot. One thread at a time.
class CloudDocOrder
{
public:
    CloudSort sort() const { return m_sort; }
    void setSort(CloudSort sort) { m_sort = sort; }

    /// The name of a slot is new; costs about as much as 20 comparisons.
    void setName(int slot, const QString &name);
    void clear() { m_keys.clear(); }
    /// Whether `a` comes before `b`; a total order. Names of both slots are set.
    bool isBefore(const CloudDocument &a, int slotA, const CloudDocument &b, int slotB) const;

private:
    struct Keys
    {
        QCollatorSortKey name;
        QCollatorSortKey suffix;
    };
    int compare(const CloudDocument &a, const Keys &keysA, const CloudDocument &b, const Keys &keysB) const;

    CloudSort m_sort;
    std::vector<std::optional<Keys>> m_keys;
    std::optional<QCollator> m_collator; ///< made when needed: it loads the language's rules
};
