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
        {source::RecentFile, text(QT_TRANSLATE_NOOP("Navigation", "Recent")), icon("nav_recent"), {}, {}},
        {source::CloudDoc, text(QT_TRANSLATE_NOOP("Navigation", "Cloud documents")), icon("nav_cloud"), {},
            {}},
        {source::TeamFile, text(QT_TRANSLATE_NOOP("Navigation", "Team folders")), icon("nav_team"),
            icon("empty_team"),
            text(QT_TRANSLATE_NOOP("Navigation",
                "Folders that a team shares need a cloud server, which this version cannot connect to."))},
        {source::DocMsg, text(QT_TRANSLATE_NOOP("Navigation", "Messages")), icon("nav_message"),
            icon("empty_message"),
            text(
                QT_TRANSLATE_NOOP("Navigation", "Messages about your documents come with a later version."))},
        {source::FileRadar, text(QT_TRANSLATE_NOOP("Navigation", "File radar")), icon("nav_radar"),
            icon("empty_radar"),
            text(QT_TRANSLATE_NOOP(
                "Navigation", "Files that you receive and download will be found here in a later version."))},
        {source::MsgChannel, text(QT_TRANSLATE_NOOP("Navigation", "Channels")), icon("nav_channel"),
            icon("empty_channel"),
            text(QT_TRANSLATE_NOOP("Navigation", "Message channels come with a later version."))},
        {source::DesktopSync, text(QT_TRANSLATE_NOOP("Navigation", "Desktop sync")), icon("nav_sync"),
            icon("empty_sync"),
            text(QT_TRANSLATE_NOOP("Navigation",
                "Keeping your desktop folder in step with the cloud comes with a later version."))},
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
