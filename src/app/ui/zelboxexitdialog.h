#pragma once

#include "widgets/boxdialog.h"

class QCheckBox;
class QLabel;
class QPushButton;

/// Asks whether the box ends or goes on in the background. GUI thread. Escape or closing it changes nothing.
class ZelBoxExitDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit ZelBoxExitDialog(QWidget *parent = nullptr);

    /// Enter ends the box when that was asked for; else, as to begin with, the box stays.
    void setExitWanted(bool wanted);
    void tellTransfers(int underWay); ///< which go on without the box

Q_SIGNALS:
    void exitChosen();
    void backgroundChosen();

private:
    void chooseBackground();

    QLabel *m_transfers;
    QCheckBox *m_remember;
    QPushButton *m_exit;
    QPushButton *m_background;
};
