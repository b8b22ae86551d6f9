#pragma once

#include "kdocumentopener.h"
#include "widgets/boxdialog.h"

class QFileSystemModel;
class QLineEdit;
class QPushButton;
class QTreeView;

/// Lets a person choose one of this computer's folders. GUI thread; folders are read off it by the model.
class FolderSelectorDlg : public BoxDialog
{
    Q_OBJECT
public:
    explicit FolderSelectorDlg(QWidget *parent = nullptr);

    QString selectedPath() const; ///< empty when what is typed is no absolute path

    void accept() override; ///< closes once the folder is open; says why when it cannot be opened

Q_SIGNALS:
    void folderSelected(const QString &path); ///< once, after the desktop was asked to open it

private:
    void onTyped();
    void onOpened(const QString &path, KDocumentOpener::Outcome outcome);
    bool eventFilter(QObject *watched, QEvent *event) override; // the user has moved in the tree
    void onTreeChoice(const QModelIndex &index);

    QFileSystemModel *m_model;
    QLineEdit *m_path;
    QTreeView *m_tree;
    QPushButton *m_open;
    QLabel *m_problem;
    bool m_userMoved = false;
};
