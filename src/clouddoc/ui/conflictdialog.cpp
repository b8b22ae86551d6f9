#include "clouddoc/ui/conflictdialog.h"

#include "base/clock.h"
#include "base/sizetext.h"
#include "base/timetext.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int MostNames = 5; // in the list of a dialog
}

ConflictDialog::ConflictDialog(CloudOperation operation, const CloudConflicts &conflicts, QWidget *parent)
    : BoxDialog(tr("Name already taken"), heading(conflicts), parent)
{
    explain(operation, conflicts);
    addChoice(tr("Keep Both"), CloudNameChoice::KeepBoth, true);
    addChoice(tr("Replace"), CloudNameChoice::Replace, false);
    buttons()->addButton(conflicts.size() == 1 ? tr("Cancel") : tr("Skip"), QDialogButtonBox::RejectRole);
}

QString ConflictDialog::heading(const CloudConflicts &conflicts)
{
    if (conflicts.size() == 1)
        return tr("“%1” is already there").arg(headingName(conflicts.constFirst().name));
    return tr("%Ln name(s) are already taken there", nullptr, conflicts.size());
}

void ConflictDialog::explain(CloudOperation operation, const CloudConflicts &conflicts)
{
    const CloudConflict &first = conflicts.constFirst();
    if (conflicts.size() > 1) {
        QStringList names;
        for (const CloudConflict &conflict : conflicts.mid(0, MostNames))
            names << headingName(conflict.name);
        if (const int more = conflicts.size() - MostNames; more > 0)
            names << tr("and %Ln more", nullptr, more);
        addText(names.join(QLatin1Char('\n')))->setTextFormat(Qt::PlainText);
    } else if (first.existing.modifiedAt > 0 && !first.existing.folder) {
        compare(first);
    }
    if (conflicts.size() == 1 && !first.suggestedName.isEmpty())
        addText(tr("Keep Both gives the new one the name “%1”.").arg(headingName(first.suggestedName)))
            ->setTextFormat(Qt::PlainText);
    const bool isFile = conflicts.size() == 1 && first.existing.modifiedAt > 0 && !first.existing.folder;
    if (operation == CloudOperation::Download && isFile)
        addText(tr("Replace overwrites the file that is there."));
    else if (operation == CloudOperation::Download)
        addText(tr("Replace overwrites the files that are there; folders are merged."));
    else if (isFile)
        addText(tr("Replace moves the file that is there to the recycle bin."));
    else if (operation == CloudOperation::Upload)
        addText(tr("Replace moves files that are there to the recycle bin; folders are merged."));
    else
        addText(tr("Replace moves what is there to the recycle bin."));
}

// What one decides by.
void ConflictDialog::compare(const CloudConflict &conflict)
{
    const auto when = [](qint64 time) {
        return zel::momentText(QDateTime::fromMSecsSinceEpoch(time), zel::now());
    };
    if (conflict.modifiedAt > 0)
        addText(tr("The new file: %1, changed %2.", "size, time")
                    .arg(zel::sizeText(conflict.size), when(conflict.modifiedAt)));
    addText(tr("The file that is there: %1, changed %2.", "size, time")
                .arg(zel::sizeText(conflict.existing.size), when(conflict.existing.modifiedAt)));
}

void ConflictDialog::addChoice(const QString &text, CloudNameChoice choice, bool preferred)
{
    QPushButton *button = buttons()->addButton(text, QDialogButtonBox::AcceptRole);
    button->setDefault(preferred);
    connect(button, &QAbstractButton::clicked, this, [this, choice] { Q_EMIT choiceMade(choice); });
}
