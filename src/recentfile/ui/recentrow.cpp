#include "recentfile/ui/recentrow.h"

#include "base/sizetext.h"
#include "klook.h"
#include "recentfile/recentfilemodel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QModelIndex>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;

namespace {

struct RowTexts
{
    Q_DECLARE_TR_FUNCTIONS(ZelBoxRecentFileDelegate)
};

QString placeText(const QModelIndex &index, const QString &path)
{
    if (!path.isEmpty())
        return folderText(path, QDir::homePath());
    const QString device = plainLine(index.data(Model::DeviceNameRole).toString());
    return device.isEmpty() ? RowTexts::tr("On another device") : RowTexts::tr("On %1").arg(device);
}

QString detailText(const QModelIndex &index, RecentDetail detail, const QString &name)
{
    switch (detail) {
    case RecentDetail::Time:
        return {};
    case RecentDetail::Size:
        return zel::sizeText(index.data(Model::SizeRole).toLongLong());
    case RecentDetail::Type:
        return typeText(name);
    }
    return {};
}

QString badgeText(const QModelIndex &index, bool missing, const RecentRow::Texts &texts)
{
    if (missing)
        return RowTexts::tr("Missing");
    const int unread = index.data(Model::UnreadRole).toInt();
    if (unread == Model::NotUnread)
        return {};
    const bool isNew = unread == Model::New;
    return texts.value(isNew ? QStringLiteral("text-notify-new") : QStringLiteral("text-notify-modify"));
}

} // namespace

RecentRowFonts::RecentRowFonts(const QFont &font)
    : name(font),
      small(zel::look::font(zel::look::Type::Caption, font)),
      nameMetrics(name),
      smallMetrics(small),
      cell(RecentCellMetrics::of(nameMetrics, smallMetrics))
{
}

RecentRow RecentRow::of(const QModelIndex &index, RecentDetail detail, const Texts &texts)
{
    RecentRow row;
    row.fileName = index.data(Model::NameRole).toString();
    row.name = plainLine(row.fileName);
    row.path = index.data(Model::PathRole).toString();
    row.time = index.data(Model::TimeTextRole).toString();
    row.missing = index.data(Model::PresenceRole).toInt() == int(RecentFileInfo::Presence::Missing);
    row.pinned = index.data(Model::PinnedRole).toBool();
    row.cloud = index.data(Model::CloudBackedRole).toBool();
    row.folder = placeText(index, row.path);
    row.detail = detailText(index, detail, row.fileName);
    if (!row.detail.isEmpty())
        row.detail.prepend(QStringLiteral("· "));
    row.badge = badgeText(index, row.missing, texts);
    return row;
}

RecentCell::Wishes RecentRow::wishes(const RecentRowFonts &fonts, bool buttons) const
{
    const auto width = [](const QFontMetrics &metrics, const QString &text) {
        return text.isEmpty() ? 0 : metrics.horizontalAdvance(text) + 1;
    };
    RecentCell::Wishes wishes;
    wishes.name = width(fonts.nameMetrics, name);
    wishes.badge = width(fonts.smallMetrics, badge);
    wishes.folder = width(fonts.smallMetrics, folder);
    wishes.detail = width(fonts.smallMetrics, detail);
    wishes.time = width(fonts.smallMetrics, time);
    wishes.pin = pinned;
    wishes.cloud = cloud;
    wishes.buttons = buttons;
    return wishes;
}

// Twice where a text is too long: what stands behind it follows what is left of it.
RecentCell RecentRow::fit(const QRect &rect, const RecentRowFonts &fonts, bool buttons)
{
    const RecentCell::Wishes wanted = wishes(fonts, buttons);
    const RecentCell cell = RecentCell::layout(rect, fonts.cell, wanted);
    if (cell.name.width() == wanted.name && cell.folder.width() == wanted.folder)
        return cell;
    if (cell.name.width() < wanted.name)
        name = elidedName(name, fonts.nameMetrics, cell.name.width());
    if (cell.folder.width() < wanted.folder)
        folder = fonts.smallMetrics.elidedText(folder, Qt::ElideMiddle, cell.folder.width());
    return RecentCell::layout(rect, fonts.cell, wishes(fonts, buttons));
}

namespace zel::recent {

QString typeText(const QString &name)
{
    return plainLine(QFileInfo(name).suffix().toUpper());
}

} // namespace zel::recent
