#pragma once

#include "clouddoc/cloudtransfer.h"
#include "lists/ui/listrow.h"

/// What one row of the transfer list says, and what its button is for.
struct TransferRow : ListRow
{
    enum class Button { None, Cancel, Retry };
    Button button = Button::None;

    static TransferRow of(const CloudTransfer &transfer); ///< GUI thread (translated)
};
