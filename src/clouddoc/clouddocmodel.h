#pragma once

#include "clouddoc/clouddocfilter.h"
#include "clouddoc/clouddocorder.h"

#include <QAbstractListModel>
#include <QHash>
#include <QSet>

struct CloudRowChanges;

/// The documents of one folder in the order and through the filter that the user chose; folders come first.
/// GUI thread; owns copies of the values. Rows change precisely: ranges are inserted and removed, a row that
/// moves is moved; only many scattered changes at once come as one layout change beside one removal and one
/// insertion, so that selections survive them. Resets only when another folder is shown.
class CloudDocModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role {
        IdRole = Qt::UserRole,
        NameRole,      ///< as Qt::DisplayRole
        FolderRole,    ///< bool
        SizeRole,      ///< qint64, bytes; 0 for a folder
        ModifiedRole,  ///< qint64, ms since epoch, UTC
        LocalPathRole, ///< empty when the drive keeps it elsewhere
        TransferRole,  ///< int, CloudDocument::Transfer
        ProgressRole,  ///< int, 0 to 100
        DocumentRole,  ///< CloudDocument, for a delegate that needs all of it
    };
    Q_ENUM(Role)

    explicit CloudDocModel(QObject *parent = nullptr);
    ~CloudDocModel() override;

    int rowCount(const QModelIndex &parent = {}) const override; ///< rows that pass the filter
    QVariant data(const QModelIndex &index, int role) const override;
    /// Every row may be renamed and dragged; folders take drops. What a drop does is the page's.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QHash<int, QByteArray> roleNames() const override;

    const CloudDocument &document(int row) const;       ///< `row` is in range
    const CloudDocument *find(const QString &id) const; ///< also when the filter hides it; null: not here
    int rowOf(const QString &id) const;                 ///< -1: not here, or hidden by the filter; O(log n)
    int totalCount() const { return m_slots.size(); }   ///< without the filter and what is hidden
    bool hasName(const QString &name) const;            ///< exactly this one, also when it is not shown; O(n)

    CloudSort sortOrder() const { return m_order.sort(); }
    void setSortOrder(CloudSort sort); ///< O(n log n)
    QString filterText() const { return m_filter.text(); }
    void setFilterText(const QString &text); ///< words in any order; case and accents ignored
    bool showsHidden() const { return m_showHidden; }
    void setShowHidden(bool show); ///< names that begin with a dot; first: no

    // By the logic:
    void clear();                              ///< another folder follows
    void add(const CloudDocuments &documents); ///< new ones; those that are here already are changed
    void put(const CloudDocument &document) { add({document}); }
    void remove(const QStringList &ids);              ///< unknown ids are passed over
    void replaceAll(const CloudDocuments &documents); ///< tells only what differs
    void setTransfer(const QString &id, CloudDocument::Transfer transfer, int progress);

Q_SIGNALS:
    void countsChanged(); ///< rowCount() or totalCount() is another one; follows the row changes
    void sortOrderChanged();

private:
    bool isShown(int slot) const;
    bool isBefore(int slotA, int slotB) const;
    int placeIn(const QVector<int> &slotList, int slot) const;
    QVector<int> shownOf(const QVector<int> &slotList) const;
    int takeSlot(const CloudDocument &document);
    void setValue(int slot, const CloudDocument &document);
    void change(int slot, CloudDocument document);
    void moveRow(int oldRow, int newRow, int slot);
    void insertSorted(QVector<int> fresh);
    void removeSlots(const QSet<int> &gone);
    void show(const QVector<int> &rows);
    void showByRanges(const QVector<int> &rows, const CloudRowChanges &changes);
    void showByLayout(const QVector<int> &rows, const CloudRowChanges &changes);
    void relayout(const QVector<int> &rows);
    void tellChanged(const QVector<int> &slotList, const QVector<int> &roles);
    void tellCounts();

    CloudDocuments m_documents; ///< by slot; a document keeps its slot
    QVector<int> m_free;
    QHash<QString, int> m_slots; ///< by id
    QVector<int> m_sorted;       ///< all slots in order
    QVector<int> m_rows;         ///< those of them that are shown
    CloudDocOrder m_order;
    CloudDocFilter m_filter;
    bool m_showHidden = false;
    int m_toldRows = 0;
    int m_toldTotal = 0;
};
