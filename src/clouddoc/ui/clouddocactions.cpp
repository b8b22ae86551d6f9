#include "clouddoc/ui/clouddocactions.h"

#include "widgets/svgicon.h"

#include <QWidget>

static QKeySequence keys(int combination)
{
    return QKeySequence(combination);
}

CloudDocActions::CloudDocActions(QWidget *page)
    : QObject(page),
      back(make("go_back", keys(int(Qt::ALT) | int(Qt::Key_Left)))),
      forward(make("go_forward", keys(int(Qt::ALT) | int(Qt::Key_Right)))),
      up(make("go_up", keys(int(Qt::ALT) | int(Qt::Key_Up)))),
      reload(make("retry", QKeySequence::Refresh)),
      uploadFiles(make("upload", keys(int(Qt::CTRL) | int(Qt::Key_U)))),
      uploadFolder(make("upload_folder", keys(int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_U)))),
      newFolder(make("folder_new", keys(int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_N)))),
      open(make("folder_open", {})),
      download(make("download", keys(int(Qt::CTRL) | int(Qt::Key_D)))),
      reveal(make("folder", keys(int(Qt::CTRL) | int(Qt::Key_Return)))),
      cut(make("cut", QKeySequence::Cut)),
      copy(make("copy", QKeySequence::Copy)),
      paste(make("paste", QKeySequence::Paste)),
      moveTo(make("move_to", keys(int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_M)))),
      rename(make("rename", keys(Qt::Key_F2))),
      trash(make("trash", QKeySequence::Delete))
{
    page->addActions({back, forward, up, reload, uploadFiles, uploadFolder, newFolder});
    retranslate();
}

// Else Delete in the list of transfers would remove documents.
void CloudDocActions::setList(QWidget *list)
{
    list->addActions({open, download, reveal, cut, copy, paste, moveTo, rename, trash});
}

QAction *CloudDocActions::make(const char *icon, const QKeySequence &keys)
{
    auto *action = new QAction(this);
    const QString path = QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(icon));
    action->setIcon(zel::tintedIcon(path));
    action->setProperty("zelIcon", path); // for buttons that draw it themselves
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setAutoRepeat(false); // a key that is held down does not delete one file after the other
    return action;
}

void CloudDocActions::retranslate()
{
    back->setText(tr("Back"));
    forward->setText(tr("Forward"));
    up->setText(tr("Up"));
    reload->setText(tr("Refresh"));
    uploadFiles->setText(tr("Upload Files…"));
    uploadFolder->setText(tr("Upload Folder…"));
    newFolder->setText(tr("New Folder"));
    // Shown only: the list itself knows Enter, and must not share it with what is edited.
    open->setText(tr("Open") + QLatin1Char('\t') + keys(Qt::Key_Return).toString(QKeySequence::NativeText));
    download->setText(tr("Download…"));
    reveal->setText(tr("Show in File Manager"));
    cut->setText(tr("Cut"));
    copy->setText(tr("Copy"));
    paste->setText(tr("Paste"));
    moveTo->setText(tr("Move to…"));
    rename->setText(tr("Rename"));
    trash->setText(tr("Move to Recycle Bin"));
}

void CloudDocActions::update(const Situation &now)
{
    const bool some = now.selected > 0 && now.inFolder;
    const bool one = now.selected == 1 && now.inFolder;
    back->setEnabled(now.canGoBack);
    forward->setEnabled(now.canGoForward);
    up->setEnabled(now.canGoUp);
    for (QAction *action : {uploadFiles, uploadFolder, newFolder, paste})
        action->setEnabled(now.inFolder);
    for (QAction *action : {download, cut, copy, moveTo, trash})
        action->setEnabled(some);
    open->setEnabled(now.selected > 0);
    reveal->setEnabled(now.selected == 1 && now.local);
    rename->setEnabled(one);
}
