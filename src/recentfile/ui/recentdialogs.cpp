#include "recentfile/ui/recentdialogs.h"

#include "recentfile/recenttelemetry.h"

#include <QDialogButtonBox>
#include <QPushButton>

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;

RemoveRecordDialog::RemoveRecordDialog(const QString &name, int count, QWidget *parent)
    : BoxDialog(tr("Remove record"),
        count == 1 ? tr("Are you sure to remove %1 record ?").arg(headingName(name))
                   : tr("Are you sure to remove %n record(s) ?", nullptr, count),
        parent)
{
    addText(tr("Remove record then file will not delete from disk"));
    addText(tr("Remove record then file will not apperar to list"));
    buttons()->addButton(tr("Remove"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(this, &QDialog::accepted, this, [] { telemetry::post(Event::DeletePageConfirmClick); });
}

void RemoveRecordDialog::showEvent(QShowEvent *event)
{
    BoxDialog::showEvent(event);
    telemetry::post(Event::DeletePageShow);
}

DeleteFileDialog::DeleteFileDialog(const QString &name, int count, QWidget *parent)
    : BoxDialog(tr("Delete file"),
        count == 1 ? tr("Are you sure to delete file %1 ?").arg(headingName(name))
                   : tr("Are you sure to delete %n file(s) ?", nullptr, count),
        parent)
{
    addText(tr("The file will into the system recycle bin after delete."));
    buttons()->addButton(tr("Delete"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    connect(this, &QDialog::accepted, this, [] { telemetry::post(Event::DeleteFilePageConfirmClick); });
}

void DeleteFileDialog::showEvent(QShowEvent *event)
{
    BoxDialog::showEvent(event);
    telemetry::post(Event::DeleteFilePageShow);
}
