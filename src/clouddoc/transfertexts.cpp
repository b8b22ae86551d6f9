#include "clouddoc/transfertexts.h"

#include "base/sizetext.h"
#include "clouddoc/cloudproblemtext.h"

#include <QCoreApplication>

namespace zel::clouddoc {

using State = CloudTransfer::State;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TransferTexts)
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

} // namespace

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
    case State::Done: {
        const QString done = up ? Texts::tr("Uploaded") : Texts::tr("Downloaded");
        return transfer.leftOut > 0 ? Texts::tr("%1 without %Ln item(s)", "done", transfer.leftOut).arg(done)
                                    : done;
    }
    case State::Failed: {
        const QString why = problemText(transfer.problem);
        return why.isEmpty() ? Texts::tr("Failed") : why;
    }
    case State::Cancelled:
        return Texts::tr("Cancelled");
    }
    return {};
}

QString spokenText(const CloudTransfer &transfer)
{
    const QString status = statusText(transfer);
    return transfer.hasEnded()
        ? status
        : Texts::tr("%1%, %2", "progress, details").arg(transfer.percent()).arg(status);
}

QString remainingText(qint64 seconds)
{
    if (seconds <= 0)
        return {};
    if (seconds < 60)
        return Texts::tr("less than a minute left");
    const qint64 minutes = (seconds + 30) / 60;
    if (minutes < 60)
        return Texts::tr("%Ln minute(s) left", nullptr, int(minutes));
    const qint64 hours = qMin<qint64>((minutes + 30) / 60, INT_MAX);
    return Texts::tr("%Ln hour(s) left", nullptr, int(hours));
}

} // namespace zel::clouddoc
