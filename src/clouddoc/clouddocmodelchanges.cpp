#include "clouddoc/clouddocmodel.h"
#include "clouddoc/cloudrows.h"

#include <QSet>
#include <algorithm>

// How the documents change; how rows are shown is in clouddocmodel.cpp.

namespace {

const QVector<int> TransferRoles{
    CloudDocModel::TransferRole, CloudDocModel::ProgressRole, CloudDocModel::DocumentRole};

QVector<int> changedRoles(const CloudDocument &before, const CloudDocument &after)
{
    QVector<int> roles;
    if (before.name != after.name)
        roles << Qt::DisplayRole << Qt::EditRole << CloudDocModel::NameRole;
    if (before.folder != after.folder)
        roles << CloudDocModel::FolderRole;
    if (before.size != after.size)
        roles << CloudDocModel::SizeRole;
    if (before.modifiedAt != after.modifiedAt)
        roles << CloudDocModel::ModifiedRole;
    if (before.localPath != after.localPath)
        roles << CloudDocModel::LocalPathRole;
    roles << CloudDocModel::DocumentRole;
    return roles;
}

// A list does not tell of transfers.
CloudDocument withTransferOf(CloudDocument document, const CloudDocument &before)
{
    document.transfer = before.transfer;
    document.progress = before.progress;
    return document;
}

} // namespace

void CloudDocModel::clear()
{
    beginResetModel();
    m_documents.clear();
    m_free.clear();
    m_slots.clear();
    m_sorted.clear();
    m_rows.clear();
    m_order.clear();
    m_filter.clear();
    endResetModel();
    tellCounts();
}

int CloudDocModel::takeSlot(const CloudDocument &document)
{
    int slot = m_documents.size();
    if (m_free.isEmpty())
        m_documents.append(CloudDocument());
    else
        slot = m_free.takeLast();
    m_slots.insert(document.id, slot);
    m_documents[slot] = document;
    m_order.setName(slot, document.name);
    m_filter.forget(slot);
    return slot;
}

void CloudDocModel::setValue(int slot, const CloudDocument &document)
{
    if (std::exchange(m_documents[slot], document).name == document.name)
        return;
    m_order.setName(slot, document.name);
    m_filter.forget(slot);
}

void CloudDocModel::add(const CloudDocuments &documents)
{
    QVector<int> fresh;
    QVector<const CloudDocument *> known;
    for (const CloudDocument &document : documents) {
        if (m_slots.contains(document.id))
            known.append(&document);
        else
            fresh.append(takeSlot(document));
    }
    insertSorted(fresh);
    for (const CloudDocument *document : qAsConst(known))
        change(m_slots.value(document->id), *document);
    tellCounts();
}

void CloudDocModel::insertSorted(QVector<int> fresh)
{
    if (fresh.isEmpty())
        return;
    if (fresh.size() == 1) { // news come one by one
        const int slot = fresh.first();
        m_sorted.insert(placeIn(m_sorted, slot), slot);
        moveRow(-1, isShown(slot) ? placeIn(m_rows, slot) : -1, slot);
        return;
    }
    const auto before = [this](int left, int right) { return isBefore(left, right); };
    std::sort(fresh.begin(), fresh.end(), before);
    const auto merged = [&before](const QVector<int> &here, const QVector<int> &more) {
        QVector<int> all(here.size() + more.size());
        std::merge(here.cbegin(), here.cend(), more.cbegin(), more.cend(), all.begin(), before);
        return all;
    };
    m_sorted = merged(m_sorted, fresh);
    show(merged(m_rows, shownOf(fresh)));
}

void CloudDocModel::change(int slot, CloudDocument document)
{
    const CloudDocument before = m_documents.at(slot);
    document = withTransferOf(document, before);
    if (document == before)
        return;
    const int oldRow = isShown(slot) ? placeIn(m_rows, slot) : -1;
    m_sorted.remove(placeIn(m_sorted, slot));
    QVector<int> others = m_rows;
    if (oldRow >= 0)
        others.remove(oldRow);
    setValue(slot, document);
    m_sorted.insert(placeIn(m_sorted, slot), slot);
    moveRow(oldRow, isShown(slot) ? placeIn(others, slot) : -1, slot);
    tellChanged({slot}, changedRoles(before, document));
}

