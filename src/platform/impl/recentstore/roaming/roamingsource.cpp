#include "roamingsource.h"

#include "roamingrecords.h"

#include "base/clock.h"
#include "base/logging.h"
#include "cloud/wire/serviceerror.h"
#include "kcloudsvrproxy.h"

#include <algorithm>

namespace zel::recent {
namespace {

constexpr int PlacesAtOnce = 500;
constexpr int MostBeginnings = 5;
constexpr int MostUsesAtOnce = 100;

void setUp(QTimer &timer)
{
    timer.setSingleShot(true);
    timer.setInterval(RoamingSource::PauseMs);
}

} // namespace

RoamingSource::RoamingSource(QObject *parent) : QObject(parent)
{
    setUp(m_readTimer);
    setUp(m_useTimer);
    connect(&m_readTimer, &QTimer::timeout, this, &RoamingSource::begin);
    connect(&m_useTimer, &QTimer::timeout, this, &RoamingSource::sendUses);
}

void RoamingSource::setCloud(KCloudSvrProxy *cloud)
{
    if (cloud == m_cloud)
        return;
    if (m_cloud) {
        m_cloud->disconnect(this);
        m_cloud->velaEventObject()->disconnect(this);
    }
    forgetUser();
    m_user.reset();
    m_cloud = cloud;
    if (!cloud)
        return;
    connect(cloud, &KCloudSvrProxy::loginStatusChanged, this, &RoamingSource::onLink);
    connect(cloud, &KCloudSvrProxy::velaInited, this, &RoamingSource::onLink);
    connect(cloud->velaEventObject(), &KVelaEventObject::signal_notifyRecentFileListChanged, this,
        [this] { read({}); });
    onLink();
}

// The service is there, or somebody signed in or out.
void RoamingSource::onLink()
{
    KVelaIpcLoginCache login;
    if (!m_cloud || !m_cloud->getUserLoginInfo(&login))
        return;
    const QString user = login.loginState == 0 ? QString() : login.userId; // also one whose sign-in ran out
    if (m_user != user) {
        m_user = user;
        forgetUser();
        Q_EMIT userChanged(user);
    }
    if (!isSignedIn())
        return;
    Q_EMIT ready();
    read({});
}

bool RoamingSource::isSignedIn() const
{
    return m_cloud && m_cloud->isConnected() && m_cloud->isLogined();
}

void RoamingSource::request(const QString &filter, bool refresh)
{
    const bool covered = m_reading && !m_wish && m_reading->offset == 0
        && (m_reading->wish.filter.isEmpty() || m_reading->wish.filter == filter)
        && (m_reading->wish.refresh || !refresh);
    if (covered)
        return; // the answer is still to come
    read({filter, refresh});
}

void RoamingSource::read(const Wish &wish)
{
    if (!m_wish)
        m_wish = wish;
    else if (m_wish->filter != wish.filter)
        m_wish = Wish{{}, m_wish->refresh || wish.refresh};
    else
        m_wish->refresh = m_wish->refresh || wish.refresh;
    if (!m_reading && !m_readTimer.isActive())
        m_readTimer.start();
}

void RoamingSource::begin()
{
    if (!m_wish || m_reading)
        return;
    const Wish wish = *std::exchange(m_wish, {});
    if (!isSignedIn() || !m_user)
        return;
    m_reading.emplace();
    m_reading->wish = wish;
    m_reading->list.user = *m_user;
    m_reading->list.complete = wish.filter.isEmpty();
    askPage();
}

void RoamingSource::askPage()
{
    const bool first = m_reading->offset == 0 && m_reading->beginnings == 0;
    auto page =
        pageRequest(m_reading->wish.filter, m_reading->offset, PageSize, first && m_reading->wish.refresh);
    m_reading->call = ask<vela::GetRecentFilesResult>(
        m_cloud, "getRecentFiles", page, this, [this](const auto &reply) { onPage(reply); });
}

void RoamingSource::onPage(const CloudReply<vela::GetRecentFilesResult> &reply)
{
    if (reply.end == CloudEnd::Cancelled)
        return; // that was another reading
    if (!reply)
        return giveUp("the recent list", reply.error);
    const vela::GetRecentFilesResult &page = reply.record;
    RoamingList &list = m_reading->list;
    if (!isSameVersion(page.opv))
        return;
    const bool known = list.complete && !m_reading->wish.refresh && m_reading->version == m_version;
    if (known && !m_version.isEmpty())
        return rest();
    const RoamingReader reader{
        list.user, m_cloud->queryLoginInfo(QStringLiteral("deviceId")), now().toMSecsSinceEpoch()};
    for (const vela::RecentFileItem &record : page.items) {
        std::optional<RoamingItem> item = toItem(record, reader);
        if (!item || list.items.size() >= MostItems)
            continue;
        if (!item->fileId.isEmpty() && item->usedPath.isEmpty() && item->cachePath.isEmpty())
            m_reading->cloudIds.append(item->roamingId);
        list.items.append(std::move(*item));
    }
    m_reading->offset += int(page.items.size());
    if (!page.hasMore || m_reading->offset >= MostItems)
        return askPlaces();
    if (page.items.empty())
        return giveUp("a page without records", 0);
    askPage();
}

// Of the cloud's files that were used elsewhere: do they lie on this device, too?
void RoamingSource::askPlaces()
{
    if (m_reading->cloudIds.isEmpty())
        return finish();
    auto infos = infoRequest(m_reading->cloudIds.mid(0, PlacesAtOnce));
    m_reading->cloudIds = m_reading->cloudIds.mid(PlacesAtOnce);
    m_reading->call = ask<vela::GetRecentFileInfoListResult>(
        m_cloud, "getRecentFileInfoList", infos, this, [this](const auto &reply) { onPlaces(reply); });
}

void RoamingSource::onPlaces(const CloudReply<vela::GetRecentFileInfoListResult> &reply)
{
    if (reply.end == CloudEnd::Cancelled)
        return;
    if (reply.error == int(wire::ServiceError::NotServed))
        return finish(); // a service without files of its own
    if (!reply)
        return giveUp("the places of its files", reply.error);
    if (!isSameVersion(reply.record.opv))
        return;
    addCachePaths(m_reading->list.items, reply.record);
    askPlaces();
}

// Otherwise begins anew.
bool RoamingSource::isSameVersion(const std::string &version)
{
    const QString found = wire::toQt(version);
    if (!m_reading->version)
        m_reading->version = found;
    if (m_reading->version == found)
        return true;
    Reading again;
    again.wish = m_reading->wish;
    again.list.user = m_reading->list.user;
    again.list.complete = m_reading->list.complete;
    again.beginnings = m_reading->beginnings + 1;
    m_reading = again;
    if (again.beginnings < MostBeginnings)
        askPage();
    else
        giveUp("a list that changes all the time", 0); // the next notice of a change leads here again
    return false;
}

void RoamingSource::finish()
{
    const RoamingList list = m_reading->list;
    if (list.complete)
        m_version = m_reading->version.value_or(QString());
    qCInfo(lcRecent) << "read" << list.items.size() << "roaming records, complete:" << list.complete;
    rest();
    Q_EMIT arrived(list);
}

void RoamingSource::giveUp(const char *why, int state)
{
    qCInfo(lcRecent) << "roaming records were not read," << why << "state" << state;
    rest();
}

void RoamingSource::rest()
{
    m_reading.reset();
    if (m_wish)
        m_readTimer.start();
}

// What was read, asked for or noted for one user is nothing for the next.
void RoamingSource::forgetUser()
{
    if (m_reading)
        m_reading->call.cancel();
    m_reading.reset();
    m_version.clear();
    m_wish.reset();
    m_uses.clear();
    m_readTimer.stop();
    m_useTimer.stop();
}

void RoamingSource::tellRead(const QVector<ReadMark> &marks)
{
    QHash<QString, qint64> underWay;
    for (const QVector<ReadMark> &telling : std::as_const(m_telling)) {
        for (const ReadMark &mark : telling)
            underWay.insert(mark.roamingId, mark.time);
    }
    QVector<ReadMark> untold;
    std::copy_if(marks.cbegin(), marks.cend(), std::back_inserter(untold),
        [&](const ReadMark &mark) { return underWay.value(mark.roamingId, -1) != mark.time; });
    if (untold.isEmpty() || !isSignedIn())
        return;
    m_telling.append(untold);
    ask<vela::SetCloudItemReadResult>(m_cloud, "setCloudItemRead", readRequest(untold), this,
        [this, untold](const CloudReply<vela::SetCloudItemReadResult> &reply) {
            m_telling.removeOne(untold);
            if (reply)
                Q_EMIT told(untold);
            else
                qCInfo(lcRecent) << untold.size() << "read marks wait, state" << reply.error;
        });
}

void RoamingSource::tellUses(const QVector<FileUse> &uses)
{
    if (!isSignedIn())
        return;
    for (const FileUse &use : uses)
        m_uses.insert(use.path, use);
    if (!m_uses.isEmpty() && !m_useTimer.isActive())
        m_useTimer.start();
}

void RoamingSource::sendUses()
{
    QVector<FileUse> uses;
    for (auto it = m_uses.begin(); it != m_uses.end() && uses.size() < MostUsesAtOnce; it = m_uses.erase(it))
        uses.append(*it);
    if (!m_uses.isEmpty())
        m_useTimer.start();
    if (uses.isEmpty() || !isSignedIn())
        return;
    tell(m_cloud, "addRoamingRecord", useRequest(uses));
}

} // namespace zel::recent
