#include "clouddoc/clouddocoperations.h"

#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocmodel.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <algorithm>
#include <memory>

namespace {

/// Of one request: what is done shows up in between, and no request runs into its time limit.
constexpr int LargestPart = 1000;

CloudConflicts namedConflicts(CloudConflicts conflicts, const QHash<QString, QString> &names)
{
    for (CloudConflict &conflict : conflicts)
        if (conflict.name.isEmpty())
            conflict.existing.name = conflict.name = names.value(conflict.source);
    return conflicts;
}

void append(CloudOutcome &all, const CloudOutcome &part)
{
    all.documents += part.documents;
    all.removed += part.removed;
    all.recycled += part.recycled;
    all.transfers += part.transfers;
    all.conflicts += part.conflicts;
    if (all.failed == 0) {
        all.firstFailed = part.firstFailed;
        all.problem = part.problem;
        all.detail = part.detail;
    }
    all.failed += part.failed;
    all.leftOut += part.leftOut;
}

QStringList idsOf(const CloudDocuments &documents)
{
    QStringList ids;
    for (const CloudDocument &document : documents)
        ids.append(document.id);
    return ids;
}

} // namespace

CloudDocOperations::CloudDocOperations(CloudDocLink *link, const CloudDocModel *documents, QObject *parent)
    : QObject(parent), m_link(link), m_documents(documents)
{
}

QString CloudDocOperations::nameOf(const QString &id) const
{
    const CloudDocument *document = m_documents->find(id);
    return document ? document->name : QString();
}

void CloudDocOperations::begin(CloudOperation operation)
{
    ++m_running;
    Q_EMIT runningChanged();
    Q_EMIT begun(operation);
}

void CloudDocOperations::leave()
{
    --m_running;
    Q_EMIT runningChanged();
}

void CloudDocOperations::createFolder(const QString &parentId, const QString &name)
{
    begin(CloudOperation::CreateFolder);
    m_making << name;
    m_link->createFolder(parentId, name, [this, name](const CloudAnswer<CloudDocument> &answer) {
        const auto atEnd = qScopeGuard([this] { leave(); });
        m_making.removeOne(name);
        if (!answer) {
            Q_EMIT failed(CloudOperation::CreateFolder, answer.problem, 1, name);
            return;
        }
        take(answer.value);
        m_newFolder = answer.value.id;
        Q_EMIT undoable({CloudOperation::CreateFolder, 1, {answer.value.id}, answer.value.name, {}, {}, {}});
        Q_EMIT folderCreated(answer.value.id);
        Q_EMIT done(CloudOperation::CreateFolder);
    });
}

void CloudDocOperations::rename(const QString &id, const QString &name)
{
    begin(CloudOperation::Rename);
    const CloudUndo undo = std::exchange(m_newFolder, {}) == id
        ? CloudUndo{CloudOperation::CreateFolder, 1, {id}, name, {}, {}, {}}
        : CloudUndo{CloudOperation::Rename, 1, {id}, nameOf(id), name, {}, {}};
    m_link->rename(id, name, [=, this](const CloudAnswer<CloudDocument> &answer) {
        const auto atEnd = qScopeGuard([this] { leave(); });
        if (answer)
            take(answer.value);
        Q_EMIT renameEnded(id, name);
        if (!answer) {
            Q_EMIT failed(CloudOperation::Rename, answer.problem, 1, undo.firstName);
            return;
        }
        if (!undo.firstName.isEmpty())
            Q_EMIT undoable(undo);
        Q_EMIT done(CloudOperation::Rename);
    });
}

void CloudDocOperations::take(const CloudDocument &document)
{
    CloudOutcome outcome;
    outcome.documents = {document};
    Q_EMIT outcomeArrived(outcome);
}

// The end never comes within the call, not even that of nothing.
void CloudDocOperations::inParts(const Run &run, const QStringList &ids)
{
    m_newFolder.clear();
    begin(run.operation);
    if (!ids.isEmpty())
        nextPart(run, ids, {});
    else
        QMetaObject::invokeMethod(
            this, [this, run] { end(run, {}); }, Qt::QueuedConnection);
}

