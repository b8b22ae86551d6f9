#pragma once

#include "clouddoc/cloudtransfer.h"

#include <QAbstractListModel>
#include <QHash>

/// The transfers of the service, running and ended, newest first. GUI thread; owns copies of the values.
class CloudTransferModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    enum Role {
        IdRole = Qt::UserRole,
        NameRole,       ///< as Qt::DisplayRole
        DirectionRole,  ///< int, CloudTransfer::Direction
        StateRole,      ///< int, CloudTransfer::State
        DoneBytesRole,  ///< qint64
        TotalBytesRole, ///< qint64; 0 when not known yet
        PercentRole,    ///< int
        SpeedRole,      ///< qint64, bytes in a second
        RemainingRole,  ///< qint64, ms; -1 when not known
        LocalPathRole,
        ProblemRole,  ///< int, CloudProblem
        TransferRole, ///< CloudTransfer, for a delegate that needs all of it
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const CloudTransfer &transfer(int row) const { return m_transfers.at(row); } ///< `row` is in range
    int rowOf(const QString &id) const;                                          ///< -1: not here
    int activeCount() const;                                                     ///< waiting or running
    int endedCount() const; ///< that clearing would take off
    /// Of those that are active: 0 to 100 by bytes; -1 when nothing is.
    int totalPercent() const;

    // By the logic:
    void put(const CloudTransfers &transfers); ///< new ones come first, the last of them at the top
    void remove(const QStringList &ids);
    void replaceAll(const CloudTransfers &transfers); ///< newest first; tells only what differs
    /// The service is away: what ran waits until it is back.
    void setInterrupted();

Q_SIGNALS:
    /// activeCount(), endedCount() or totalPercent() may be another one; once for all changes of a loop turn.
    void activityChanged();

private:
    void change(int row, const CloudTransfer &transfer);
    void indexRows();
    void tellActivity();

    CloudTransfers m_transfers;
    QHash<QString, int> m_fromEnd; ///< by id: rows after it, which new ones at the top do not change
    bool m_telling = false;
};
