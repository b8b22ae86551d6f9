#pragma once

#include "clouddoc/cloudtransfer.h"
#include "lists/recordtable.h"
#include "lists/sortedlistmodel.h"

/// The transfers of the service: what runs comes first, then what waits, what failed, and the rest, each the
/// newest first. GUI thread; owns copies of the values.
class CloudTransferModel final : public SortedListModel
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

    using SortedListModel::SortedListModel;

    QVariant data(const QModelIndex &index, int role) const override;
    QString idOf(int row) const override { return transfer(row).id; }
    int rowOf(const QString &id) const override;

    const CloudTransfer &transfer(int row) const { return m_transfers[handleAt(row)].value; } ///< in range
    CloudTransfers newestFirst() const; ///< whatever their states
    int activeCount() const;            ///< waiting or running
    int endedCount() const;             ///< that clearing would take off
    /// Of those that are active: 0 to 100 by bytes; -1 when nothing is.
    int totalPercent() const;

    // By the logic:
    void put(const CloudTransfers &transfers); ///< what is new here is newer than the rest, the last most
    void remove(const QStringList &ids);
    void replaceAll(const CloudTransfers &transfers); ///< newest first; tells only what differs
    /// The service is away: what ran waits until it is back.
    void setInterrupted();

Q_SIGNALS:
    /// activeCount(), endedCount() or totalPercent() may be another one; once for all changes of a loop turn.
    void activityChanged();

protected:
    bool isBefore(zel::Handle a, zel::Handle b) const override;
    bool passes(zel::Handle) const override { return true; }

private:
    struct Listed
    {
        QString id;
        CloudTransfer value;
        qint64 age = 0; ///< the newer the larger
    };
    void take(const CloudTransfer &transfer, qint64 age, zel::ListDelta *delta);
    void applyAndFree(const zel::ListDelta &delta);
    void tellActivity();

    zel::RecordTable<Listed> m_transfers;
    qint64 m_newest = 0;
    bool m_telling = false;
};
