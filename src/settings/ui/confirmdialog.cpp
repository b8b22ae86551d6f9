#include "settings/ui/confirmdialog.h"

#include <QDialogButtonBox>
#include <QPushButton>

ConfirmDialog::ConfirmDialog(
    const QString &title, const QString &question, const QString &yes, QWidget *parent)
    : BoxDialog(title, question, parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    buttons()->addButton(yes, QDialogButtonBox::AcceptRole);
    QPushButton *no = buttons()->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    no->setDefault(true);
    no->setFocus();
}
