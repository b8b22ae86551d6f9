#include "lists/listsortmemory.h"

#include "base/settingskeys.h"
#include "ksettings.h"

namespace zel {

// In the order of ListSort::Key.
static QStringList keyNames()
{
    return {QStringLiteral("time"), QStringLiteral("name"), QStringLiteral("size"), QStringLiteral("type")};
}

ListSort storedSort(const ListSortKeys &names, const ListSort &usual)
{
    KSettings settings;
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    const int key = keyNames().indexOf(settings.value(names.key).toString());
    if (key < 0)
        return usual;
    const bool descending = settings.value(names.descending, true).toBool();
    return {ListSort::Key(key), descending ? Qt::DescendingOrder : Qt::AscendingOrder};
}

void storeSort(const ListSortKeys &names, const ListSort &sort)
{
    KSettings settings;
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    settings.setValue(names.key, keyNames().at(int(sort.key)));
    settings.setValue(names.descending, sort.order == Qt::DescendingOrder);
}

} // namespace zel
