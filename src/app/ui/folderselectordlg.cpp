#include "app/ui/folderselectordlg.h"

FolderSelectorDlg::FolderSelectorDlg(QWidget *parent)
    : LocalFileDialog({zel::FileQuestion::Kind::Folder, tr("Select a folder"), tr("Open"), {}}, parent)
{
    setWindowTitle(tr("Select folder"));
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this, &FolderSelectorDlg::onOpened);
}

void FolderSelectorDlg::accept()
{
    const QStringList paths = selectedPaths();
    if (!paths.isEmpty())
        KDocumentOpener::instance()->open(paths.constFirst());
}

void FolderSelectorDlg::onOpened(const QString &path, KDocumentOpener::Outcome outcome)
{
    if (!selectedPaths().contains(path))
        return;
    if (outcome != KDocumentOpener::Outcome::Opened)
        return tell(tr("This folder cannot be opened."));
    Q_EMIT folderSelected(path);
    QDialog::accept();
}
