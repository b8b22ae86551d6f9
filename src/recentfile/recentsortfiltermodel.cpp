#include "recentfile/recentsortfiltermodel.h"

#include "recentfile/recentfilemodel.h"

#include <algorithm>

using namespace zel::recent;
using zel::Handle;
using Model = ZelBoxRecentFileModel;

namespace {

bool contains(const QVector<int> &roles, std::initializer_list<int> wanted)
{
    return roles.isEmpty()
        || std::any_of(wanted.begin(), wanted.end(), [&roles](int role) { return roles.contains(role); });
}

bool mayRename(const QVector<int> &roles)
{
    return contains(roles, {Model::NameRole, Model::PathRole});
}

// Whether a record may pass the filter or stand elsewhere after a change of these roles.
bool mayPlace(const QVector<int> &roles)
{
    return mayRename(roles)
        || contains(
            roles, {Model::LastAccessRole, Model::SizeRole, Model::PinnedRole, Model::DeviceNameRole});
}

} // namespace

RecentSortFilterModel::RecentSortFilterModel(QObject *parent) : SortedListModel(parent)
{
    connect(&m_nameSorter, &NameSorter::finished, this,
        [this] { setOrder(m_order.adopted(m_nameSorter.takeResult(), m_sort, m_touched)); });
}

void RecentSortFilterModel::setSourceModel(ZelBoxRecentFileModel *model)
{
    if (m_source)
        m_source->disconnect(this);
    m_nameSorter.drop();
    reset();
    m_source = model;
    m_order.setSource(model);
    if (!m_source)
        return;
    connectSource();
    load();
}

ZelBoxRecentFileModel *RecentSortFilterModel::recentModel() const
{
    return m_source;
}

void RecentSortFilterModel::connectSource()
{
    connect(m_source, &Model::rowsInserted, this,
        [this](const QModelIndex &, int first, int last) { onSourceInserted(first, last); });
    connect(m_source, &Model::rowsAboutToBeRemoved, this,
        [this](const QModelIndex &, int first, int last) { onSourceAboutToBeRemoved(first, last); });
    connect(m_source, &Model::dataChanged, this,
        [this](const QModelIndex &first, const QModelIndex &last, const QVector<int> &roles) {
            onSourceChanged(first.row(), last.row(), roles);
        });
    connect(m_source, &Model::groupsChanged, this, [this] { refreshSections(); });
    connect(m_source, &QObject::destroyed, this, [this] { setSourceModel(nullptr); });
}

void RecentSortFilterModel::setSort(const zel::ListSort &sort)
{
    if (sort == m_sort)
        return;
    m_sort = sort;
    if (isSorting() && sort.key == zel::ListSort::Key::Name)
        return; // what is being made serves both directions
    m_nameSorter.drop();
    if (!m_source || sort == m_order.sort())
        return;
    if (m_order.isSlow(sort, inOrder()))
        sortNamesAside();
    else
        setOrder(m_order.sorted(sort, inOrder()));
}

void RecentSortFilterModel::sortNamesAside()
{
    m_touched.clear();
    m_nameSorter.start(m_order.namedRecords());
}

void RecentSortFilterModel::touch(Handle handle)
{
    if (!m_nameSorter.isRunning())
        return;
    if (handle >= m_touched.size())
        m_touched.resize(handle + 1);
    m_touched[handle] = true;
}

void RecentSortFilterModel::setFilter(const RecentFilter &filter)
{
    if (filter == m_filter)
        return;
    const RecentFilter before = std::exchange(m_filter, filter);
    const zel::WordFilter wordsBefore = std::exchange(m_words, zel::WordFilter(filter.text));
    refilter(m_words.isNarrowerThan(wordsBefore) && (!before.kinds || filter.kinds == before.kinds));
}

bool RecentSortFilterModel::passes(Handle handle) const
{
    return (!m_filter.kinds || m_filter.kinds.testFlag(m_order.kindOf(handle)))
        && matches(m_words, m_source->recordIn(handle));
}

// A list that is loaded must not wait for the sorting of its names: it comes newest first, and is sorted when
// that is done.
void RecentSortFilterModel::load()
{
    m_nameSorter.drop();
    const bool later = m_order.isSlow(m_sort, inOrder());
    setOrder(m_order.sorted(later ? zel::ListSort() : m_sort, inOrder()));
    if (later)
        sortNamesAside();
}

void RecentSortFilterModel::onSourceInserted(int first, int last)
{
    if (last - first + 1 == m_source->rowCount()) {
        load();
        return;
    }
    zel::ListDelta delta;
    for (int row = first; row <= last; ++row) {
        delta.inserted.push_back(m_source->handleAt(row));
        touch(delta.inserted.back());
        m_order.learn(delta.inserted.back());
    }
    apply(delta);
}

void RecentSortFilterModel::onSourceAboutToBeRemoved(int first, int last)
{
    if (last - first + 1 == m_source->rowCount()) { // handles begin anew
        m_nameSorter.drop();
        setOrder({});
        m_order.clear();
        return;
    }
    zel::ListDelta delta;
    for (int row = first; row <= last; ++row) {
        delta.removed.push_back(m_source->handleAt(row));
        touch(delta.removed.back());
    }
    apply(delta);
}

void RecentSortFilterModel::onSourceChanged(int first, int last, const QVector<int> &roles)
{
    const bool places = mayPlace(roles);
    if (!places && last > first && last - first + 1 == m_source->rowCount()) {
        applyToAll(roles);
        return;
    }
    zel::ListDelta delta;
    delta.roles = roles;
    for (int row = first; row <= last; ++row) {
        const Handle handle = m_source->handleAt(row);
        delta.changed.push_back(handle);
        if (!places)
            continue;
        touch(handle);
        if (mayRename(roles))
            m_order.learn(handle);
    }
    apply(delta);
}

zel::ListSections RecentSortFilterModel::sectionsOf(int count) const
{
    if (count == 0)
        return {};
    int pinned = 0;
    for (int end = count; pinned < end;) {
        const int middle = pinned + (end - pinned) / 2;
        if (record(middle).pinned)
            pinned = middle + 1;
        else
            end = middle;
    }
    const SectionedRows rows{count, pinned, [this](int row) { return record(row).lastAccess; },
        [this](int row) { return m_order.kindOf(handleAt(row)); }};
    return zel::recent::sectionsOf(rows, m_order.sort(), m_source->groupEdges());
}

QString RecentSortFilterModel::idOf(int row) const
{
    return record(row).id;
}

int RecentSortFilterModel::rowOf(const QString &id) const
{
    const int row = m_source ? m_source->rowOf(id) : -1;
    return row < 0 ? -1 : rowOfHandle(m_source->handleAt(row));
}

const RecentFileInfo &RecentSortFilterModel::record(int row) const
{
    return m_source->recordIn(handleAt(row));
}

QVariant RecentSortFilterModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_source->recordData(record(index.row()), role);
}

QModelIndex RecentSortFilterModel::mapToSource(const QModelIndex &index) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_source->index(m_source->rowOfHandle(handleAt(index.row())));
}

QModelIndex RecentSortFilterModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    if (!sourceIndex.isValid() || sourceIndex.model() != m_source)
        return {};
    return index(rowOfHandle(m_source->handleAt(sourceIndex.row())));
}
