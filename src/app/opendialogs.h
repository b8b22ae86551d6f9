#pragma once

#include <QDialog>
#include <QPointer>
#include <QVector>

/// The dialogs that no window owns, one of a kind at most; a closed one goes. GUI thread.
class OpenDialogs
{
public:
    /// The open dialog of this kind, else a new one, which `setUp` gets first; shown and in front either way.
    template <typename Dialog, typename SetUp> Dialog *present(SetUp setUp)
    {
        for (const QPointer<QDialog> &open : m_dialogs) {
            auto *found = qobject_cast<Dialog *>(open.data());
            if (found && found->isVisible()) { // else it is closed, and goes
                bringToFront(found);
                return found;
            }
        }
        auto *made = new Dialog;
        setUp(made);
        add(made);
        bringToFront(made);
        return made;
    }
    template <typename Dialog> Dialog *present()
    {
        return present<Dialog>([](Dialog *) {});
    }

    void takeDown();

    static void bringToFront(QWidget *window); ///< and shows it

private:
    void add(QDialog *dialog);

    QVector<QPointer<QDialog>> m_dialogs;
};
