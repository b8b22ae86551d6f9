#pragma once

#include "kdocumentopener.h"
#include "widgets/localfiledialog.h"

/// Lets a person choose one of this computer's folders, and opens it. GUI thread.
class FolderSelectorDlg : public LocalFileDialog
{
    Q_OBJECT
public:
    explicit FolderSelectorDlg(QWidget *parent = nullptr);

    void accept() override; ///< closes once the folder is open; says why when it cannot be opened

Q_SIGNALS:
    void folderSelected(const QString &path); ///< once, after the desktop was asked to open it

private:
    void onOpened(const QString &path, KDocumentOpener::Outcome outcome);
};
