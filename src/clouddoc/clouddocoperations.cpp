#include "clouddoc/clouddocoperations.h"

#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocmodel.h"

#include <QDir>

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
        all.problem = part.problem;
        all.detail = part.detail;
    }
    all.failed += part.failed;
}

} // namespace

CloudDocOperations::CloudDocOperations(CloudDocLink *link, const CloudDocModel *documents, QObject *parent)
    : QObject(parent), m_link(link), m_documents(documents)
{
}

void CloudDocOperations::createFolder(const QString &parentId, const QString &name)
{
    m_link->createFolder(parentId, name, [this](const CloudAnswer<CloudDocument> &answer) {
        if (!answer) {
            Q_EMIT failed(CloudOperation::CreateFolder, answer.problem, 1, answer.detail);
            return;
        }
        take(answer.value);
        Q_EMIT folderCreated(answer.value.id);
        Q_EMIT done(CloudOperation::CreateFolder);
    });
}

void CloudDocOperations::rename(const QString &id, const QString &name)
{
    m_link->rename(id, name, [this](const CloudAnswer<CloudDocument> &answer) {
        if (!answer) {
            Q_EMIT failed(CloudOperation::Rename, answer.problem, 1, answer.detail);
            return;
        }
        take(answer.value);
        Q_EMIT done(CloudOperation::Rename);
    });
}

// The end never comes within the call, not even that of nothing. `target`: for the end to tell.
void CloudDocOperations::inParts(
    CloudOperation operation, const QStringList &ids, const QString &target, const Step &step)
{
    if (!ids.isEmpty())
        nextPart(operation, ids, target, step, {});
    else
        QMetaObject::invokeMethod(
            this, [=, this] { end(operation, {}, target); }, Qt::QueuedConnection);
}

// `before` is what came of the parts before.
void CloudDocOperations::nextPart(CloudOperation operation, const QStringList &ids, const QString &target,
    const Step &step, const CloudOutcome &before)
{
    if (ids.isEmpty()) {
        end(operation, before, target);
        return;
    }
    step(ids.mid(0, LargestPart), [=, this](const CloudAnswer<CloudOutcome> &answer) {
        CloudOutcome outcome = before;
        append(outcome, answer.value);
        if (answer) {
            Q_EMIT outcomeArrived(answer.value);
            nextPart(operation, ids.mid(LargestPart), target, step, outcome);
            return;
        }
        CloudOutcome rest;
        rest.failed = ids.size();
        rest.problem = answer.problem;
        rest.detail = answer.detail;
        append(outcome, rest);
        end(operation, outcome, target);
    });
}

void CloudDocOperations::take(const CloudDocument &document)
{
    CloudOutcome outcome;
    outcome.documents = {document};
    Q_EMIT outcomeArrived(outcome);
}

void CloudDocOperations::end(CloudOperation operation, const CloudOutcome &outcome, const QString &target)
{
    if (operation == CloudOperation::Trash)
        m_trashed = outcome.recycled; // of this one alone, however many were asked for meanwhile
    if (operation == CloudOperation::Trash && !outcome.removed.isEmpty())
        Q_EMIT trashed(outcome.removed.size(), target);
    if (operation == CloudOperation::UndoTrash && !outcome.documents.isEmpty()) {
        QStringList ids;
        for (const CloudDocument &document : outcome.documents)
            ids.append(document.id);
        Q_EMIT untrashed(ids);
    }
    if (!outcome.transfers.isEmpty())
        Q_EMIT transfersStarted(outcome.transfers.size());
    if (outcome.failed > 0)
        Q_EMIT failed(operation, outcome.problem, outcome.failed, outcome.detail);
    if (!outcome.conflicts.isEmpty())
        Q_EMIT conflictsFound(operation, outcome.conflicts, target);
    if (outcome.failed == 0 && outcome.conflicts.isEmpty())
        Q_EMIT done(operation);
}

void CloudDocOperations::move(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    inParts(CloudOperation::Move, ids, folderId,
        [=, this](const QStringList &part, const Then &then) { m_link->move(part, folderId, choice, then); });
}

void CloudDocOperations::copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    inParts(CloudOperation::Copy, ids, folderId,
        [=, this](const QStringList &part, const Then &then) { m_link->copy(part, folderId, choice, then); });
}

void CloudDocOperations::trash(const QStringList &ids)
{
    const CloudDocument *first = ids.isEmpty() ? nullptr : m_documents->find(ids.first());
    inParts(CloudOperation::Trash, ids, first ? first->name : QString(),
        [this](const QStringList &part, const Then &then) { m_link->remove(part, then); });
}

void CloudDocOperations::undoTrash()
{
    inParts(CloudOperation::UndoTrash, std::exchange(m_trashed, {}), {},
        [this](const QStringList &part, const Then &then) {
            m_link->recover(part, [this, part, then](const CloudAnswer<CloudOutcome> &answer) {
                if (answer.problem == CloudProblem::NotReached)
                    m_trashed += part; // it can be tried again
                then(answer);
            });
        });
}

void CloudDocOperations::upload(
    const QStringList &localPaths, const QString &folderId, CloudNameChoice choice)
{
    QStringList paths;
    for (const QString &path : localPaths)
        paths.append(QDir::cleanPath(path)); // as the answer has it
    inParts(CloudOperation::Upload, paths, folderId, [=, this](const QStringList &part, const Then &then) {
        m_link->upload(part, folderId, choice, then);
    });
}

// The answer names what has a taken name by its id only, and the user may be in another folder by then.
void CloudDocOperations::download(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice)
{
    QHash<QString, QString> names;
    for (const QString &id : ids)
        if (const CloudDocument *document = m_documents->find(id))
            names.insert(id, document->name);
    inParts(
        CloudOperation::Download, ids, targetFolder, [=, this](const QStringList &part, const Then &then) {
            m_link->download(part, targetFolder, choice, [=](CloudAnswer<CloudOutcome> answer) {
                answer.value.conflicts = namedConflicts(answer.value.conflicts, names);
                for (CloudConflict &conflict : answer.value.conflicts)
                    conflict.existing.localPath = QDir(targetFolder).filePath(conflict.name);
                then(answer);
            });
        });
}

void CloudDocOperations::changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep step)
{
    inParts(CloudOperation::Transfer, ids, {}, [=, this](const QStringList &part, const Then &then) {
        m_link->changeTransfers(part, step, [this, then](CloudAnswer<CloudOutcome> answer) {
            // What is no document of a folder is not taken for one, and none of them was started now.
            Q_EMIT transfersRemoved(std::exchange(answer.value.removed, {}));
            CloudOutcome changed;
            changed.transfers = std::exchange(answer.value.transfers, {});
            Q_EMIT outcomeArrived(changed);
            then(answer);
        });
    });
}
