#include "cloud/wire/registry.h"

#include "cloud/wire/registrytables.h"

#include <algorithm>
#include <vector>

namespace zel::wire {
namespace {

constexpr std::string_view Namespace = "zel::vela::";

struct Registry
{
    std::vector<const RecordType *> records;
    std::vector<MethodType> methods;
    size_t requestCount = 0;

    Registry();
    const RecordType *find(std::string_view name) const;
};

Registry::Registry()
{
    for (const RecordTable &table : std::span(recordTables, recordTableCount)) {
        for (const RecordType &record : std::span(table.rows, *table.count))
            records.push_back(&record);
    }
    std::sort(
        records.begin(), records.end(), [](auto *left, auto *right) { return left->name < right->name; });
    for (const MethodRow &row : std::span(methodRows, methodRowCount)) {
        methods.push_back({row.name, find(row.request), find(row.answer), row.isPush});
        requestCount += row.isPush ? 0 : 1;
    }
}

const RecordType *Registry::find(std::string_view name) const
{
    const auto it = std::lower_bound(records.begin(), records.end(), name,
        [](const RecordType *record, std::string_view wanted) { return record->name < wanted; });
    return it != records.end() && (*it)->name == name ? *it : nullptr;
}

const Registry &registry()
{
    static const Registry made;
    return made;
}

const MethodType *findIn(std::span<const MethodType> methods, std::string_view name)
{
    const auto it = std::lower_bound(methods.begin(), methods.end(), name,
        [](const MethodType &method, std::string_view wanted) { return method.name < wanted; });
    return it != methods.end() && it->name == name ? &*it : nullptr;
}

} // namespace

const RecordType *findRecord(std::string_view name)
{
    if (name.starts_with(Namespace))
        name.remove_prefix(Namespace.size());
    return registry().find(name);
}

const MethodType *findMethod(std::string_view name)
{
    return findIn(allMethods().first(registry().requestCount), name);
}

const MethodType *findPush(std::string_view name)
{
    return findIn(allMethods().subspan(registry().requestCount), name);
}

std::span<const RecordType *const> allRecords()
{
    return registry().records;
}

std::span<const MethodType> allMethods()
{
    return registry().methods;
}

} // namespace zel::wire
