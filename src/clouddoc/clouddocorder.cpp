#include "clouddoc/clouddocorder.h"

#include "clouddoc/clouddocnames.h"

using zel::Handle;

namespace {

template <class Number> int compareNumbers(Number a, Number b)
{
    return a < b ? -1 : int(b < a);
}

} // namespace

void CloudDocOrder::setName(Handle handle, const QString &name)
{
    m_names.set(handle, name);
    m_suffixes.set(handle, name.mid(zel::clouddoc::stemLength(name, false)));
}

void CloudDocOrder::clear()
{
    m_names.clear();
    m_suffixes.clear();
}

int CloudDocOrder::compare(
    const CloudDocument &a, Handle handleA, const CloudDocument &b, Handle handleB) const
{
    switch (m_sort.key) {
    case zel::ListSort::Key::Name:
        return m_names.compare(handleA, handleB);
    case zel::ListSort::Key::Time:
        return compareNumbers(a.modifiedAt, b.modifiedAt);
    case zel::ListSort::Key::Size:
        return a.folder ? 0 : compareNumbers(a.size, b.size);
    case zel::ListSort::Key::Type:
        return a.folder ? 0 : m_suffixes.compare(handleA, handleB);
    }
    return 0;
}

bool CloudDocOrder::isBefore(
    const CloudDocument &a, Handle handleA, const CloudDocument &b, Handle handleB) const
{
    if (a.folder != b.folder)
        return a.folder;
    const int order = compare(a, handleA, b, handleB);
    if (order != 0)
        return m_sort.order == Qt::AscendingOrder ? order < 0 : order > 0;
    const int byName = m_sort.key == zel::ListSort::Key::Name ? 0 : m_names.compare(handleA, handleB);
    if (byName != 0)
        return byName < 0;
    return a.id < b.id; // names that differ in case only
}