// -1: not shown.
void CloudDocModel::moveRow(int oldRow, int newRow, int slot)
{
    if (oldRow == newRow)
        return;
    if (newRow < 0) {
        beginRemoveRows({}, oldRow, oldRow);
        m_rows.remove(oldRow);
        endRemoveRows();
    } else if (oldRow < 0) {
        beginInsertRows({}, newRow, newRow);
        m_rows.insert(newRow, slot);
        endInsertRows();
    } else {
        beginMoveRows({}, oldRow, oldRow, {}, newRow > oldRow ? newRow + 1 : newRow);
        m_rows.move(oldRow, newRow);
        endMoveRows();
    }
}

void CloudDocModel::remove(const QStringList &ids)
{
    QSet<int> gone;
    for (const QString &id : ids)
        if (const auto slot = m_slots.constFind(id); slot != m_slots.cend())
            gone.insert(*slot);
    removeSlots(gone);
    tellCounts();
}

void CloudDocModel::removeSlots(const QSet<int> &gone)
{
    if (gone.isEmpty())
        return;
    if (gone.size() == 1) {
        const int slot = *gone.cbegin();
        m_sorted.remove(placeIn(m_sorted, slot));
        moveRow(isShown(slot) ? placeIn(m_rows, slot) : -1, -1, slot);
    } else {
        const auto without = [&gone](QVector<int> slotList) {
            slotList.erase(std::remove_if(slotList.begin(), slotList.end(),
                               [&gone](int slot) { return gone.contains(slot); }),
                slotList.end());
            return slotList;
        };
        m_sorted = without(m_sorted);
        show(without(m_rows));
    }
    for (const int slot : gone) {
        m_slots.remove(m_documents.at(slot).id);
        m_documents[slot] = {};
        m_free.append(slot);
    }
}

void CloudDocModel::replaceAll(const CloudDocuments &documents)
{
    QSet<QString> staying;
    for (const CloudDocument &document : documents)
        staying.insert(document.id);
    QSet<int> gone;
    for (const int slot : qAsConst(m_sorted))
        if (!staying.contains(m_documents.at(slot).id))
            gone.insert(slot);
    removeSlots(gone);
    QVector<int> changed;
    QSet<int> roles;
    for (const CloudDocument &document : documents) {
        const auto known = m_slots.constFind(document.id);
        if (known == m_slots.cend()) {
            m_sorted.append(takeSlot(document));
            continue;
        }
        const CloudDocument after = withTransferOf(document, m_documents.at(*known));
        if (after == m_documents.at(*known))
            continue;
        for (const int role : changedRoles(m_documents.at(*known), after))
            roles.insert(role);
        changed.append(*known);
        setValue(*known, after);
    }
    std::sort(
        m_sorted.begin(), m_sorted.end(), [this](int left, int right) { return isBefore(left, right); });
    show(shownOf(m_sorted));
    tellChanged(changed, roles.values().toVector());
    tellCounts();
}

void CloudDocModel::setTransfer(const QString &id, CloudDocument::Transfer transfer, int progress)
{
    const auto slot = m_slots.constFind(id);
    if (slot == m_slots.cend())
        return;
    CloudDocument &document = m_documents[*slot];
    if (document.transfer == transfer && document.progress == progress)
        return;
    document.transfer = transfer;
    document.progress = progress;
    tellChanged({*slot}, TransferRoles);
}

void CloudDocModel::tellChanged(const QVector<int> &slotList, const QVector<int> &roles)
{
    constexpr int MostSingly = 64;
    if (slotList.size() > MostSingly && !m_rows.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(m_rows.size() - 1), roles);
        return;
    }
    for (const int slot : slotList) {
        if (!isShown(slot))
            continue;
        const QModelIndex changed = index(placeIn(m_rows, slot));
        Q_EMIT dataChanged(changed, changed, roles);
    }
}

void CloudDocModel::tellCounts()
{
    const bool same = m_toldRows == m_rows.size() && m_toldTotal == m_slots.size();
    m_toldRows = m_rows.size();
    m_toldTotal = m_slots.size();
    if (!same)
        Q_EMIT countsChanged();
}
