#include "app/pagelist.h"

#include "base/sourcekeys.h"
#include "clouddoc/ui/cloudactiontable.h"
#include "clouddoc/ui/zelboxclouddocwidget.h"
#include "recentfile/ui/recentactiontable.h"
#include "recentfile/ui/recentfile.h"
#include "recentfile/ui/recentfilewidget.h"
#include "widgets/emptystate.h"
#include "widgets/shortcuts.h"

#include <QCoreApplication>

namespace zel {
namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("Navigation", source);
}

QString picture(const char *kind, const char *name)
{
    return QStringLiteral(":/icons_svg/%1_%2.svg").arg(QLatin1String(kind), QLatin1String(name));
}

MadePage recentFiles(KCloudSvrProxy *cloud, QWidget *parent, std::unique_ptr<QObject>)
{
    ZelBoxRecentFile::Services services;
    services.cloud = cloud;
    ZelBoxRecentFileWidget *page = (new ZelBoxRecentFile(services, parent, parent))->page();
    return {page, page};
}

MadePage cloudDocuments(KCloudSvrProxy *cloud, QWidget *parent, std::unique_ptr<QObject> before)
{
    auto *page = new ZelBoxCloudDocWidget(cloud, parent, std::move(before));
    return {page, page};
}

/// A page whose feature is not there yet: it says what it will show.
PageInfo coming(QLatin1String key, const char *title, const char *name, const char *explanation)
{
    const auto make = [=](KCloudSvrProxy *, QWidget *parent, const auto &) {
        return MadePage{
            new EmptyStateWidget(picture("empty", name), text(title), text(explanation), parent), nullptr};
    };
    return {key, text(title), picture("nav", name), make};
}

} // namespace

PageList boxPages()
{
    Shortcuts::addPage(recentActionTable()); // the settings list them, made or not
    Shortcuts::addPage(cloudActionTable());
    return {
        {source::RecentFile, text(QT_TRANSLATE_NOOP("Navigation", "Recent")), picture("nav", "recent"),
            recentFiles},
        {source::CloudDoc, text(QT_TRANSLATE_NOOP("Navigation", "Cloud documents")), picture("nav", "cloud"),
            cloudDocuments},
        coming(source::TeamFile, QT_TRANSLATE_NOOP("Navigation", "Team folders"), "team",
            QT_TRANSLATE_NOOP("Navigation",
                "Folders that a team shares need a cloud server, which this version cannot connect to.")),
        coming(source::DocMsg, QT_TRANSLATE_NOOP("Navigation", "Messages"), "message",
            QT_TRANSLATE_NOOP("Navigation", "Messages about your documents come with a later version.")),
        coming(source::FileRadar, QT_TRANSLATE_NOOP("Navigation", "File radar"), "radar",
            QT_TRANSLATE_NOOP(
                "Navigation", "Files that you receive and download will be found here in a later version.")),
        coming(source::MsgChannel, QT_TRANSLATE_NOOP("Navigation", "Channels"), "channel",
            QT_TRANSLATE_NOOP("Navigation", "Message channels come with a later version.")),
        coming(source::DesktopSync, QT_TRANSLATE_NOOP("Navigation", "Desktop sync"), "sync",
            QT_TRANSLATE_NOOP("Navigation",
                "Keeping your desktop folder in step with the cloud comes with a later version.")),
    };
}

} // namespace zel
