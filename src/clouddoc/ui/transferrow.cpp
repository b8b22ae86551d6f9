#include "clouddoc/ui/transferrow.h"

#include "base/sizetext.h"
#include "clouddoc/ui/cloudproblemtext.h"
#include "clouddoc/ui/cloudrow.h"
#include "klitestyle.h"
#include "widgets/nametext.h"

#include <QCoreApplication>

using namespace zel::clouddoc;
using State = CloudTransfer::State;

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

} // namespace

TransferRow TransferRow::of(const CloudTransfer &transfer)
{
    TransferRow row;
    row.name = zel::plainLine(transfer.name);
    row.status = statusText(transfer);
    row.failed = transfer.state == State::Failed;
    if (!transfer.hasEnded())
        row.percent = transfer.percent();
    if (transfer.isActive())
        row.button = Button::Cancel;
    else if (transfer.state != State::Done)
        row.button = Button::Retry;
    return row;
}

int TransferCell::rowHeight(const QFontMetrics &name, const QFontMetrics &small)
{
    return qMax(KLiteStyle::dpiScaled(50), name.height() + small.height() + KLiteStyle::dpiScaled(16));
}

TransferCell TransferCell::layout(
    const QRect &row, const QFontMetrics &name, const QFontMetrics &small, const TransferRow &what)
{
    const int padding = KLiteStyle::dpiScaled(12);
    const int iconSize = KLiteStyle::dpiScaled(24);
    const int buttonSize = KLiteStyle::dpiScaled(28);
    const int barHeight = KLiteStyle::dpiScaled(3);
    TransferCell cell;
    cell.ground = row.adjusted(padding, 1, -padding, -1);
    const QRect inner = cell.ground.adjusted(padding, 0, -padding, 0);
    const int middle = row.top() + row.height() / 2;
    cell.icon = QRect(inner.left(), middle - iconSize / 2, iconSize, iconSize);
    const int left = cell.icon.right() + 1 + padding;
    const int right = inner.right() + 1 - buttonSize; // names end at one line, with or without a button
    if (what.button != TransferRow::Button::None)
        cell.button = QRect(inner.right() + 1 - buttonSize, middle - buttonSize / 2, buttonSize, buttonSize);
    const int width = qMax(0, right - padding - left);
    const bool bar = what.percent >= 0;
    const int gap = 2;
    const int all = name.height() + gap + small.height() + (bar ? 2 * gap + barHeight : 0);
    cell.name = QRect(left, middle - all / 2, width, name.height());
    cell.status = QRect(left, cell.name.bottom() + 1 + gap, width, small.height());
    if (bar)
        cell.progress = QRect(left, cell.status.bottom() + 1 + 2 * gap, width, barHeight);
    return cell;
}
