#include "clouddoc/ui/cloudrow.h"

#include "base/clock.h"
#include "base/sizetext.h"
#include "clouddoc/clouddocmodel.h"
#include "klook.h"
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
        row->failed = true;
        return;
    }
}

} // namespace

CloudRowFonts::CloudRowFonts(const QFont &font)
    : name(font),
      small(zel::look::font(zel::look::Type::Caption, font)),
      nameMetrics(name),
      smallMetrics(small),
      cell(CloudCellMetrics::of(nameMetrics, smallMetrics))
{
}

CloudRow CloudRow::of(const QModelIndex &index)
{
    const auto document = index.data(CloudDocModel::DocumentRole).value<CloudDocument>();
    CloudRow row;
    row.fileName = document.name;
    row.name = zel::plainLine(document.name);
    row.isFolder = document.folder;
    if (document.modifiedAt > 0)
        row.time = timeText(QDateTime::fromMSecsSinceEpoch(document.modifiedAt), zel::now());
    if (!document.folder)
        row.size = zel::sizeText(document.size);
    QStringList details{row.time, row.size};
    details.removeAll({});
    row.detail = details.join(QStringLiteral(" · "));
    describeTransfer(document, &row);
    return row;
}

CloudCell::Wishes CloudRow::wishes(const CloudRowFonts &fonts) const
{
    const auto width = [](const QFontMetrics &metrics, const QString &text) {
        return text.isEmpty() ? 0 : metrics.horizontalAdvance(text) + 1;
    };
    CloudCell::Wishes wishes;
    wishes.name = width(fonts.nameMetrics, name);
    wishes.detail = width(fonts.smallMetrics, detail);
    wishes.state = width(fonts.smallMetrics, state);
    wishes.glyph = failed;
    wishes.progress = progress >= 0;
    return wishes;
}

// Twice where the name is too long: the glyph behind it follows what is left of it.
CloudCell CloudRow::fit(const QRect &rect, const CloudRowFonts &fonts)
{
    const CloudCell::Wishes wanted = wishes(fonts);
    const CloudCell cell = CloudCell::layout(rect, fonts.cell, wanted);
    const auto shorten = [&fonts](QString *text, int wish, int room) {
        if (room < wish)
            *text = fonts.smallMetrics.elidedText(*text, Qt::ElideRight, room);
    };
    shorten(&detail, wanted.detail, cell.detail.width());
    shorten(&state, wanted.state, cell.state.width());
    if (cell.name.width() >= wanted.name)
        return cell;
    name = zel::elidedName(name, fonts.nameMetrics, cell.name.width());
    return CloudCell::layout(rect, fonts.cell, wishes(fonts));
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
