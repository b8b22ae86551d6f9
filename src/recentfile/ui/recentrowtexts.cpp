#include "recentfile/ui/recentrowtexts.h"

#include "base/paths.h"
#include "base/sizetext.h"
#include "recentfile/recentfilemodel.h"
#include "widgets/nametext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QModelIndex>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;
using zel::plainLine;

namespace {

struct RowTexts
{
    Q_DECLARE_TR_FUNCTIONS(ZelBoxRecentFileDelegate)
};

const RowButtons &rowButtons()
{
    static const RowButtons buttons{{RecentButton::Share, QStringLiteral(":/icons_svg/share.svg")},
        {RecentButton::More, QStringLiteral(":/icons_svg/more.svg")}};
    return buttons;
}

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

RecentRow RecentRow::of(const QModelIndex &index, RecentDetail detail, const Texts &texts)
{
    RecentRow row;
    row.fileName = index.data(Model::NameRole).toString();
    row.name = plainLine(row.fileName);
    row.picture = index.data(Model::PathRole).toString();
    row.time = index.data(Model::TimeTextRole).toString();
    row.missing = index.data(Model::PresenceRole).toInt() == int(RecentFileInfo::Presence::Missing);
    if (index.data(Model::PinnedRole).toBool())
        row.nameGlyph = QStringLiteral(":/icons_svg/row_pin.svg");
    if (index.data(Model::CloudBackedRole).toBool())
        row.placeGlyph = QStringLiteral(":/icons_svg/row_cloud.svg");
    row.place = placeText(index, row.picture);
    row.detail = detailText(index, detail, row.fileName);
    if (!row.detail.isEmpty())
        row.detail.prepend(QStringLiteral("· "));
    row.badge = badgeText(index, row.missing, texts);
    row.buttons = rowButtons();
    row.buttonRoom = row.buttons.size();
    return row;
}

namespace zel::recent {

QString typeText(const QString &name)
{
    return plainLine(QFileInfo(name).suffix().toUpper());
}

QString folderText(const QString &path, const QString &home)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return {};
    return zel::paths::shown(plainLine(slash == 0 ? QStringLiteral("/") : path.left(slash)), home);
}

} // namespace zel::recent
