#pragma once

#include "recentfile/recentfilter.h"
#include "recentfile/recentnamesorter.h"
#include "recentfile/recentorder.h"
#include "recentfile/recentsections.h"

#include <QAbstractProxyModel>
#include <QPointer>
#include <vector>

class ZelBoxRecentFileModel;

/// The rows of the Recent page as the user wants to see them: pinned ones first, in the chosen order, only
/// those that pass the filter, in sections. GUI thread. Maps rows of a ZelBoxRecentFileModel and keeps no
/// copies.
///
/// Changes of the source come through as the same kind of change of as few rows as possible; a new filter is
/// one removal and one insertion of rows, or nothing when the same rows pass; a new order is a layout change,
/// which for many names comes a moment later: they are sorted on another thread, until then the old order
/// stays (a list that is loaded meanwhile: newest first). sections() is up to date whenever a signal about
/// rows is emitted. Signals of one change: the row signals, then sectionsChanged().
class RecentSortFilterModel final : public QAbstractProxyModel
{
    Q_OBJECT
public:
    explicit RecentSortFilterModel(QObject *parent = nullptr);

    void setSourceModel(QAbstractItemModel *model) override; ///< a ZelBoxRecentFileModel
    ZelBoxRecentFileModel *recentModel() const;

    RecentSort sort() const { return m_sort; }
    void setSort(const RecentSort &sort);
    bool isSorting() const { return m_nameSorter.isRunning(); } ///< the order of sort() is still to come
    const RecentFilter &filter() const { return m_filter; }
    void setFilter(const RecentFilter &filter);

    const zel::recent::RecentSections &sections() const { return m_sections; }
    int rowOf(const QString &id) const; ///< -1 when there is none or it does not pass the filter
    const RecentFileInfo &record(int row) const;

    QModelIndex index(int row, int column = 0, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override { return rowCount(parent) > 0; }
    QVariant data(const QModelIndex &proxyIndex, int role = Qt::DisplayRole) const override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;

Q_SIGNALS:
    void sectionsChanged();

private:
    void connectSource();
    void onSourceInserted(const QModelIndex &parent, int first, int last);
    void onSourceAboutToBeRemoved(const QModelIndex &parent, int first, int last);
    void onSourceChanged(
        const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles);
    void onNamesSorted();

    bool passes(quint32 slot) const;
    std::vector<quint32> passing(const std::vector<quint32> &candidates) const;
    int placeOf(quint32 slot) const;
    int shownRow(quint32 slot) const;

    void load();
    void addRow(quint32 slot);
    void removeRow(quint32 slot);
    void removeSourceRows(int first, int last);
    void changeRow(quint32 slot, const QVector<int> &roles);
    void insertShown(int row, quint32 slot);
    void removeShown(int first, int last);
    int moveShown(int from, quint32 slot);
    void showInstead(std::vector<quint32> rows);
    template <typename Sorting> void resort(const Sorting &sorting);
    void touch(quint32 slot);
    void updateSections();
    void tellSections();

    QPointer<ZelBoxRecentFileModel> m_source;
    RecentSort m_sort; // as wanted; the order has what is applied
    RecentFilter m_filter;
    zel::recent::RecentTextMatcher m_matcher;
    zel::recent::RecentOrder m_order; // of all records
    std::vector<quint32> m_shown;     // slots of those that pass, in the same order
    zel::recent::RecentSections m_sections;
    bool m_sectionsToTell = false;
    RecentNameSorter m_nameSorter;
    std::vector<bool> m_touched; // slots whose name may be another one since the sorter started
};
