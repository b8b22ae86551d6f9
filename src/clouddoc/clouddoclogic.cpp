#include "clouddoc/clouddoclogic.h"

#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocnavigator.h"
#include "clouddoc/clouddocoperations.h"
#include "clouddoc/clouddoctransfers.h"

#include <algorithm>

using zel::clouddoc::NameProblem;
using zel::clouddoc::TransferStep;

CloudDocLogic::CloudDocLogic(KCloudSvrProxy *proxy, QObject *parent)
    : QObject(parent),
      m_link(new CloudDocLink(proxy, this)),
      m_documents(new CloudDocModel(this)),
      m_folder(new CloudDocFolder(m_link, m_documents, this)),
      m_navigator(new CloudDocNavigator(m_link, m_folder, m_documents, this)),
      m_transfers(new CloudDocTransfers(m_link, m_documents, this)),
      m_operations(new CloudDocOperations(m_link, m_documents, this))
{
    qRegisterMetaType<CloudProblem>();
    qRegisterMetaType<CloudConflicts>("CloudConflicts");
    qRegisterMetaType<CloudTransfer>();
    qRegisterMetaType<CloudUndo>();
    qRegisterMetaType<CloudOperation>();
    connectParts();
}

CloudDocLogic::~CloudDocLogic() = default;

void CloudDocLogic::connectParts()
{
    connect(m_link, &CloudDocLink::reachedChanged, this, &CloudDocLogic::onReached);
    connect(m_link, &CloudDocLink::newsArrived, this, &CloudDocLogic::onNews);

    connect(m_folder, &CloudDocFolder::readEnded, m_transfers, &CloudDocTransfers::showAll);
    connect(m_folder, &CloudDocFolder::stateChanged, this, &CloudDocLogic::stateChanged);
    connect(m_folder, &CloudDocFolder::readingFailed, this, &CloudDocLogic::readingFailed);
    connect(m_navigator, &CloudDocNavigator::left, this, &CloudDocLogic::folderChanged);
    connect(m_navigator, &CloudDocNavigator::crumbsChanged, this, &CloudDocLogic::crumbsChanged);
    connect(m_navigator, &CloudDocNavigator::historyChanged, this, &CloudDocLogic::historyChanged);
    connect(m_navigator, &CloudDocNavigator::folderGone, this, &CloudDocLogic::folderGone);
    connect(m_transfers, &CloudDocTransfers::ended, this, [this](const CloudTransfer &transfer) {
        Q_EMIT transferEnded(transfer);
        if (transfer.leftOut > 0)
            Q_EMIT leftOut(transfer.leftOut);
    });

    using Operations = CloudDocOperations;
    connect(m_operations, &Operations::begun, this, &CloudDocLogic::operationBegun);
    connect(m_operations, &Operations::runningChanged, this, &CloudDocLogic::busyChanged);
    connect(m_operations, &Operations::outcomeArrived, this, &CloudDocLogic::take);
    connect(m_operations, &Operations::transfersRemoved, m_transfers, &CloudDocTransfers::remove);
    connect(m_operations, &Operations::folderCreated, this, &CloudDocLogic::folderCreated);
    connect(m_operations, &Operations::renameEnded, this, &CloudDocLogic::renameEnded);
    connect(m_operations, &Operations::undoable, this, &CloudDocLogic::undoable);
    connect(m_operations, &Operations::restored, this, &CloudDocLogic::restored);
    connect(m_operations, &Operations::transfersStarted, this, &CloudDocLogic::transfersStarted);
    connect(m_operations, &Operations::leftOut, this, &CloudDocLogic::leftOut);
    connect(m_operations, &Operations::conflictsFound, this, &CloudDocLogic::conflictsFound);
    connect(m_operations, &Operations::done, this, &CloudDocLogic::operationDone);
    connect(m_operations, &Operations::failed, this, &CloudDocLogic::operationFailed);
}

CloudTransferModel *CloudDocLogic::transfers() const
{
    return m_transfers->model();
}

bool CloudDocLogic::isReached() const
{
    return m_link->isReached();
}

bool CloudDocLogic::isBusy() const
{
    return m_operations->isRunning();
}

CloudCrumbs CloudDocLogic::crumbs() const
{
    return m_navigator->crumbs();
}

QString CloudDocLogic::cameFrom() const
{
    return m_navigator->cameFrom();
}

bool CloudDocLogic::canGoUp() const
{
    return m_navigator->canGoUp();
}

bool CloudDocLogic::canGoBack() const
{
    return m_navigator->canGoBack();
}

bool CloudDocLogic::canGoForward() const
{
    return m_navigator->canGoForward();
}

