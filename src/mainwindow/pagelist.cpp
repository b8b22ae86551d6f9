#include "mainwindow/pagelist.h"

#include "base/sourcekeys.h"

#include <QCoreApplication>

namespace zel {
namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("Navigation", source);
}

QString icon(const char *name)
{
    return QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name));
}

} // namespace

QVector<PageInfo> pageList()
{
    return {
        {source::RecentFile, text(QT_TRANSLATE_NOOP("Navigation", "Recent")), icon("nav_recent"), {}},
        {source::CloudDoc, text(QT_TRANSLATE_NOOP("Navigation", "Cloud documents")), icon("nav_cloud"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Your cloud documents will be listed here in a coming version."))},
        {source::TeamFile, text(QT_TRANSLATE_NOOP("Navigation", "Team folders")), icon("nav_team"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Folders shared with your team will be listed here in a coming version."))},
        {source::DocMsg, text(QT_TRANSLATE_NOOP("Navigation", "Messages")), icon("nav_message"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Messages about your documents will be listed here in a coming version."))},
        {source::FileRadar, text(QT_TRANSLATE_NOOP("Navigation", "File radar")), icon("nav_radar"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Received and downloaded files will be listed here in a coming version."))},
        {source::MsgChannel, text(QT_TRANSLATE_NOOP("Navigation", "Channels")), icon("nav_channel"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Message channels will be listed here in a coming version."))},
        {source::DesktopSync, text(QT_TRANSLATE_NOOP("Navigation", "Desktop sync")), icon("nav_sync"),
            text(QT_TRANSLATE_NOOP("Navigation",
                "The state of your synchronised desktop will be shown here in a coming version."))},
    };
}

int pageNumber(const QString &key)
{
    const QVector<PageInfo> pages = pageList();
    for (int number = 0; number < pages.size(); ++number) {
        if (pages.at(number).key == key)
            return number;
    }
    return -1;
}

} // namespace zel
