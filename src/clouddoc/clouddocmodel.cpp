#include "clouddoc/clouddocmodel.h"

#include "clouddoc/clouddoctexts.h"
#include "clouddoc/cloudrows.h"

#include <algorithm>

// How rows are shown; how the documents change is in clouddocmodelchanges.cpp.

namespace {

constexpr int MostRanges = 32; ///< told one by one

} // namespace

CloudDocModel::CloudDocModel(QObject *parent) : QAbstractListModel(parent)
{
    qRegisterMetaType<CloudDocument>();
}

CloudDocModel::~CloudDocModel() = default;

int CloudDocModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant CloudDocModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CloudDocument &document = m_documents.at(m_rows.at(index.row()));
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return document.name;
    if (role == Qt::AccessibleDescriptionRole)
        return zel::clouddoc::spokenText(document);
    if (role < IdRole || role > DocumentRole)
        return {};
    switch (Role(role)) {
    case IdRole:
        return document.id;
    case NameRole:
        return document.name;
    case FolderRole:
        return document.folder;
    case SizeRole:
        return document.size;
    case ModifiedRole:
        return document.modifiedAt;
    case LocalPathRole:
        return document.localPath;
    case TransferRole:
        return int(document.transfer);
    case ProgressRole:
        return document.progress;
    case DocumentRole:
        return QVariant::fromValue(document);
    }
    return {};
}

Qt::ItemFlags CloudDocModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // into the folder on view
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable
        | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if (document(index.row()).folder)
        flags |= Qt::ItemIsDropEnabled;
    return flags;
}

QHash<int, QByteArray> CloudDocModel::roleNames() const
{
    return {{Qt::DisplayRole, "display"}, {IdRole, "id"}, {NameRole, "name"}, {FolderRole, "folder"},
        {SizeRole, "size"}, {ModifiedRole, "modified"}, {LocalPathRole, "localPath"},
        {TransferRole, "transfer"}, {ProgressRole, "progress"}, {DocumentRole, "document"}};
}

const CloudDocument &CloudDocModel::document(int row) const
{
    return m_documents.at(m_rows.at(row));
}

const CloudDocument *CloudDocModel::find(const QString &id) const
{
    const auto slot = m_slots.constFind(id);
    return slot == m_slots.cend() ? nullptr : &m_documents.at(*slot);
}

int CloudDocModel::rowOf(const QString &id) const
{
    const auto slot = m_slots.constFind(id);
    if (slot == m_slots.cend() || !isShown(*slot))
        return -1;
    return placeIn(m_rows, *slot);
}

bool CloudDocModel::hasName(const QString &name) const
{
    return std::any_of(
        m_sorted.cbegin(), m_sorted.cend(), [&](int slot) { return m_documents.at(slot).name == name; });
}

bool CloudDocModel::isShown(int slot) const
{
    const QString &name = m_documents.at(slot).name;
    return (m_showHidden || !name.startsWith(QLatin1Char('.'))) && m_filter.passes(slot, name);
}

bool CloudDocModel::isBefore(int slotA, int slotB) const
{
    return m_order.isBefore(m_documents.at(slotA), slotA, m_documents.at(slotB), slotB);
}

// Where the slot is, or belongs, in a sorted list.
int CloudDocModel::placeIn(const QVector<int> &slotList, int slot) const
{
    const auto place = std::lower_bound(slotList.cbegin(), slotList.cend(), slot,
        [this](int left, int right) { return isBefore(left, right); });
    return int(place - slotList.cbegin());
}

QVector<int> CloudDocModel::shownOf(const QVector<int> &slotList) const
{
    QVector<int> shown;
    shown.reserve(slotList.size());
    for (const int slot : slotList)
        if (isShown(slot))
            shown.append(slot);
    return shown;
}

void CloudDocModel::setSortOrder(CloudSort sort)
{
    if (sort == m_order.sort())
        return;
    m_order.setSort(sort);
    std::sort(
        m_sorted.begin(), m_sorted.end(), [this](int left, int right) { return isBefore(left, right); });
    show(shownOf(m_sorted));
    Q_EMIT sortOrderChanged();
}

void CloudDocModel::setFilterText(const QString &text)
{
    if (!m_filter.setText(text))
        return;
    show(shownOf(m_sorted));
    tellCounts();
}

void CloudDocModel::setShowHidden(bool show_)
{
    if (std::exchange(m_showHidden, show_) == show_)
        return;
    show(shownOf(m_sorted));
    tellCounts();
}

void CloudDocModel::show(const QVector<int> &rows)
{
    const CloudRowChanges changes = diffRows(m_rows, rows);
    if (changes.reordered || changes.removals.size() + changes.insertions.size() > MostRanges)
        showByLayout(rows, changes);
    else
        showByRanges(rows, changes);
}

void CloudDocModel::showByRanges(const QVector<int> &rows, const CloudRowChanges &changes)
{
    for (const CloudRowRange &range : changes.removals) {
        beginRemoveRows({}, range.first, range.last);
        m_rows.remove(range.first, range.last - range.first + 1);
        endRemoveRows();
    }
    for (const CloudRowRange &range : changes.insertions) {
        const int count = range.last - range.first + 1;
        beginInsertRows({}, range.first, range.last);
        m_rows.insert(range.first, count, 0);
        std::copy_n(rows.cbegin() + range.first, count, m_rows.begin() + range.first);
        endInsertRows();
    }
}

// A view pays for each range it is told of, so many scattered rows go to the end first and leave from there,
// and come in the other way round.
void CloudDocModel::showByLayout(const QVector<int> &rows, const CloudRowChanges &changes)
{
    QVector<int> gone;
    for (const CloudRowRange &range : changes.removals)
        gone += m_rows.mid(range.first, range.last - range.first + 1);
    QVector<int> fresh;
    QVector<int> staying;
    int next = 0;
    for (const CloudRowRange &range : changes.insertions) {
        staying += rows.mid(next, range.first - next);
        fresh += rows.mid(range.first, range.last - range.first + 1);
        next = range.last + 1;
    }
    staying += rows.mid(next);
    relayout(staying + gone);
    if (!gone.isEmpty()) {
        beginRemoveRows({}, staying.size(), m_rows.size() - 1);
        m_rows = staying;
        endRemoveRows();
    }
    if (fresh.isEmpty())
        return;
    beginInsertRows({}, staying.size(), rows.size() - 1);
    m_rows += fresh;
    endInsertRows();
    relayout(rows);
}

void CloudDocModel::relayout(const QVector<int> &rows)
{
    if (rows == m_rows)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QVector<int> rowOfSlot(before.isEmpty() ? 0 : m_documents.size(), -1);
    for (int row = 0; row < rows.size() && !before.isEmpty(); ++row)
        rowOfSlot[rows.at(row)] = row;
    QModelIndexList after;
    for (const QModelIndex &old : before)
        after.append(index(rowOfSlot.at(m_rows.at(old.row()))));
    m_rows = rows;
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}
