#include "clouddoc/ui/transferrowtexts.h"

#include "base/sizetext.h"
#include "clouddoc/ui/cloudproblemtext.h"
#include "clouddoc/ui/cloudrowtexts.h"
#include "widgets/nametext.h"

#include <QCoreApplication>

using namespace zel::clouddoc;
using State = CloudTransfer::State;
using Button = TransferRow::Button;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TransferRow)
};

QString runningText(const CloudTransfer &transfer)
{
    QStringList parts;
    if (transfer.totalBytes > 0)
        parts << Texts::tr("%1 of %2", "bytes done of bytes in all")
                     .arg(zel::sizeText(transfer.doneBytes), zel::sizeText(transfer.totalBytes));
    else
        parts << zel::sizeText(transfer.doneBytes);
    if (transfer.bytesPerSecond > 0)
        parts << Texts::tr("%1/s").arg(zel::sizeText(transfer.bytesPerSecond));
    parts << remainingText(transfer.remainingMs < 0 ? 0 : qMax<qint64>(1, transfer.remainingMs / 1000));
    parts.removeAll({});
    return parts.join(QStringLiteral(" · "));
}

QString statusText(const CloudTransfer &transfer)
{
    const bool up = transfer.direction == CloudTransfer::Direction::Up;
    switch (transfer.state) {
    case State::Waiting:
        return up ? Texts::tr("Waiting to be uploaded") : Texts::tr("Waiting to be downloaded");
    case State::Running:
        return runningText(transfer);
    case State::Paused:
        return Texts::tr("Interrupted");
    case State::Done:
        return up ? Texts::tr("Uploaded") : Texts::tr("Downloaded");
    case State::Failed: {
        const QString why = problemText(transfer.problem);
        return why.isEmpty() ? Texts::tr("Failed") : why;
    }
    case State::Cancelled:
        return Texts::tr("Cancelled");
    }
    return {};
}

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
    row.state = statusText(transfer);
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
