#pragma once

#include "app/ui/boxdialog.h"

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

    QString selectedPath() const; ///< empty when what is typed is no folder

Q_SIGNALS:
    void folderSelected(const QString &path); ///< once, when the dialog is accepted

private:
    void onTyped(const QString &text);
    void onTreeChoice(const QModelIndex &index);

    QFileSystemModel *m_model;
    QLineEdit *m_path;
    QTreeView *m_tree;
    QPushButton *m_open;
};
