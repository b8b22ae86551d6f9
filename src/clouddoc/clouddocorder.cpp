#include "clouddoc/clouddocorder.h"

#include "base/namecollator.h"
#include "clouddoc/clouddocnames.h"

namespace {

template <class Number> int compareNumbers(Number a, Number b)
{
    return a < b ? -1 : int(b < a);
}

} // namespace

void CloudDocOrder::setName(int slot, const QString &name)
{
    if (!m_collator)
        m_collator = zel::nameCollator();
    if (size_t(slot) >= m_keys.size())
        m_keys.resize(size_t(slot) + 1);
    const QString suffix = name.mid(zel::clouddoc::stemLength(name, false));
    m_keys[size_t(slot)] = Keys{m_collator->sortKey(name), m_collator->sortKey(suffix)};
}

int CloudDocOrder::compare(
    const CloudDocument &a, const Keys &keysA, const CloudDocument &b, const Keys &keysB) const
{
    switch (m_sort.key) {
    case CloudSort::Key::Name:
        return keysA.name.compare(keysB.name);
    case CloudSort::Key::Time:
        return compareNumbers(a.modifiedAt, b.modifiedAt);
    case CloudSort::Key::Size:
        return a.folder ? 0 : compareNumbers(a.size, b.size);
    case CloudSort::Key::Type:
        return a.folder ? 0 : keysA.suffix.compare(keysB.suffix);
    }
    return 0;
}

bool CloudDocOrder::isBefore(const CloudDocument &a, int slotA, const CloudDocument &b, int slotB) const
{
    if (a.folder != b.folder)
        return a.folder;
    const Keys &keysA = *m_keys[size_t(slotA)];
    const Keys &keysB = *m_keys[size_t(slotB)];
    const int order = compare(a, keysA, b, keysB);
    if (order != 0)
        return m_sort.order == Qt::AscendingOrder ? order < 0 : order > 0;
    const int byName = m_sort.key == CloudSort::Key::Name ? 0 : keysA.name.compare(keysB.name);
    if (byName != 0)
        return byName < 0;
    return a.id < b.id; // names that differ in case only
}
