#include "clouddoc/cloudtransfermodel.h"

#include <QSet>
#include <algorithm>

int CloudTransferModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_transfers.size();
}

QVariant CloudTransferModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CloudTransfer &transfer = m_transfers.at(index.row());
    if (role == Qt::DisplayRole)
        return transfer.name;
    if (role < IdRole || role > TransferRole)
        return {};
    switch (Role(role)) {
    case IdRole:
        return transfer.id;
    case NameRole:
        return transfer.name;
    case DirectionRole:
        return int(transfer.direction);
    case StateRole:
        return int(transfer.state);
    case DoneBytesRole:
        return transfer.doneBytes;
    case TotalBytesRole:
        return transfer.totalBytes;
    case PercentRole:
        return transfer.percent();
    case SpeedRole:
        return transfer.bytesPerSecond;
    case RemainingRole:
        return transfer.remainingMs;
    case LocalPathRole:
        return transfer.localPath;
    case ProblemRole:
        return int(transfer.problem);
    case TransferRole:
        return QVariant::fromValue(transfer);
    }
    return {};
}

QHash<int, QByteArray> CloudTransferModel::roleNames() const
{
    return {{Qt::DisplayRole, "display"}, {IdRole, "id"}, {NameRole, "name"}, {DirectionRole, "direction"},
        {StateRole, "state"}, {DoneBytesRole, "doneBytes"}, {TotalBytesRole, "totalBytes"},
        {PercentRole, "percent"}, {SpeedRole, "speed"}, {RemainingRole, "remaining"},
        {LocalPathRole, "localPath"}, {ProblemRole, "problem"}, {TransferRole, "transfer"}};
}

int CloudTransferModel::rowOf(const QString &id) const
{
    const auto fromEnd = m_fromEnd.constFind(id);
    return fromEnd == m_fromEnd.cend() ? -1 : m_transfers.size() - 1 - *fromEnd;
}

void CloudTransferModel::indexRows()
{
    m_fromEnd.clear();
    for (int row = 0; row < m_transfers.size(); ++row)
        m_fromEnd.insert(m_transfers.at(row).id, m_transfers.size() - 1 - row);
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
    return int(std::count_if(m_transfers.cbegin(), m_transfers.cend(),
        [](const CloudTransfer &transfer) { return transfer.isActive(); }));
}

int CloudTransferModel::endedCount() const
{
    return int(std::count_if(m_transfers.cbegin(), m_transfers.cend(),
        [](const CloudTransfer &transfer) { return transfer.hasEnded(); }));
}

// A folder that waits has no size yet, so each counts for at least one byte.
int CloudTransferModel::totalPercent() const
{
    double done = 0;
    double total = 0;
    for (const CloudTransfer &transfer : m_transfers) {
        if (!transfer.isActive())
            continue;
        const double size = double(std::max<qint64>(transfer.totalBytes, 1));
        done += size * transfer.percent() / 100;
        total += size;
    }
    return total > 0 ? int(done * 100 / total) : -1;
}

void CloudTransferModel::put(const CloudTransfers &transfers)
{
    CloudTransfers fresh;
    for (const CloudTransfer &transfer : transfers) {
        const int row = rowOf(transfer.id);
        if (row >= 0)
            change(row, transfer);
        else
            fresh.append(transfer);
    }
    if (!fresh.isEmpty()) {
        beginInsertRows({}, 0, fresh.size() - 1);
        std::reverse(fresh.begin(), fresh.end()); // as the service lists them
        m_transfers = fresh + m_transfers;
        for (int row = 0; row < fresh.size(); ++row)
            m_fromEnd.insert(fresh.at(row).id, m_transfers.size() - 1 - row);
        endInsertRows();
    }
    tellActivity();
}

void CloudTransferModel::change(int row, const CloudTransfer &transfer)
{
    if (m_transfers.at(row) == transfer)
        return;
    m_transfers[row] = transfer;
    Q_EMIT dataChanged(index(row), index(row));
}

void CloudTransferModel::remove(const QStringList &ids)
{
    const QSet<QString> gone(ids.begin(), ids.end());
    for (int last = m_transfers.size() - 1; last >= 0; --last) {
        if (!gone.contains(m_transfers.at(last).id))
            continue;
        int first = last;
        while (first > 0 && gone.contains(m_transfers.at(first - 1).id))
            --first;
        beginRemoveRows({}, first, last);
        m_transfers.remove(first, last - first + 1);
        indexRows();
        endRemoveRows();
        last = first;
    }
    tellActivity();
}

// Both lists are newest first, so what is in both stands in the same order.
void CloudTransferModel::replaceAll(const CloudTransfers &transfers)
{
    QSet<QString> staying;
    for (const CloudTransfer &transfer : transfers)
        staying.insert(transfer.id);
    QStringList gone;
    for (const CloudTransfer &transfer : qAsConst(m_transfers))
        if (!staying.contains(transfer.id))
            gone.append(transfer.id);
    remove(gone);
    if (m_transfers.isEmpty()) {
        CloudTransfers oldestFirst = transfers;
        std::reverse(oldestFirst.begin(), oldestFirst.end());
        put(oldestFirst);
        return;
    }
    for (int row = 0; row < transfers.size(); ++row) {
        const CloudTransfer &transfer = transfers.at(row);
        const int here =
            row < m_transfers.size() && m_transfers.at(row).id == transfer.id ? row : rowOf(transfer.id);
        if (here < 0) {
            beginInsertRows({}, row, row);
            m_transfers.insert(row, transfer);
            indexRows();
            endInsertRows();
            continue;
        }
        if (here != row) {
            beginMoveRows({}, here, here, {}, row);
            m_transfers.move(here, row);
            indexRows();
            endMoveRows();
        }
        change(row, transfer);
    }
    tellActivity();
}

void CloudTransferModel::setInterrupted()
{
    for (int row = 0; row < m_transfers.size(); ++row) {
        CloudTransfer transfer = m_transfers.at(row);
        if (transfer.state != CloudTransfer::State::Running)
            continue;
        transfer.state = CloudTransfer::State::Waiting;
        transfer.bytesPerSecond = 0;
        transfer.remainingMs = -1;
        change(row, transfer);
    }
    tellActivity();
}
