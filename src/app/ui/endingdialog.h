#pragma once

#include "widgets/boxdialog.h"

/// Says that the box ends once what is under way is done. GUI thread. Accepted by the user who does not wait,
/// and by itself after half a minute; rejected by who stays.
class EndingDialog : public BoxDialog
{
    Q_OBJECT
public:
    explicit EndingDialog(QWidget *parent = nullptr);
};
