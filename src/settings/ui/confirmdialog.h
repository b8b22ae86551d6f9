#pragma once

#include "widgets/boxdialog.h"

/// Asks before something that cannot be undone. Show it with open(); accepted() means yes. Deletes itself
/// when it is closed; Cancel is the default. GUI thread.
class ConfirmDialog final : public BoxDialog
{
    Q_OBJECT
public:
    ConfirmDialog(const QString &title, const QString &question, const QString &yes, QWidget *parent);

    using BoxDialog::addText;
};
