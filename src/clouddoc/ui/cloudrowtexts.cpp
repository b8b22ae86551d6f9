#include "clouddoc/ui/cloudrowtexts.h"

#include "base/clock.h"
#include "base/sizetext.h"
#include "clouddoc/clouddocmodel.h"
#include "widgets/nametext.h"

#include <QCoreApplication>
#include <QLocale>
#include <QModelIndex>

using namespace zel::clouddoc;

namespace {

struct RowTexts
{
    Q_DECLARE_TR_FUNCTIONS(CloudRow)
};

void describeTransfer(const CloudDocument &document, CloudRow *row)
{
    using Transfer = CloudDocument::Transfer;
    switch (document.transfer) {
    case Transfer::None:
        return;
    case Transfer::Waiting:
        row->state = RowTexts::tr("Waiting");
        return;
    case Transfer::Uploading:
    case Transfer::Downloading:
        row->state = RowTexts::tr("%1%").arg(document.progress);
        row->progress = document.progress;
        return;
    case Transfer::Failed:
        row->state = RowTexts::tr("Failed", "a transfer");
        row->problem = true;
        row->nameGlyph = QStringLiteral(":/icons_svg/row_problem.svg");
        return;
    }
}

} // namespace

CloudRow CloudRow::of(const QModelIndex &index)
{
    static const RowColumns timeAndSize{RowColumn::Time, RowColumn::Size};
    const auto document = index.data(CloudDocModel::DocumentRole).value<CloudDocument>();
    CloudRow row;
    row.kind = Kind::Columns;
    row.fileName = document.folder ? QString(document.name + QLatin1Char('/')) : document.name;
    row.name = zel::plainLine(document.name);
    const auto modified = QDateTime::fromMSecsSinceEpoch(document.modifiedAt);
    row.columns = timeAndSize;
    row.columnTexts = QStringList{document.modifiedAt > 0 ? timeText(modified, zel::now()) : QString(),
        document.folder ? QString() : zel::sizeText(document.size)};
    describeTransfer(document, &row);
    return row;
}

namespace zel::clouddoc {

QString timeText(const QDateTime &time, const QDateTime &now)
{
    if (!time.isValid())
        return {};
    const QDateTime local = time.toLocalTime();
    const QDate date = local.date();
    const QDate today = now.toLocalTime().date();
    const QString clock = local.time().toString(QStringLiteral("hh:mm"));
    if (date == today)
        return clock;
    if (date.daysTo(today) == 1)
        return RowTexts::tr("yesterday %1").arg(clock);
    if (date.year() == today.year())
        return QLocale().toString(date, RowTexts::tr("d MMMM", "format of a date within this year"));
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

QString remainingText(qint64 seconds)
{
    if (seconds <= 0)
        return {};
    if (seconds < 60)
        return RowTexts::tr("less than a minute left");
    const qint64 minutes = (seconds + 30) / 60;
    if (minutes < 60)
        return RowTexts::tr("%n minute(s) left", nullptr, int(minutes));
    const qint64 hours = qMin<qint64>((minutes + 30) / 60, INT_MAX);
    return RowTexts::tr("%n hour(s) left", nullptr, int(hours));
}

} // namespace zel::clouddoc
