#pragma once

#include "clouddoc/cloudtransfer.h"

#include <QFontMetrics>
#include <QRect>

/// What one row of the transfer list says and where. Plain value, for painting, clicks and tool tips alike.
struct TransferRow
{
    enum class Button { None, Cancel, Retry };

    QString name;
    QString status;
    int percent = -1; ///< below 0: no bar
    bool failed = false;
    Button button = Button::None;

    static TransferRow of(const CloudTransfer &transfer); ///< GUI thread (translated)
};

/// Places of a transfer row.
struct TransferCell
{
    QRect ground;
    QRect icon;
    QRect name;
    QRect status;
    QRect progress;
    QRect button;

    static TransferCell layout(
        const QRect &row, const QFontMetrics &name, const QFontMetrics &small, const TransferRow &what);
    static int rowHeight(const QFontMetrics &name, const QFontMetrics &small);
};
