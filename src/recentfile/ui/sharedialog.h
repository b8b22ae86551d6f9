#pragma once

#include "krecentfile.h"
#include "widgets/boxdialog.h"

/// What the box itself offers for giving a document to somebody, where no cloud server shares it: the file or
/// its path on the clipboard, or its folder. GUI thread.
class ShareDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit ShareDialog(const RecentFileInfo &record, QWidget *parent = nullptr);

Q_SIGNALS:
    void copyFileChosen();
    void copyPathChosen();
    void openFolderChosen();

private:
    void addChoice(
        const QString &icon, const QString &text, const QString &explanation, void (ShareDialog::*chosen)());
};
