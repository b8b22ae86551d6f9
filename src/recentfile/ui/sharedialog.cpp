#include "recentfile/ui/sharedialog.h"

#include "recentfile/recordtexts.h"
#include "widgets/choicebutton.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

ShareDialog::ShareDialog(const RecentFileInfo &record, QWidget *parent)
    : BoxDialog(
        tr("Share document"), tr("Share “%1”").arg(headingName(zel::recent::shownName(record))), parent)
{
    if (record.path.isEmpty()) {
        addText(tr("This document is on another device only. Share it from there, or open it here first."));
    } else {
        addChoice(QStringLiteral("copy"), tr("Copy the file"),
            tr("Then paste it into a chat, a mail or a folder."), &ShareDialog::copyFileChosen);
        addChoice(QStringLiteral("paste"), tr("Copy its path"),
            tr("For somebody who reaches the same folder."), &ShareDialog::copyPathChosen);
        addChoice(QStringLiteral("folder_open"), tr("Show it in its folder"),
            tr("To drag it from there, or to pack it."), &ShareDialog::openFolderChosen);
    }
    buttons()->addButton(tr("Close"), QDialogButtonBox::RejectRole)->setAutoDefault(record.path.isEmpty());
}

void ShareDialog::addChoice(
    const QString &icon, const QString &text, const QString &explanation, void (ShareDialog::*chosen)())
{
    auto *button = new ChoiceButton(QStringLiteral(":/icons_svg/%1.svg").arg(icon), text, explanation, this);
    connect(button, &QAbstractButton::clicked, this, [this, chosen] {
        Q_EMIT(this->*chosen)();
        accept();
    });
    body()->addWidget(button);
}
