#include "recentfile/ui/recentdialogs.h"

#include "recentfile/recenttelemetry.h"
#include "recentfile/recordtexts.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <algorithm>

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;

RemoveRecordDialog::RemoveRecordDialog(const RecordInfoList &records, QWidget *parent)
    : BoxDialog(tr("Remove record"),
        records.size() == 1 ? tr("Are you sure to remove %1 record ?")
                                  .arg(headingName(zel::recent::shownName(records.constFirst())))
                            : tr("Are you sure to remove %Ln record(s) ?", nullptr, records.size()),
        parent)
{
    addText(tr("Remove record then file will not delete from disk"));
    addText(tr("Remove record then file will not apperar to list"));
    if (std::any_of(records.cbegin(), records.cend(),
            [](const RecentFileInfo &each) { return !each.roamingId.isEmpty(); }))
        addText(tr("It goes from the lists of your other devices, too, which cannot be undone."));
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
                   : tr("Are you sure to delete %Ln file(s) ?", nullptr, count),
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
