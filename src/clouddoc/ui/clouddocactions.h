#pragma once

#include <QAction>

/// What the cloud page can do, each with its text, icon and keys; tool bar and menus show them. GUI thread.
/// The keys of those for folders work while the focus is in the page, those for documents in the list only.
class CloudDocActions : public QObject
{
    Q_OBJECT
public:
    explicit CloudDocActions(QWidget *page);
    void setList(QWidget *list); ///< the part of the page with the documents

    /// What the actions depend on.
    struct Situation
    {
        int selected = 0;
        bool local = false;    ///< exactly one, with a file on this machine
        bool inFolder = false; ///< a folder is shown and the service is there
        bool canGoBack = false;
        bool canGoForward = false;
        bool canGoUp = false;
    };
    void update(const Situation &now);
    void retranslate();

    QAction *const back;
    QAction *const forward;
    QAction *const up;
    QAction *const reload;
    QAction *const uploadFiles;
    QAction *const uploadFolder;
    QAction *const newFolder;
    QAction *const open;
    QAction *const download;
    QAction *const reveal;
    QAction *const cut;
    QAction *const copy;
    QAction *const paste;
    QAction *const moveTo;
    QAction *const rename;
    QAction *const trash;

private:
    QAction *make(const char *icon, const QKeySequence &keys);
};
