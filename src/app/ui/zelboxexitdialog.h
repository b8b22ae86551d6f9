#pragma once

#include "widgets/boxdialog.h"

class QCheckBox;
class QPushButton;

/// Asks whether the box ends or goes on in the background. GUI thread. Escape or closing it changes nothing.
class ZelBoxExitDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit ZelBoxExitDialog(QWidget *parent = nullptr);

    /// Enter ends the box when that was asked for; else, as to begin with, the box stays.
    void setExitWanted(bool wanted);

Q_SIGNALS:
    void exitChosen();
    void backgroundChosen();

private:
    void chooseBackground();

    QCheckBox *m_remember;
    QPushButton *m_exit;
    QPushButton *m_background;
};
