#pragma once

#include "clouddoc/clouddocrecords.h"
#include "clouddoc/cloudundo.h"

#include <QHash>
#include <QObject>
#include <QSet>
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

    /// folderCreated() precedes done(). The name that it gets next is part of its making: undo removes it.
    void createFolder(const QString &parentId, const QString &name);
    bool isMaking(const QString &name) const { return m_making.contains(name); } ///< not answered yet
    void rename(const QString &id, const QString &name);
    /// `fromFolder`, where they are, makes it undoable; empty: it is not.
    void move(const QStringList &ids, const QString &folderId, CloudNameChoice choice,
        const QString &fromFolder = {});
    void copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice);
    /// Into the recycle bin. Those that are on their way there are left out; nothing ends when none remain.
    void trash(const QStringList &ids);
    void undo(const CloudUndo &undo); ///< restored() precedes done()
    void upload(const QStringList &localPaths, const QString &folderId, CloudNameChoice choice);
    void download(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice);
    void changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep change);
    /// Of one that failed because its name is taken: conflictsFound(), at once.
    void retry(const CloudTransfer &transfer);

    bool isRunning() const { return m_running > 0; } ///< what has begun and not ended

Q_SIGNALS:
    void begun(CloudOperation operation);
    void runningChanged();                            ///< isRunning(), perhaps
    void outcomeArrived(const CloudOutcome &outcome); ///< of one part
    void transfersRemoved(const QStringList &ids);    ///< from the list of transfers
    void folderCreated(const QString &id);
    void renameEnded(const QString &id, const QString &name); ///< done or not; before done() or failed()
    /// Something was done that undo() takes back, or could not be taken back now but may be later. Precedes
    /// done() or failed().
    void undoable(const CloudUndo &undo);
    void restored(
        const CloudUndo &undo, const QStringList &ids); ///< as they were; ids of items that are there
    void transfersStarted(const CloudTransfers &transfers);
    /// What was put somewhere lacks so many entries, as their names cannot be stored. Precedes done().
    void leftOut(int count);
    /// Call the operation again for their sources, with a choice.
    void conflictsFound(CloudOperation operation, const CloudConflicts &conflicts, const QString &target);
    void done(CloudOperation operation);
    /// `count` items were not done, the first of them, called `name` (empty: not known), because of
    /// `problem`.
    void failed(CloudOperation operation, CloudProblem problem, int count, const QString &name);

private:
    using Then = std::function<void(const CloudAnswer<CloudOutcome> &)>;
    using Step = std::function<void(const QStringList &ids, const Then &then)>;

    using Finish = std::function<void(CloudOutcome &all)>; ///< of all parts; may change how it ends
    struct Run
    {
        CloudOperation operation;
        QString target; ///< for conflictsFound()
        Step step;
        Finish finish;
    };

    void begin(CloudOperation operation);
    void leave();                            ///< one that has begun has ended
    QString nameOf(const QString &id) const; ///< empty: not in the folder on view
    void take(const CloudDocument &document);
    void inParts(const Run &run, const QStringList &ids);
    void nextPart(const Run &run, const QStringList &ids, const CloudOutcome &before);
    QString failedName(const Run &run, const QString &key) const;
    void end(const Run &run, CloudOutcome outcome);
    void restore(CloudOperation operation, const CloudUndo &undo, const Step &step);
    void takeOffFailed(const QStringList &sources);

    CloudDocLink *m_link;
    const CloudDocModel *m_documents;
    int m_running = 0;
    QSet<QString> m_trashing;         ///< items whose removal has not ended
    QStringList m_making;             ///< names of folders
    QString m_newFolder;              ///< has the name that it was made with
    QHash<QString, QString> m_failed; ///< transfers that were asked about, by their source
};
