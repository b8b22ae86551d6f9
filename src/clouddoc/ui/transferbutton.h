#pragma once

#include "widgets/iconbutton.h"

/// Opens the list of transfers and shows how far they are. GUI thread.
class TransferButton : public IconButton
{
    Q_OBJECT
public:
    explicit TransferButton(QWidget *parent = nullptr);

    /// `percent` of all that is active, below 0 when nothing is; `failed` when something went wrong since the
    /// user looked.
    void setProgress(int active, int percent, bool failed);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_percent = -1;
    bool m_failed = false;
};
