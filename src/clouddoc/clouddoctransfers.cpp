#include "clouddoc/clouddoctransfers.h"

#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocmodel.h"
#include "clouddoc/cloudtransfermodel.h"

#include <algorithm>

namespace {

constexpr int MostTransfers = 500; ///< the newest ones

CloudDocument::Transfer shownTransfer(const CloudTransfer &transfer)
{
    const bool up = transfer.direction == CloudTransfer::Direction::Up;
    if (transfer.state == CloudTransfer::State::Waiting)
        return CloudDocument::Transfer::Waiting;
    if (transfer.state == CloudTransfer::State::Running)
        return up ? CloudDocument::Transfer::Uploading : CloudDocument::Transfer::Downloading;
    return CloudDocument::Transfer::None;
}

} // namespace

CloudDocTransfers::CloudDocTransfers(CloudDocLink *link, CloudDocModel *documents, QObject *parent)
    : QObject(parent), m_link(link), m_documents(documents), m_model(new CloudTransferModel(this))
{
}

void CloudDocTransfers::watch()
{
    if (!m_link->isReached())
        return; // with the connection
    m_link->subscribeTransfers();
    m_link->listTransfers(MostTransfers, [this](const CloudAnswer<CloudTransfers> &answer) {
        if (!answer)
            return;
        m_model->replaceAll(answer.value);
        showAll();
    });
}

void CloudDocTransfers::interrupt()
{
    m_model->setInterrupted();
}

// The newest comes last: what ended before does not hide it.
void CloudDocTransfers::showAll()
{
    const CloudTransfers transfers = m_model->newestFirst();
    std::for_each(
        transfers.crbegin(), transfers.crend(), [this](const CloudTransfer &transfer) { show(transfer); });
}

// A push does not tell when the transfer was asked for.
void CloudDocTransfers::take(CloudTransfers transfers)
{
    CloudTransfers over;
    for (CloudTransfer &transfer : transfers) {
        const int row = m_model->rowOf(transfer.id);
        const CloudTransfer known = row >= 0 ? m_model->transfer(row) : CloudTransfer();
        if (known.askedAt > 0)
            transfer.askedAt = known.askedAt;
        transfer.folder = transfer.folder || known.folder;
        if (transfer.hasEnded() && !known.hasEnded())
            over.append(transfer);
    }
    m_model->put(transfers);
    for (const CloudTransfer &transfer : qAsConst(transfers))
        show(transfer);
    for (const CloudTransfer &transfer : qAsConst(over))
        Q_EMIT ended(transfer);
}

void CloudDocTransfers::show(const CloudTransfer &transfer)
{
    if (!transfer.itemId.isEmpty())
        m_documents->setTransfer(transfer.itemId, shownTransfer(transfer), transfer.percent());
}

void CloudDocTransfers::remove(const QStringList &ids)
{
    m_model->remove(ids);
}

QStringList CloudDocTransfers::endedIds() const
{
    QStringList ids;
    for (int row = 0; row < m_model->rowCount(); ++row)
        if (m_model->transfer(row).hasEnded())
            ids.append(m_model->transfer(row).id);
    return ids;
}
