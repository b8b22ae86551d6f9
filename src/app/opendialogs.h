#pragma once

#include <QDialog>
#include <QPointer>
#include <QVector>

/// The dialogs of the whole box, one of a kind at most; a closed one goes. GUI thread.
class OpenDialogs
{
public:
    /// The open dialog of this kind, else a new one, which `setUp` gets first; shown and in front either way.
    /// It is over this window and blocks it; null: beside all windows.
    template <typename Dialog, typename SetUp> Dialog *present(QWidget *over, SetUp setUp)
    {
        for (const QPointer<QDialog> &open : m_dialogs) {
            auto *found = qobject_cast<Dialog *>(open.data());
            if (found && found->isVisible()) { // else it is closed, and goes
                place(found, over);
                bringToFront(found);
                return found;
            }
        }
        auto *made = new Dialog;
        setUp(made);
        add(made);
        place(made, over);
        bringToFront(made);
        return made;
    }
    template <typename Dialog> Dialog *present(QWidget *over)
    {
        return present<Dialog>(over, [](Dialog *) {});
    }

    void takeDown();

    static void bringToFront(QWidget *window); ///< and shows it

private:
    void add(QDialog *dialog);
    static void place(QDialog *dialog, QWidget *over);

    QVector<QPointer<QDialog>> m_dialogs;
};
