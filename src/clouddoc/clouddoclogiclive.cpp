#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddoclogic.h"
#include "clouddoc/cloudfolderloader.h"

#include <algorithm>

// What the service tells unasked.

namespace {

constexpr int MostTransfers = 500; ///< the newest ones
constexpr int LongestPauseMs = 5000;

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

// What was asked for before the connection is answered over it; what was asked over a lost one is not.
void CloudDocLogic::onReached(bool reached)
{
    if (m_state == State::Idle)
        return;
    if (!reached) {
        m_loader->stop();
        m_readAgain.stop();
        m_reloading = false;
        m_transfers->setInterrupted();
        setState(State::Offline);
        return;
    }
    watchTransfers();
    if (m_loader->isRunning())
        return;
    checkCrumbs();
    reload();
}

void CloudDocLogic::onNews(const CloudNews &news)
{
    if (m_state == State::Idle)
        return;
    takePresent(news.present);
    takeGone(news.gone);
    if (!news.transfers.isEmpty())
        takeTransfers(news.transfers);
    for (const QString &id : news.unlisted) {
        if (id == m_folder.id || isRootUnknown())
            readAgainSoon();
        else if (crumbOf(id) >= 0)
            checkCrumbs();
    }
    if (news.room)
        readRoom();
}

// Where thousands of files come or go, that is told again and again: reading takes half of the time at most.
void CloudDocLogic::readAgainSoon()
{
    if (m_loader->isRunning())
        m_stale = true;
    else if (!m_readAgain.isActive())
        m_readAgain.start(int(qBound<qint64>(0, 2 * m_readingTook - m_reading.elapsed(), LongestPauseMs)));
}

void CloudDocLogic::takePresent(const CloudDocuments &documents)
{
    if (isRootUnknown() && !documents.isEmpty()) { // they may lie in it
        m_stale = true;
        return;
    }
    CloudDocuments here;
    QStringList elsewhere;
    for (const CloudDocument &document : documents) {
        if (document.id == m_folder.id)
            m_folder = document;
        if (crumbOf(document.id) >= 0)
            checkCrumbs();
        if (m_loader->isRunning())
            m_touched.insert(document.id);
        if (document.parentId == m_folder.id && !document.parentId.isEmpty())
            here.append(document);
        else
            elsewhere.append(document.id);
    }
    m_documents->remove(elsewhere);
    m_documents->add(here);
}

void CloudDocLogic::takeGone(const QStringList &ids)
{
    for (const QString &id : ids) {
        if (crumbOf(id) >= 0)
            checkCrumbs();
        if (m_loader->isRunning())
            m_touched.insert(id);
    }
    m_documents->remove(ids);
}

void CloudDocLogic::watchTransfers()
{
    if (!m_link->isReached())
        return; // with the connection
    m_link->subscribeTransfers();
    m_link->listTransfers(MostTransfers, [this](const CloudAnswer<CloudTransfers> &answer) {
        if (!answer)
            return;
        m_transfers->replaceAll(answer.value);
        showTransfers();
    });
}

// The newest comes last: what ended before does not hide it.
void CloudDocLogic::showTransfers()
{
    for (int row = m_transfers->rowCount() - 1; row >= 0; --row)
        showTransferOf(m_transfers->transfer(row));
}

// A push does not tell when the transfer was asked for.
void CloudDocLogic::takeTransfers(CloudTransfers transfers)
{
    CloudTransfers ended;
    for (CloudTransfer &transfer : transfers) {
        const int row = m_transfers->rowOf(transfer.id);
        const CloudTransfer known = row >= 0 ? m_transfers->transfer(row) : CloudTransfer();
        if (known.askedAt > 0)
            transfer.askedAt = known.askedAt;
        transfer.folder = transfer.folder || known.folder;
        if (transfer.hasEnded() && !known.hasEnded())
            ended.append(transfer);
    }
    m_transfers->put(transfers);
    for (const CloudTransfer &transfer : qAsConst(transfers))
        showTransferOf(transfer);
    for (const CloudTransfer &transfer : qAsConst(ended))
        Q_EMIT transferEnded(transfer);
}

void CloudDocLogic::showTransferOf(const CloudTransfer &transfer)
{
    if (!transfer.itemId.isEmpty())
        m_documents->setTransfer(transfer.itemId, shownTransfer(transfer), transfer.percent());
}

// One request at a time, however many changes ask for it.
void CloudDocLogic::readRoom()
{
    m_roomStale = m_readingRoom;
    if (m_readingRoom)
        return;
    m_readingRoom = true;
    m_link->readRoom([this](const CloudAnswer<CloudRoom> &answer) {
        m_readingRoom = false;
        const bool again = std::exchange(m_roomStale, false);
        if (!answer)
            return;
        if (again)
            readRoom();
        const CloudRoom &room = answer.value;
        if (room.used == m_spaceUsed && room.total == m_spaceTotal)
            return;
        m_spaceUsed = room.used;
        m_spaceTotal = room.total;
        Q_EMIT spaceChanged(room.used, room.total);
    });
}
