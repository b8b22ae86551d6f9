#include "clouddoc/ui/cloudrowtexts.h"

#include "base/clock.h"
#include "base/sizetext.h"
#include "base/timetext.h"
#include "clouddoc/clouddocmodel.h"
#include "widgets/nametext.h"

#include <QCoreApplication>
#include <QModelIndex>

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
    row.columnTexts = QStringList{document.modifiedAt > 0 ? zel::timeText(modified, zel::now()) : QString(),
        document.folder ? QString() : zel::sizeText(document.size)};
    describeTransfer(document, &row);
    return row;
}