// `before` is what came of the parts before.
void CloudDocOperations::nextPart(const Run &run, const QStringList &ids, const CloudOutcome &before)
{
    if (ids.isEmpty()) {
        end(run, before);
        return;
    }
    run.step(ids.mid(0, LargestPart), [=, this](const CloudAnswer<CloudOutcome> &answer) {
        CloudOutcome outcome = before;
        append(outcome, answer.value);
        if (answer) {
            Q_EMIT outcomeArrived(answer.value);
            nextPart(run, ids.mid(LargestPart), outcome);
            return;
        }
        CloudOutcome rest;
        rest.failed = ids.size();
        rest.firstFailed = ids.constFirst();
        rest.problem = answer.problem;
        rest.detail = answer.detail;
        append(outcome, rest);
        end(run, outcome);
    });
}

// Uploads go by their path; an item may be in another folder by now.
QString CloudDocOperations::failedName(const Run &run, const QString &key) const
{
    return run.operation == CloudOperation::Upload ? QFileInfo(key).fileName() : nameOf(key);
}

void CloudDocOperations::end(const Run &run, CloudOutcome outcome)
{
    const auto atEnd = qScopeGuard([this] { leave(); });
    if (run.finish)
        run.finish(outcome);
    if (!outcome.transfers.isEmpty())
        Q_EMIT transfersStarted(outcome.transfers);
    if (outcome.leftOut > 0)
        Q_EMIT leftOut(outcome.leftOut);
    if (outcome.failed > 0)
        Q_EMIT failed(run.operation, outcome.problem, outcome.failed, failedName(run, outcome.firstFailed));
    if (!outcome.conflicts.isEmpty())
        Q_EMIT conflictsFound(run.operation, outcome.conflicts, run.target);
    if (outcome.failed == 0 && outcome.conflicts.isEmpty())
        Q_EMIT done(run.operation);
}

void CloudDocOperations::move(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, const QString &fromFolder)
{
    const auto step = [=, this](const QStringList &part, const Then &then) {
        m_link->move(part, folderId, choice, then);
    };
    const auto finish = [=, this](const CloudOutcome &all) {
        if (!fromFolder.isEmpty() && !all.documents.isEmpty())
            Q_EMIT undoable({CloudOperation::Move, all.documents.size(), idsOf(all.documents),
                all.documents.first().name, {}, fromFolder, folderId});
    };
    inParts({CloudOperation::Move, folderId, step, finish}, ids);
}

void CloudDocOperations::copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    const auto step = [=, this](const QStringList &part, const Then &then) {
        m_link->copy(part, folderId, choice, then);
    };
    inParts({CloudOperation::Copy, folderId, step, {}}, ids);
}

void CloudDocOperations::trash(const QStringList &wanted)
{
    QStringList ids;
    std::copy_if(wanted.cbegin(), wanted.cend(), std::back_inserter(ids),
        [this](const QString &id) { return !m_trashing.contains(id); });
    if (ids.isEmpty())
        return;
    m_trashing.unite(QSet<QString>(ids.cbegin(), ids.cend()));
    const CloudDocument *first = m_documents->find(ids.constFirst());
    const QString name = first ? first->name : QString();
    const QString folder = first ? first->parentId : QString();
    const auto step = [this](const QStringList &part, const Then &then) { m_link->remove(part, then); };
    const auto finish = [=, this](const CloudOutcome &all) {
        m_trashing.subtract(QSet<QString>(ids.cbegin(), ids.cend()));
        if (!all.removed.isEmpty())
            Q_EMIT undoable({CloudOperation::Trash, all.removed.size(), all.recycled, name, {}, folder, {}});
    };
    inParts({CloudOperation::Trash, {}, step, finish}, ids);
}

void CloudDocOperations::undo(const CloudUndo &undo)
{
    const auto step = [=, this](const QStringList &part, const Then &then) {
        if (undo.operation == CloudOperation::Trash)
            m_link->recover(part, then);
        else if (undo.operation == CloudOperation::CreateFolder)
            m_link->remove(part, then);
        else if (undo.operation == CloudOperation::Move)
            m_link->move(part, undo.fromFolder, CloudNameChoice::Ask, then);
        else
            m_link->rename(part.first(), undo.firstName, [then](const CloudAnswer<CloudDocument> &answer) {
                CloudAnswer<CloudOutcome> all{answer.problem, answer.detail, {}};
                if (answer)
                    all.value.documents = {answer.value};
                then(all);
            });
    };
    const CloudOperation operation = undo.operation == CloudOperation::Trash ? CloudOperation::UndoTrash
        : undo.operation == CloudOperation::Move                             ? CloudOperation::UndoMove
        : undo.operation == CloudOperation::CreateFolder ? CloudOperation::UndoCreateFolder
                                                         : CloudOperation::UndoRename;
    restore(operation, undo, step);
}

