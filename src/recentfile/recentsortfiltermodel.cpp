#include "recentfile/recentsortfiltermodel.h"

#include "recentfile/recentfilemodel.h"

#include <algorithm>

using namespace zel::recent;

RecentSortFilterModel::RecentSortFilterModel(QObject *parent) : QAbstractProxyModel(parent)
{
    connect(&m_nameSorter, &RecentNameSorter::finished, this, &RecentSortFilterModel::onNamesSorted);
}

void RecentSortFilterModel::setSourceModel(QAbstractItemModel *model)
{
    auto *source = qobject_cast<ZelBoxRecentFileModel *>(model);
    Q_ASSERT(source != nullptr || model == nullptr);
    beginResetModel();
    if (m_source)
        m_source->disconnect(this);
    m_nameSorter.drop();
    m_order.clear();
    m_shown.clear();
    m_source = source;
    m_order.setSource(source);
    QAbstractProxyModel::setSourceModel(source);
    updateSections();
    endResetModel();
    if (m_source) {
        connectSource();
        load();
    }
    tellSections();
}

ZelBoxRecentFileModel *RecentSortFilterModel::recentModel() const
{
    return m_source;
}

void RecentSortFilterModel::connectSource()
{
    using Model = ZelBoxRecentFileModel;
    using Me = RecentSortFilterModel;
    connect(m_source, &Model::rowsInserted, this, &Me::onSourceInserted);
    connect(m_source, &Model::rowsAboutToBeRemoved, this, &Me::onSourceAboutToBeRemoved);
    connect(m_source, &Model::dataChanged, this, &Me::onSourceChanged);
    connect(m_source, &Model::groupsChanged, this, [this] {
        updateSections();
        tellSections();
    });
    connect(m_source, &QObject::destroyed, this, [this] { setSourceModel(nullptr); });
}

void RecentSortFilterModel::setSort(const RecentSort &sort)
{
    if (sort == m_sort)
        return;
    m_sort = sort;
    if (isSorting() && sort.key == RecentSort::Key::Name)
        return; // what is being made serves both directions
    m_nameSorter.drop();
    if (!m_source || sort == m_order.sort())
        return;
    if (m_order.isSlow(sort)) {
        m_touched.clear();
        m_nameSorter.start(m_order.namedSlots());
    } else {
        resort([this] { m_order.sortAll(m_sort); });
    }
}

void RecentSortFilterModel::onNamesSorted()
{
    resort([this] { m_order.adopt(m_nameSorter.takeResult(), m_sort, m_touched); });
}

// Persistent indexes are few: the current row, the selection's ends, what a view keeps.
template <typename Sorting> void RecentSortFilterModel::resort(const Sorting &sorting)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<quint32> kept;
    for (const QModelIndex &index : before)
        kept.push_back(m_shown[size_t(index.row())]);
    sorting();
    m_shown = passing(m_order.all());
    updateSections();
    QModelIndexList after;
    for (const quint32 slot : kept)
        after << index(shownRow(slot));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
    tellSections();
}

void RecentSortFilterModel::setFilter(const RecentFilter &filter)
{
    if (filter == m_filter)
        return;
    RecentTextMatcher matcher(filter.text);
    const bool narrower =
        matcher.isNarrowerThan(m_matcher) && (!m_filter.kinds || filter.kinds == m_filter.kinds);
    m_filter = filter;
    m_matcher = std::move(matcher);
    showInstead(passing(narrower ? m_shown : m_order.all()));
}

void RecentSortFilterModel::showInstead(std::vector<quint32> rows)
{
    if (rows == m_shown)
        return;
    if (!m_shown.empty())
        removeShown(0, int(m_shown.size()) - 1);
    if (!rows.empty()) {
        beginInsertRows({}, 0, int(rows.size()) - 1);
        m_shown = std::move(rows);
        updateSections();
        endInsertRows();
    }
    tellSections();
}

bool RecentSortFilterModel::passes(quint32 slot) const
{
    return (!m_filter.kinds || m_filter.kinds.testFlag(m_order.kindOf(slot)))
        && m_matcher.matches(m_source->recordIn(slot));
}

std::vector<quint32> RecentSortFilterModel::passing(const std::vector<quint32> &candidates) const
{
    if (m_filter.isEmpty())
        return candidates;
    std::vector<quint32> rows;
    std::copy_if(candidates.cbegin(), candidates.cend(), std::back_inserter(rows),
        [this](quint32 slot) { return passes(slot); });
    return rows;
}

void RecentSortFilterModel::updateSections()
{
    RecentSections sections;
    if (!m_shown.empty()) {
        const auto pinned = std::partition_point(m_shown.cbegin(), m_shown.cend(),
            [this](quint32 slot) { return m_source->recordIn(slot).pinned; });
        const SectionedRows rows{int(m_shown.size()), int(pinned - m_shown.cbegin()),
            [this](int row) { return record(row).lastAccess; },
            [this](int row) { return m_order.kindOf(m_shown[size_t(row)]); }};
        sections = sectionsOf(rows, m_order.sort(), m_source->groupEdges());
    }
    if (sections == m_sections)
        return;
    m_sections = std::move(sections);
    m_sectionsToTell = true;
}

void RecentSortFilterModel::tellSections()
{
    if (std::exchange(m_sectionsToTell, false))
        Q_EMIT sectionsChanged();
}

int RecentSortFilterModel::rowOf(const QString &id) const
{
    const int row = m_source ? m_source->rowOf(id) : -1;
    return row < 0 ? -1 : shownRow(m_source->slotAt(row));
}

const RecentFileInfo &RecentSortFilterModel::record(int row) const
{
    return m_source->recordIn(m_shown[size_t(row)]);
}

QModelIndex RecentSortFilterModel::index(int row, int column, const QModelIndex &parent) const
{
    const bool exists = !parent.isValid() && column == 0 && row >= 0 && row < rowCount();
    return exists ? createIndex(row, column) : QModelIndex();
}

QModelIndex RecentSortFilterModel::parent(const QModelIndex &) const
{
    return {};
}

int RecentSortFilterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int RecentSortFilterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

// Straight from the record: the source's row of it would have to be looked for.
QVariant RecentSortFilterModel::data(const QModelIndex &proxyIndex, int role) const
{
    if (!m_source || !proxyIndex.isValid() || !checkIndex(proxyIndex))
        return {};
    return m_source->recordData(record(proxyIndex.row()), role);
}

QModelIndex RecentSortFilterModel::mapToSource(const QModelIndex &proxyIndex) const
{
    if (!m_source || !proxyIndex.isValid() || !checkIndex(proxyIndex))
        return {};
    return m_source->index(m_source->rowOfSlot(m_shown[size_t(proxyIndex.row())]));
}

QModelIndex RecentSortFilterModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    if (!sourceIndex.isValid() || sourceIndex.model() != m_source)
        return {};
    return index(shownRow(m_source->slotAt(sourceIndex.row())));
}
