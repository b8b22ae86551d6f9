#include "clouddoc/cloudtransfermodel.h"

#include "clouddoc/transfertexts.h"

#include <QSet>
#include <algorithm>

using zel::Handle;

namespace {

QVariant roleData(const CloudTransfer &transfer, int role)
{
    using Model = CloudTransferModel;
    if (role == Qt::DisplayRole)
        return transfer.name;
    if (role == Qt::AccessibleDescriptionRole)
        return zel::clouddoc::spokenText(transfer);
    if (role < Model::IdRole || role > Model::TransferRole)
        return {};
    switch (Model::Role(role)) {
    case Model::IdRole:
        return transfer.id;
    case Model::NameRole:
        return transfer.name;
    case Model::DirectionRole:
        return int(transfer.direction);
    case Model::StateRole:
        return int(transfer.state);
    case Model::DoneBytesRole:
        return transfer.doneBytes;
    case Model::TotalBytesRole:
        return transfer.totalBytes;
    case Model::PercentRole:
        return transfer.percent();
    case Model::SpeedRole:
        return transfer.bytesPerSecond;
    case Model::RemainingRole:
        return transfer.remainingMs;
    case Model::LocalPathRole:
        return transfer.localPath;
    case Model::ProblemRole:
        return int(transfer.problem);
    case Model::TransferRole:
        return QVariant::fromValue(transfer);
    }
    return {};
}

int stateRank(CloudTransfer::State state)
{
    switch (state) {
    case CloudTransfer::State::Running:
        return 0;
    case CloudTransfer::State::Waiting:
    case CloudTransfer::State::Paused:
        return 1;
    case CloudTransfer::State::Failed:
        return 2;
    case CloudTransfer::State::Done:
    case CloudTransfer::State::Cancelled:
        break;
    }
    return 3;
}

} // namespace

QVariant CloudTransferModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return roleData(transfer(index.row()), role);
}

int CloudTransferModel::rowOf(const QString &id) const
{
    const auto handle = m_transfers.handleOf(id);
    return handle ? rowOfHandle(*handle) : -1;
}

bool CloudTransferModel::isBefore(Handle a, Handle b) const
{
    const Listed &x = m_transfers[a];
    const Listed &y = m_transfers[b];
    const int rankX = stateRank(x.value.state);
    const int rankY = stateRank(y.value.state);
    return rankX != rankY ? rankX < rankY : x.age > y.age;
}

CloudTransfers CloudTransferModel::newestFirst() const
{
    zel::Handles handles = inOrder();
    std::sort(handles.begin(), handles.end(),
        [this](Handle a, Handle b) { return m_transfers[a].age > m_transfers[b].age; });
    CloudTransfers transfers;
    for (const Handle handle : handles)
        transfers.append(m_transfers[handle].value);
    return transfers;
}

void CloudTransferModel::tellActivity()
{
    if (std::exchange(m_telling, true))
        return;
    const auto tell = [this] {
        m_telling = false;
        Q_EMIT activityChanged();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

int CloudTransferModel::activeCount() const
{
    return int(std::count_if(inOrder().cbegin(), inOrder().cend(),
        [this](Handle handle) { return m_transfers[handle].value.isActive(); }));
}

int CloudTransferModel::endedCount() const
{
    return int(std::count_if(inOrder().cbegin(), inOrder().cend(),
        [this](Handle handle) { return m_transfers[handle].value.hasEnded(); }));
}

// A folder that waits has no size yet, so each counts for at least one byte.
int CloudTransferModel::totalPercent() const
{
    double done = 0;
    double total = 0;
    for (const Handle handle : inOrder()) {
        const CloudTransfer &transfer = m_transfers[handle].value;
        if (!transfer.isActive())
            continue;
        const double size = double(std::max<qint64>(transfer.totalBytes, 1));
        done += size * transfer.percent() / 100;
        total += size;
    }
    return total > 0 ? int(done * 100 / total) : -1;
}

void CloudTransferModel::take(const CloudTransfer &transfer, qint64 age, zel::ListDelta *delta)
{
    const auto known = m_transfers.handleOf(transfer.id);
    if (!known) {
        delta->inserted.push_back(m_transfers.add({transfer.id, transfer, age}));
        return;
    }
    Listed &here = m_transfers[*known];
    here.age = age;
    if (!(std::exchange(here.value, transfer) == transfer))
        delta->changed.push_back(*known);
}

void CloudTransferModel::put(const CloudTransfers &transfers)
{
    zel::ListDelta delta;
    for (const CloudTransfer &transfer : transfers) {
        const Listed *known = m_transfers.find(transfer.id);
        take(transfer, known ? known->age : ++m_newest, &delta);
    }
    applyAndFree(delta);
}

void CloudTransferModel::remove(const QStringList &ids)
{
    zel::ListDelta delta;
    const QSet<QString> gone(ids.cbegin(), ids.cend());
    for (const QString &id : gone)
        if (const auto handle = m_transfers.handleOf(id))
            delta.removed.push_back(*handle);
    applyAndFree(delta);
}

void CloudTransferModel::replaceAll(const CloudTransfers &transfers)
{
    QSet<QString> staying;
    for (const CloudTransfer &transfer : transfers)
        staying.insert(transfer.id);
    zel::ListDelta delta;
    for (const Handle handle : inOrder())
        if (!staying.contains(m_transfers[handle].id))
            delta.removed.push_back(handle);
    m_newest = transfers.size();
    qint64 age = m_newest;
    for (const CloudTransfer &transfer : transfers)
        take(transfer, age--, &delta);
    applyAndFree(delta);
    resort(); // should the service have them in another order
}

void CloudTransferModel::applyAndFree(const zel::ListDelta &delta)
{
    apply(delta);
    for (const Handle handle : delta.removed)
        m_transfers.remove(handle);
    tellActivity();
}

void CloudTransferModel::setInterrupted()
{
    zel::ListDelta delta;
    for (const Handle handle : inOrder()) {
        CloudTransfer &transfer = m_transfers[handle].value;
        if (transfer.state != CloudTransfer::State::Running)
            continue;
        transfer.state = CloudTransfer::State::Waiting;
        transfer.bytesPerSecond = 0;
        transfer.remainingMs = -1;
        delta.changed.push_back(handle);
    }
    applyAndFree(delta);
}
