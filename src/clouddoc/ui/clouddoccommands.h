#pragma once

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/ui/cloudactiontable.h"
#include "clouddoc/ui/clouddrag.h"
#include "lists/ui/listactions.h"

class CloudDocListView;

/// What the user does on the cloud page by key, menu, tool bar, clipboard and drop, with the dialogs that it
/// takes. What comes of it the logic tells. GUI thread.
class CloudDocCommands : public QObject
{
    Q_OBJECT
public:
    /// What it works on; all of them outlive it, but `proxy`, which may be null.
    struct Parts
    {
        KCloudSvrProxy *proxy;
        CloudDocLogic *logic;
        CloudDocListView *view;
        QWidget *list; ///< the part of the page with the view, where the keys for documents work
        QWidget *page; ///< parent of the dialogs
    };
    explicit CloudDocCommands(const Parts &parts);

    ListActions *actions() const { return m_actions; }
    QAction *action(CloudCommand command) const { return m_actions->action(int(command)); }
    void update(); ///< which actions make sense where one is now

    void upload(const QString &folderId, const QStringList &localPaths);
    /// Items that were dragged; `fromFolder` is where they are, empty: the folder on view.
    void move(const QString &folderId, const QStringList &ids, const QString &fromFolder);
    void showMenu(const QPoint &pos); ///< of the row there, or of the folder; viewport coordinates
    void showFolderMenu(const QPoint &globalPos);

Q_SIGNALS:
    void openRequested();
    void revealRequested(const QString &localPath);
    void undoRequested();
    void newFolderRequested(); ///< the page has to show it when it comes
    void notDone(const QString &why);

private:
    void bindActions();
    void popUpMenu(const QModelIndex &index, const QPoint &globalPos);
    QStringList idsOf(const ListActions::Rows &rows) const;
    void download(const QStringList &ids);
    void carry(const QStringList &ids, bool cut);
    void paste();
    void chooseFolder(const QStringList &ids);
    void chooseUpload(bool folder);
    void onFailed(CloudOperation operation, CloudProblem problem);
    void askAboutConflicts(CloudOperation operation, const CloudConflicts &conflicts, const QString &target);
    void repeat(
        CloudOperation operation, const QStringList &sources, const QString &target, CloudNameChoice choice);

    Parts m_parts;
    ListActions *m_actions;
    zel::clouddoc::CarriedItems m_pasted; ///< are off the clipboard; until their move has ended
};