// Nobody is asked about names while undoing: what is taken by now counts as not done. What was not reached
// can be tried again.
void CloudDocOperations::restore(CloudOperation operation, const CloudUndo &undo, const Step &step)
{
    const auto reached = std::make_shared<int>(0); // of the ids, in their order
    const auto noted = [step, reached](const QStringList &part, const Then &then) {
        step(part, [=](const CloudAnswer<CloudOutcome> &answer) {
            if (answer.problem != CloudProblem::NotReached)
                *reached += part.size();
            then(answer);
        });
    };
    const auto finish = [=, this](CloudOutcome &all) {
        if (const int taken = std::exchange(all.conflicts, {}).size()) {
            all.problem = all.failed > 0 ? all.problem : CloudProblem::Exists;
            all.failed += taken;
        }
        CloudUndo rest = undo;
        rest.ids = undo.ids.mid(*reached);
        rest.count = rest.ids.size();
        if (rest.count > 0)
            Q_EMIT undoable(rest);
        if (!all.documents.isEmpty() || !all.removed.isEmpty())
            Q_EMIT restored(undo, idsOf(all.documents));
    };
    inParts({operation, {}, noted, finish}, undo.ids);
}

void CloudDocOperations::upload(
    const QStringList &localPaths, const QString &folderId, CloudNameChoice choice)
{
    takeOffFailed(localPaths);
    QStringList paths;
    for (const QString &path : localPaths)
        paths.append(QDir::cleanPath(path)); // as the answer has it
    const auto step = [=, this](const QStringList &part, const Then &then) {
        m_link->upload(part, folderId, choice, then);
    };
    inParts({CloudOperation::Upload, folderId, step, {}}, paths);
}

// The answer names what has a taken name by its id only, and the user may be in another folder by then.
void CloudDocOperations::download(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice)
{
    takeOffFailed(ids);
    QHash<QString, QString> names;
    for (const QString &id : ids)
        names.insert(id, nameOf(id));
    const auto step = [=, this](const QStringList &part, const Then &then) {
        m_link->download(part, targetFolder, choice, [=](CloudAnswer<CloudOutcome> answer) {
            answer.value.conflicts = namedConflicts(answer.value.conflicts, names);
            for (CloudConflict &conflict : answer.value.conflicts)
                conflict.existing.localPath = QDir(targetFolder).filePath(conflict.name);
            then(answer);
        });
    };
    inParts({CloudOperation::Download, targetFolder, step, {}}, ids);
}

void CloudDocOperations::changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep change)
{
    const auto step = [=, this](const QStringList &part, const Then &then) {
        m_link->changeTransfers(part, change, [this, then](CloudAnswer<CloudOutcome> answer) {
            // What is no document of a folder is not taken for one, and none of them was started now.
            Q_EMIT transfersRemoved(std::exchange(answer.value.removed, {}));
            CloudOutcome changed;
            changed.transfers = std::exchange(answer.value.transfers, {});
            Q_EMIT outcomeArrived(changed);
            then(answer);
        });
    };
    inParts({CloudOperation::Transfer, {}, step, {}}, ids);
}

// The same request would end in the same way, so the user is asked first, as for one that is new.
void CloudDocOperations::retry(const CloudTransfer &transfer)
{
    if (transfer.state != CloudTransfer::State::Failed || transfer.problem != CloudProblem::Exists)
        return changeTransfers({transfer.id}, zel::clouddoc::TransferStep::TryAgain);
    const bool up = transfer.direction == CloudTransfer::Direction::Up;
    CloudConflict conflict{up ? transfer.localPath : transfer.itemId, transfer.name, {}, {}};
    conflict.existing.name = transfer.name;
    if (!up)
        conflict.existing.localPath = transfer.localPath;
    m_failed.insert(conflict.source, transfer.id);
    Q_EMIT conflictsFound(up ? CloudOperation::Upload : CloudOperation::Download, {conflict},
        up ? transfer.folderId : QFileInfo(transfer.localPath).path());
}

// Of those that are asked for anew.
void CloudDocOperations::takeOffFailed(const QStringList &sources)
{
    QStringList ids;
    for (const QString &source : sources) {
        if (const QString id = m_failed.take(source); !id.isEmpty())
            ids += id;
    }
    if (!ids.isEmpty())
        changeTransfers(ids, zel::clouddoc::TransferStep::TakeOff);
}
