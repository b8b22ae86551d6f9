#pragma once

#include "widgets/boxdialog.h"

class QCheckBox;

/// Asks whether the box ends or goes on in the background. GUI thread. Escape or closing it changes nothing.
class ZelBoxExitDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit ZelBoxExitDialog(QWidget *parent = nullptr);

Q_SIGNALS:
    void exitChosen();
    void backgroundChosen();

private:
    void chooseBackground();

    QCheckBox *m_remember;
};
