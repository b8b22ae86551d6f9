#pragma once

#include "clouddoc/clouddoclogic.h"
#include "widgets/boxdialog.h"

/// Asks what to do about names that are taken; one answer serves for all of them. GUI thread. Emits
/// choiceMade() at most once; closing means to leave them out.
class ConflictDialog : public BoxDialog
{
    Q_OBJECT
public:
    ConflictDialog(CloudOperation operation, const CloudConflicts &conflicts, QWidget *parent = nullptr);

Q_SIGNALS:
    void choiceMade(CloudNameChoice choice);

private:
    static QString heading(const CloudConflicts &conflicts);
    void explain(CloudOperation operation, const CloudConflicts &conflicts);
    void compare(const CloudConflict &conflict);
    void addChoice(const QString &text, CloudNameChoice choice, bool preferred);
};
