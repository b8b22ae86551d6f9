#include "app/opendialogs.h"

void OpenDialogs::add(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialogs.removeAll(nullptr);
    m_dialogs.append(dialog);
}

void OpenDialogs::place(QDialog *dialog, QWidget *over)
{
    if (dialog->parentWidget() == over)
        return;
    dialog->setParent(over, dialog->windowFlags());
    dialog->setWindowModality(over ? Qt::WindowModal : Qt::NonModal);
}

void OpenDialogs::takeDown()
{
    for (const QPointer<QDialog> &dialog : qExchange(m_dialogs, {}))
        delete dialog;
}

void OpenDialogs::bringToFront(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}
