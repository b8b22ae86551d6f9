#include "recentfile/recenttelemetry.h"

#include "kdcinfoc.h"
#include "recentfile/recentfilemodel.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QThreadPool>
#include <iterator>

namespace zel::recent::telemetry {

namespace {

using Parameters = QMap<QString, QString>;

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString updateText(int unread)
{
    switch (unread) {
    case ZelBoxRecentFileModel::NotUnread:
        return {};
    case ZelBoxRecentFileModel::New:
        return QStringLiteral("new");
    }
    return QStringLiteral("modify");
}

// In the order of Event.
constexpr const char *Names[] = {
    "carrypopup_show",
    "carrypopup_knowclick",
    "carrypopup_closeclick",
    "carrypopup_clientjumpclick",
    "carrypopup_webjumpclick",
    "clearclick",
    "deletepage_show",
    "deletepage_confirmchick",
    "deletefilepage_show",
    "deletefilepage_confirmchick",
    "emptypage_show",
    "emptypage_loginclick",
    "emptypage_enablecarryclick",
    "emptypage_clientjumpclick",
    "emptypage_webjumpclick",
    "enablecarryclick",
    "filelist_show",
    "filelist_moreclick",
    "filelist_rightclick",
    "filelist_shareclick",
    "morelist_show",
    "multideviceclick",
    "noticeclick",
    "rightlist_show",
    "rightlist_openclick",
    "rightlist_appclick",
    "rightlist_openpathclick",
    "rightlist_shareclick",
    "rightlist_deleteclick",
    "rightlist_deletefileclick",
    "rightlist_tipofffileclick",
    "timeout_show",
};
static_assert(std::size(Names) == size_t(Event::TimeoutShow) + 1);

void post(const char *event, const Parameters &parameters = {})
{
    KDcInfoC::postGeneralEvent(QStringLiteral("zelbox_mainbox_recent_") + QLatin1String(event), parameters);
}

} // namespace

void post(Event event)
{
    post(Names[size_t(event)]);
}

void pageShown(const PageState &state)
{
    post("show",
        {{QStringLiteral("unlogin"), boolText(!state.loggedIn)},
            {QStringLiteral("notenablecarry"), boolText(!state.roamingOn)},
            {QStringLiteral("badgenumber"), QString::number(state.unread)},
            {QStringLiteral("resultcount"), QString::number(state.rows)}});
}

void clicked(int row, const RecentFileInfo &record)
{
    if (!KDcInfoC::isEnabled())
        return;
    const Parameters parameters{{QStringLiteral("index"), QString::number(row)},
        {QStringLiteral("fileupdatetime"),
            QDateTime::fromMSecsSinceEpoch(record.lastAccess, Qt::UTC).toString(Qt::ISODate)},
        {QStringLiteral("icon"), QFileInfo(record.path).suffix().toLower()},
        {QStringLiteral("update"), updateText(record.unread)}};
    // A file on a slow network folder must not hold up the click.
    QThreadPool::globalInstance()->start([parameters, path = record.path] {
        Parameters all = parameters;
        all.insert(QStringLiteral("filesize"), QString::number(QFileInfo(path).size()));
        QMetaObject::invokeMethod(
            qApp, [all] { post("filelist_click", all); }, Qt::QueuedConnection);
    });
}

void doubleClicked(int row, const RecentFileInfo &record)
{
    post("filelist_doubleclick",
        {{QStringLiteral("position"), QString::number(row)},
            {QStringLiteral("filestatus"),
                record.roaming ? QStringLiteral("cloudfile") : QStringLiteral("localfile")},
            {QStringLiteral("doubleclick"), boolText(true)}});
}

void timeoutClicked(TimeoutTarget target)
{
    post("timeout_click",
        {{QStringLiteral("target"),
            target == TimeoutTarget::Redo ? QStringLiteral("redo") : QStringLiteral("feedback")}});
}

void remindersSwitchedOff()
{
    post("morelist_disablenotice", {{QStringLiteral("checkbox"), boolText(true)}});
}

} // namespace zel::recent::telemetry