QString CloudDocLogic::freeFolderName(const QString &wanted) const
{
    return zel::clouddoc::freeName(wanted, true,
        [this](const QString &name) { return m_documents->hasName(name) || m_operations->isMaking(name); });
}

NameProblem CloudDocLogic::checkName(const QString &name, const QString &id) const
{
    const CloudDocument *own = m_documents->find(id);
    return zel::clouddoc::checkName(name, [this, own](const QString &wanted) {
        return !(own && own->name == wanted) && m_documents->hasName(wanted);
    });
}

bool CloudDocLogic::canMoveTo(const QStringList &ids, const QString &folderId) const
{
    const CloudDocument *target = m_documents->find(folderId);
    return !ids.isEmpty() && !m_navigator->isHere(folderId) && !ids.contains(folderId)
        && (!target || target->folder);
}

void CloudDocLogic::openRoot()
{
    openFolder({});
}

void CloudDocLogic::openFolder(const QString &id)
{
    const bool first = state() == State::Idle;
    m_navigator->open(id);
    if (first)
        m_transfers->watch();
}

void CloudDocLogic::up()
{
    m_navigator->up();
}

void CloudDocLogic::back()
{
    m_navigator->back();
}

void CloudDocLogic::forward()
{
    m_navigator->forward();
}

void CloudDocLogic::reload()
{
    m_folder->reload();
}

// What is asked for while the service starts waits for it.
void CloudDocLogic::retry()
{
    m_link->reach();
    reload();
}

void CloudDocLogic::createFolder(const QString &name)
{
    m_operations->createFolder(folderId(), name);
}

void CloudDocLogic::rename(const QString &id, const QString &name)
{
    m_operations->rename(id, name);
}

void CloudDocLogic::move(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, const QString &fromFolder)
{
    const QString from = fromFolder.isEmpty() ? this->folderId() : fromFolder;
    m_operations->move(ids, folderId, choice, choice == CloudNameChoice::Ask ? from : QString());
}

void CloudDocLogic::copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    m_operations->copy(ids, folderId, choice);
}

void CloudDocLogic::trash(const QStringList &ids)
{
    m_operations->trash(ids);
}

void CloudDocLogic::undo(const CloudUndo &undo)
{
    m_operations->undo(undo);
}

void CloudDocLogic::upload(const QStringList &localPaths, const QString &folderId, CloudNameChoice choice)
{
    m_operations->upload(localPaths, folderId.isEmpty() ? this->folderId() : folderId, choice);
}

void CloudDocLogic::download(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice)
{
    m_operations->download(ids, targetFolder, choice);
}

void CloudDocLogic::cancelTransfers(const QStringList &ids)
{
    m_operations->changeTransfers(ids, TransferStep::Cancel);
}

void CloudDocLogic::retryTransfer(const QString &id)
{
    if (const int row = transfers()->rowOf(id); row >= 0)
        m_operations->retry(transfers()->transfer(row));
}

void CloudDocLogic::clearFinishedTransfers()
{
    m_operations->changeTransfers(m_transfers->endedIds(), TransferStep::TakeOff);
}

// What was asked for before the connection is answered over it; what was asked over a lost one is not.
void CloudDocLogic::onReached(bool reached)
{
    if (state() == State::Idle)
        return;
    if (!reached) {
        m_transfers->interrupt();
        m_folder->interrupt();
        return;
    }
    m_transfers->watch();
    if (m_folder->isReading())
        return;
    m_navigator->checkCrumbs();
    reload();
}

void CloudDocLogic::take(const CloudOutcome &outcome)
{
    m_folder->takePresent(outcome.documents);
    m_folder->takeGone(outcome.removed);
    const auto isAbove = [this](const QString &id) { return m_navigator->isAbove(id); };
    if (std::any_of(outcome.documents.cbegin(), outcome.documents.cend(),
            [&](const CloudDocument &document) { return isAbove(document.id); })
        || std::any_of(outcome.removed.cbegin(), outcome.removed.cend(), isAbove))
        m_navigator->checkCrumbs();
    if (!outcome.transfers.isEmpty())
        m_transfers->take(outcome.transfers);
}

void CloudDocLogic::onNews(const CloudNews &news)
{
    if (state() == State::Idle)
        return;
    CloudOutcome outcome;
    outcome.documents = news.present;
    outcome.removed = news.gone;
    outcome.transfers = news.transfers;
    take(outcome);
    for (const QString &id : news.unlisted) {
        if (id == folderId() || m_folder->isRootUnknown())
            m_folder->readAgainSoon();
        else if (m_navigator->isAbove(id))
            m_navigator->checkCrumbs();
    }
}
