#pragma once

#include "clouddoc/clouddocrecords.h"

#include <QObject>
#include <functional>

class CloudDocLink;
class CloudDocModel;
template <class Value> struct CloudAnswer;

/// What the user does in the drive. GUI thread; many items are asked for in parts, one after the other.
///
/// Each operation ends with exactly one done(), or else with failed() for what could not be done, or with
/// conflictsFound() for taken names when the choice was CloudNameChoice::Ask, or with both in this order.
/// What was done is told by outcomeArrived() before.
class CloudDocOperations final : public QObject
{
    Q_OBJECT
public:
    /// Both are used as long as this is. `documents` are those of the folder on view; they know names.
    CloudDocOperations(CloudDocLink *link, const CloudDocModel *documents, QObject *parent = nullptr);

    bool canUndoTrash() const { return !m_trashed.isEmpty(); }

    void createFolder(const QString &parentId, const QString &name); ///< folderCreated() precedes done()
    void rename(const QString &id, const QString &name);
    void move(const QStringList &ids, const QString &folderId, CloudNameChoice choice);
    void copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice);
    void trash(const QStringList &ids); ///< into the recycle bin; trashed() precedes done()
    void undoTrash();                   ///< of the last trash()
    void upload(const QStringList &localPaths, const QString &folderId, CloudNameChoice choice);
    void download(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice);
    void changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep step);

Q_SIGNALS:
    void outcomeArrived(const CloudOutcome &outcome); ///< of one part
    void transfersRemoved(const QStringList &ids);    ///< from the list of transfers
    void folderCreated(const QString &id);
    void trashed(int count, const QString &firstName); ///< undoTrash() brings them back
    void untrashed(const QStringList &ids);
    void transfersStarted(int count);
    /// Call the operation again for their sources, with a choice.
    void conflictsFound(CloudOperation operation, const CloudConflicts &conflicts, const QString &target);
    void done(CloudOperation operation);
    /// `detail` is for the log; `count` items were not done, the first of them because of `problem`.
    void failed(CloudOperation operation, CloudProblem problem, int count, const QString &detail);

private:
    using Then = std::function<void(const CloudAnswer<CloudOutcome> &)>;
    using Step = std::function<void(const QStringList &ids, const Then &then)>;

    void take(const CloudDocument &document);
    void inParts(CloudOperation operation, const QStringList &ids, const QString &target, const Step &step);
    void nextPart(CloudOperation operation, const QStringList &ids, const QString &target, const Step &step,
        const CloudOutcome &before);
    void end(CloudOperation operation, const CloudOutcome &outcome, const QString &target);

    CloudDocLink *m_link;
    const CloudDocModel *m_documents;
    QStringList m_trashed; ///< ids in the recycle bin
};
