#pragma once

#include "lists/sortedlistmodel.h"
#include "recentfile/namesorter.h"
#include "recentfile/recentfilter.h"
#include "recentfile/recentorder.h"
#include "recentfile/recentsections.h"

#include <QPointer>

class ZelBoxRecentFileModel;

/// The rows of the Recent page as the user wants to see them: pinned ones first, in the chosen order, only
/// those that pass the filter, in sections. GUI thread. Shows the records of a ZelBoxRecentFileModel and
/// keeps no copies.
///
/// Changes of the source and of the filter come through as changes of as few rows as possible; a new order is
/// a layout change, which for many names comes a moment later: they are sorted on another thread, until then
/// the old order stays (a list that is loaded meanwhile: newest first).
class RecentSortFilterModel final : public SortedListModel
{
    Q_OBJECT
public:
    explicit RecentSortFilterModel(QObject *parent = nullptr);

    void setSourceModel(ZelBoxRecentFileModel *model);
    ZelBoxRecentFileModel *recentModel() const;

    zel::ListSort sort() const { return m_sort; }
    void setSort(const zel::ListSort &sort);
    bool isSorting() const { return m_nameSorter.isRunning(); } ///< the order of sort() is still to come
    const RecentFilter &filter() const { return m_filter; }
    void setFilter(const RecentFilter &filter);
    const zel::WordFilter &words() const { return m_words; } ///< of the filter, to be marked in the rows

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QString idOf(int row) const override;
    int rowOf(const QString &id) const override;
    const RecentFileInfo &record(int row) const;
    QModelIndex mapToSource(const QModelIndex &index) const;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const;

protected:
    bool isBefore(zel::Handle a, zel::Handle b) const override { return m_order.isBefore(a, b); }
    bool passes(zel::Handle handle) const override;
    zel::ListSections sectionsOf(int count) const override;

private:
    void connectSource();
    void onSourceInserted(int first, int last);
    void onSourceAboutToBeRemoved(int first, int last);
    void onSourceChanged(int first, int last, const QVector<int> &roles);
    void load();
    void sortNamesAside();
    void touch(zel::Handle handle);

    QPointer<ZelBoxRecentFileModel> m_source;
    zel::ListSort m_sort; // as wanted; the order has what is applied
    RecentFilter m_filter;
    zel::WordFilter m_words; // of the filter
    zel::recent::RecentOrder m_order;
    NameSorter m_nameSorter;
    std::vector<bool> m_touched; // by handle: it may have another name since the sorter started
};
