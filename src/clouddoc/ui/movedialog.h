#pragma once

#include "widgets/boxdialog.h"

#include <QPersistentModelIndex>
#include <functional>

class BreadcrumbBar;
class CloudDocDelegate;
class CloudDocLogic;
class IconButton;
class KCloudSvrProxy;
class QPushButton;
class SectionListView;

/// Lets a person choose a folder of the drive by going through its folders. GUI thread. Reads the drive by a
/// logic of its own, so that the page behind it stays where it is.
class MoveDialog : public BoxDialog
{
    Q_OBJECT
public:
    using MayMove = std::function<bool(const QString &folderId)>;

    /// `ids` are to be moved; they are not offered as targets.
    MoveDialog(KCloudSvrProxy *proxy, const QStringList &ids, const QString &name, const MayMove &mayMove,
        QWidget *parent = nullptr);

    void openFolder(const QString &id); ///< where to begin
    SectionListView *view() const { return m_view; }
    CloudDocLogic *logic() const { return m_logic; }

    void accept() override;

Q_SIGNALS:
    void folderChosen(const QString &folderId);

private:
    void layOut();
    void bindKeys();
    void connectLogic();
    void update();
    void enter(const QModelIndex &index);
    void onFolderCreated(const QString &id);
    QString target() const; ///< the selected folder, else the one that is shown
    QString targetName() const;

    CloudDocLogic *m_logic;
    MayMove m_mayMove;
    BreadcrumbBar *m_crumbs;
    SectionListView *m_view;
    CloudDocDelegate *m_delegate;
    QLabel *m_note;
    IconButton *m_newFolder;
    QPushButton *m_move;
};
