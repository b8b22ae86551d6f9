#pragma once

#include "base/filequestion.h"
#include "widgets/boxdialog.h"
#include "widgets/filetree.h"

class QLineEdit;
class QPushButton;
class QTreeView;

/// The box's own dialog to choose files or a folder of this computer: for desktops that have none of their
/// own (see FileChooser). GUI thread; no file system holds it up, neither while it is open nor when it goes.
class LocalFileDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit LocalFileDialog(const zel::FileQuestion &question, QWidget *parent = nullptr);

    QStringList selectedPaths() const; ///< absolute; none when what is typed is no absolute path
    void accept() override;

Q_SIGNALS:
    void chosen(const QStringList &paths); ///< once, when it is accepted

protected:
    void tell(const QString &problem);                          ///< until something else is picked
    bool eventFilter(QObject *watched, QEvent *event) override; // the user has moved in the tree

private:
    void beginAt(const QString &folder);
    void onPicked();
    void onTyped();
    void onRead(const QString &path, FileTree::Outcome outcome);

    const zel::FileQuestion::Kind m_kind;
    FileTree *m_files;
    QLineEdit *m_path;
    QTreeView *m_tree;
    QLabel *m_problem;
    QPushButton *m_accept;
    bool m_userMoved = false;
};
