#pragma once

#include "clouddoc/clouddocfolder.h"
#include "clouddoc/clouddocmodel.h"
#include "clouddoc/clouddocnames.h"
#include "clouddoc/cloudtransfermodel.h"
#include "clouddoc/cloudundo.h"

#include <QObject>
#include <QStringList>

class CloudDocLink;
class CloudDocNavigator;
class CloudDocOperations;
class CloudDocTransfers;
class KCloudSvrProxy;
struct CloudNews;
struct CloudOutcome;

/// The page of cloud documents without its widgets: where one is (CloudDocNavigator), the documents that are
/// there (CloudDocFolder), what the user does to them (CloudDocOperations), and the transfers
/// (CloudDocTransfers). This is the front of the four, and takes to each what the others and the service
/// tell. GUI thread; nothing blocks, and every answer comes on a later turn of the loop. Lives as long as the
/// page; does nothing before the first openRoot() or openFolder(). Changes that anybody makes in the drive
/// arrive as pushes; nothing is polled, and no timer runs while nothing happens.
///
/// Each operation ends with exactly one operationDone(), or else with operationFailed() for what could not be
/// done, or with conflictsFound() for taken names when the choice was CloudNameChoice::Ask, or with both in
/// this order. What was done is in the models before.
class CloudDocLogic final : public QObject
{
    Q_OBJECT
public:
    using State = CloudDocFolder::State; ///< Offline ends by itself when the service comes back

    /// `proxy` is not owned, may be null (then all is Offline) and may be destroyed first.
    explicit CloudDocLogic(KCloudSvrProxy *proxy, QObject *parent = nullptr);
    ~CloudDocLogic() override;

    CloudDocModel *documents() const { return m_documents; } ///< owned
    CloudTransferModel *transfers() const;                   ///< owned

    State state() const { return m_folder->state(); }
    CloudProblem problem() const { return m_folder->problem(); } ///< of State::Failed
    bool isComplete() const { return m_folder->isComplete(); }   ///< the last page of the folder has come
    bool isReloading() const { return m_folder->isReloading(); } ///< while what is known stays on view
    bool isReached() const;                                      ///< the service is there
    bool isBusy() const; ///< with what the user does: more may be to be asked for before it has ended

    QString folderId() const { return m_folder->id(); } ///< empty: the root, before its id is known, or none
    QString folderPath() const { return m_folder->document().localPath; } ///< on this machine; may be empty
    CloudCrumbs crumbs() const;
    /// Of the folder that was on view before, when it lies in this one: what up() and back() select. Empty.
    QString cameFrom() const;
    bool canGoUp() const;
    bool canGoBack() const;
    bool canGoForward() const;

    /// A name for a new folder that is free in the folder on view.
    QString freeFolderName(const QString &wanted) const;
    /// What keeps `name` from being given here; the item `id` that gets it has its own name, of course.
    zel::clouddoc::NameProblem checkName(const QString &name, const QString &id = {}) const;
    /// Whether `ids` may be moved into `folderId`, as far as is known here: not into themselves, not where
    /// they are.
    bool canMoveTo(const QStringList &ids, const QString &folderId) const;

public Q_SLOTS:
    // Where one is. Opening what is open reads it anew.
    void openRoot();
    void openFolder(const QString &id);
    void up();
    void back();
    void forward();
    /// Reads the folder anew; rows change only where it differs.
    void reload();
    void retry(); ///< the same; a service that is away is first started, at once

    // What the user does; names are checked before, see checkName().
    void createFolder(const QString &name); ///< folderCreated() precedes operationDone()
    void rename(const QString &id, const QString &name);
    /// An empty `fromFolder` is the folder on view. With a choice about names it cannot be undone.
    void move(const QStringList &ids, const QString &folderId, CloudNameChoice choice = CloudNameChoice::Ask,
        const QString &fromFolder = {});
    void copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice = CloudNameChoice::Ask);
    void trash(const QStringList &ids); ///< into the drive's recycle bin, once each
    void undo(const CloudUndo &undo);
    /// Files and folders, by absolute local paths; what is done is in transfers() from then on. An empty
    /// folder id is the folder on view.
    void upload(const QStringList &localPaths, const QString &folderId = {},
        CloudNameChoice choice = CloudNameChoice::Ask);
    void download(
        const QStringList &ids, const QString &targetFolder, CloudNameChoice choice = CloudNameChoice::Ask);

    void cancelTransfers(const QStringList &ids);
    /// One that failed or was cancelled, or a paused one. conflictsFound() instead when its name is taken.
    void retryTransfer(const QString &id);
    void clearFinishedTransfers();

Q_SIGNALS:
    void stateChanged();   ///< state(), problem(), isComplete(), isReloading() or isReached()
    void folderChanged();  ///< another folder is on view; the model is empty then
    void crumbsChanged();  ///< also when a folder above was renamed
    void historyChanged(); ///< canGoUp(), canGoBack() or canGoForward()
    /// The folder on view was removed or is not there; the nearest one above it that is there is opened.
    void folderGone(const QString &name);
    void readingFailed(CloudProblem problem); ///< while rows stay on view: they may be out of date

    void operationBegun(CloudOperation operation);
    void busyChanged();                                       ///< isBusy(), perhaps
    void folderCreated(const QString &id);                    ///< it is in the model already
    void renameEnded(const QString &id, const QString &name); ///< it has that name now, or not
    /// Something was done that undo() takes back, or could not be taken back now but may be later. Precedes
    /// operationDone() or operationFailed().
    void undoable(const CloudUndo &undo);
    /// `undo` was done, and `ids` are there again; those of them that lie in this folder are in the model.
    void restored(const CloudUndo &undo, const QStringList &ids);
    void transfersStarted(const CloudTransfers &transfers);
    /// A copy, or a folder that was transferred, lacks so many entries, as their names cannot be stored.
    void leftOut(int count);
    void conflictsFound(CloudOperation operation, const CloudConflicts &conflicts,
        const QString &target); ///< call the operation again for their sources, with a choice
    void operationDone(CloudOperation operation);
    /// `count` items were not done, the first of them, called `name` (empty: not known), because of
    /// `problem`.
    void operationFailed(CloudOperation operation, CloudProblem problem, int count, const QString &name);
    void transferEnded(const CloudTransfer &transfer); ///< while one looks: done, failed or cancelled

private:
    void connectParts();
    void start();
    void onReached(bool reached);
    void onNews(const CloudNews &news);
    void take(const CloudOutcome &outcome);

    CloudDocLink *m_link; ///< owned, as all below
    CloudDocModel *m_documents;
    CloudDocFolder *m_folder;
    CloudDocNavigator *m_navigator;
    CloudDocTransfers *m_transfers;
    CloudDocOperations *m_operations;
};
