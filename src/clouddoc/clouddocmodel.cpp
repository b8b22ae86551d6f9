#include "clouddoc/clouddocmodel.h"

#include "clouddoc/clouddoctexts.h"

#include <QSet>
#include <algorithm>

using zel::Handle;

namespace {

const QVector<int> TransferRoles{
    CloudDocModel::TransferRole, CloudDocModel::ProgressRole, CloudDocModel::DocumentRole};

void noteChangedRoles(QVector<int> *roles, const CloudDocument &before, const CloudDocument &after)
{
    const auto note = [roles](bool differs, std::initializer_list<int> changed) {
        for (const int role : changed)
            if (differs && !roles->contains(role))
                roles->append(role);
    };
    note(before.name != after.name, {Qt::DisplayRole, Qt::EditRole, CloudDocModel::NameRole});
    note(before.folder != after.folder, {CloudDocModel::FolderRole});
    note(before.size != after.size, {CloudDocModel::SizeRole});
    note(before.modifiedAt != after.modifiedAt, {CloudDocModel::ModifiedRole});
    note(before.localPath != after.localPath, {CloudDocModel::LocalPathRole});
    note(true, {CloudDocModel::DocumentRole});
}

// A list does not tell of transfers.
CloudDocument withTransferOf(CloudDocument document, const CloudDocument &before)
{
    document.transfer = before.transfer;
    document.progress = before.progress;
    return document;
}

} // namespace

CloudDocModel::CloudDocModel(QObject *parent) : SortedListModel(parent)
{
    qRegisterMetaType<CloudDocument>();
}

QVariant CloudDocModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CloudDocument &one = document(index.row());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return one.name;
    if (role == Qt::AccessibleDescriptionRole)
        return zel::clouddoc::spokenText(one);
    if (role < IdRole || role > DocumentRole)
        return {};
    switch (Role(role)) {
    case IdRole:
        return one.id;
    case NameRole:
        return one.name;
    case FolderRole:
        return one.folder;
    case SizeRole:
        return one.size;
    case ModifiedRole:
        return one.modifiedAt;
    case LocalPathRole:
        return one.localPath;
    case TransferRole:
        return int(one.transfer);
    case ProgressRole:
        return one.progress;
    case DocumentRole:
        return QVariant::fromValue(one);
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

const CloudDocument *CloudDocModel::find(const QString &id) const
{
    return m_documents.find(id);
}

int CloudDocModel::rowOf(const QString &id) const
{
    const auto handle = m_documents.handleOf(id);
    return handle ? rowOfHandle(*handle) : -1;
}

bool CloudDocModel::hasName(const QString &name) const
{
    return std::any_of(inOrder().cbegin(), inOrder().cend(),
        [&](Handle handle) { return m_documents[handle].name == name; });
}

bool CloudDocModel::isBefore(Handle a, Handle b) const
{
    return m_order.isBefore(m_documents[a], a, m_documents[b], b);
}

bool CloudDocModel::passes(Handle handle) const
{
    const CloudDocument &document = m_documents[handle];
    if (m_foldersOnly && (!document.folder || m_hidden.contains(document.id)))
        return false;
    return !document.name.startsWith(QLatin1Char('.')) && m_filter.matches(document.name);
}

void CloudDocModel::showFoldersOnly(const QStringList &without)
{
    Q_ASSERT(rowCount() == 0);
    m_foldersOnly = true;
    m_hidden = QSet<QString>(without.cbegin(), without.cend());
}

void CloudDocModel::setSortOrder(zel::ListSort sort)
{
    if (sort == m_order.sort())
        return;
    m_order.setSort(sort);
    resort();
    Q_EMIT sortOrderChanged();
}

void CloudDocModel::setFilterText(const QString &text)
{
    m_filterText = text;
    const zel::WordFilter before = std::exchange(m_filter, zel::WordFilter(text));
    if (!(m_filter == before))
        refilter(m_filter.isNarrowerThan(before));
}

void CloudDocModel::clear()
{
    reset();
    m_documents.clear();
    m_order.clear();
}

void CloudDocModel::take(const CloudDocument &document, zel::ListDelta *delta)
{
    const auto known = m_documents.handleOf(document.id);
    if (!known) {
        const Handle handle = m_documents.add(document);
        m_order.setName(handle, document.name);
        delta->inserted.push_back(handle);
        return;
    }
    const CloudDocument after = withTransferOf(document, m_documents[*known]);
    if (after == m_documents[*known])
        return;
    const CloudDocument before = std::exchange(m_documents[*known], after);
    if (before.name != after.name)
        m_order.setName(*known, after.name);
    noteChangedRoles(&delta->roles, before, after);
    delta->changed.push_back(*known);
}

void CloudDocModel::add(const CloudDocuments &documents)
{
    zel::ListDelta delta;
    for (const CloudDocument &document : documents)
        take(document, &delta);
    apply(delta);
}

void CloudDocModel::remove(const QStringList &ids)
{
    zel::ListDelta delta;
    const QSet<QString> gone(ids.cbegin(), ids.cend());
    for (const QString &id : gone)
        if (const auto handle = m_documents.handleOf(id))
            delta.removed.push_back(*handle);
    applyAndFree(delta);
}

void CloudDocModel::replaceAll(const CloudDocuments &documents)
{
    QSet<QString> staying;
    for (const CloudDocument &document : documents)
        staying.insert(document.id);
    zel::ListDelta delta;
    for (const Handle handle : inOrder())
        if (!staying.contains(m_documents[handle].id))
            delta.removed.push_back(handle);
    for (const CloudDocument &document : documents)
        take(document, &delta);
    applyAndFree(delta);
}

void CloudDocModel::applyAndFree(const zel::ListDelta &delta)
{
    apply(delta);
    for (const Handle handle : delta.removed)
        m_documents.remove(handle);
}

void CloudDocModel::setTransfer(const QString &id, CloudDocument::Transfer transfer, int progress)
{
    const auto handle = m_documents.handleOf(id);
    if (!handle)
        return;
    CloudDocument &document = m_documents[*handle];
    if (document.transfer == transfer && document.progress == progress)
        return;
    document.transfer = transfer;
    document.progress = progress;
    apply({{}, {}, {*handle}, TransferRoles});
}
