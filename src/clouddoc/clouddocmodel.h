#pragma once

#include "clouddoc/clouddocorder.h"
#include "lists/recordtable.h"
#include "lists/sortedlistmodel.h"
#include "lists/wordfilter.h"

#include <QSet>

/// The documents of one folder in the order and through the filter that the user chose; folders come first,
/// names that begin with a dot are not shown. GUI thread; owns copies of the values. Resets only when another
/// folder is shown.
class CloudDocModel final : public SortedListModel
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

    QVariant data(const QModelIndex &index, int role) const override;
    /// Every row may be renamed and dragged; folders take drops. What a drop does is the page's.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QString idOf(int row) const override { return document(row).id; }
    int rowOf(const QString &id) const override;

    const CloudDocument &document(int row) const { return m_documents[handleAt(row)]; } ///< `row` is in range
    const CloudDocument *find(const QString &id) const; ///< also when the filter hides it; null: not here
    bool hasName(const QString &name) const;            ///< exactly this one, also when it is not shown; O(n)

    zel::ListSort sortOrder() const { return m_order.sort(); }
    void setSortOrder(zel::ListSort sort); ///< O(n log n)
    QString filterText() const { return m_filterText; }
    void setFilterText(const QString &text); ///< words in any order; case and accents ignored
    /// For choosing a folder: shows folders only, and not these. To be called while there are no rows.
    void showFoldersOnly(const QStringList &without);

    // By the logic:
    void clear();                              ///< another folder follows
    void add(const CloudDocuments &documents); ///< new ones; those that are here already are changed
    void put(const CloudDocument &document) { add({document}); }
    void remove(const QStringList &ids);              ///< unknown ids are passed over
    void replaceAll(const CloudDocuments &documents); ///< tells only what differs
    void setTransfer(const QString &id, CloudDocument::Transfer transfer, int progress);

Q_SIGNALS:
    void sortOrderChanged();

protected:
    bool isBefore(zel::Handle a, zel::Handle b) const override;
    bool passes(zel::Handle handle) const override;

private:
    void take(const CloudDocument &document, zel::ListDelta *delta);
    void applyAndFree(const zel::ListDelta &delta);

    zel::RecordTable<CloudDocument> m_documents;
    CloudDocOrder m_order;
    QString m_filterText;
    zel::WordFilter m_filter;
    bool m_foldersOnly = false;
    QSet<QString> m_hidden; // of the folders
};
