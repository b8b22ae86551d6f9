#include "clouddoc/ui/transferrowtexts.h"

#include "clouddoc/transfertexts.h"
#include "widgets/nametext.h"

using State = CloudTransfer::State;
using Button = TransferRow::Button;

namespace {

Button buttonOf(const CloudTransfer &transfer)
{
    if (transfer.isActive())
        return Button::Cancel;
    return transfer.state == State::Done ? Button::None : Button::Retry;
}

QString iconOf(Button button)
{
    return button == Button::Cancel ? QStringLiteral(":/icons_svg/window_close.svg")
                                    : QStringLiteral(":/icons_svg/retry.svg");
}

} // namespace

TransferRow TransferRow::of(const CloudTransfer &transfer)
{
    TransferRow row;
    row.fileName = transfer.folder ? QString(transfer.name + QLatin1Char('/')) : transfer.name;
    row.name = zel::plainLine(transfer.name);
    row.state = zel::clouddoc::statusText(transfer);
    row.problem = transfer.state == State::Failed;
    row.barBelow = true;
    if (!transfer.hasEnded())
        row.progress = transfer.percent();
    row.button = buttonOf(transfer);
    row.buttonsStay = true;
    row.buttonRoom = 1;
    if (row.button != Button::None)
        row.buttons << RowButton{int(row.button), iconOf(row.button)};
    return row;
}
