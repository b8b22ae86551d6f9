#pragma once

#include "kcloudask.h"
#include "platform/impl/recentstore/records/roamingtypes.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <optional>

class KCloudSvrProxy;
namespace zel::vela {
class GetRecentFilesResult;
class GetRecentFileInfoListResult;
} // namespace zel::vela

namespace zel::recent {

/// Reads the recent list of the signed-in user from the cloud service, and tells the service what happens
/// here. GUI thread. Without a login nothing is asked and nothing told.
///
/// One list is read at a time, page by page, each page's version being the same: a list that changed in
/// between is read anew, and one that could not be read to its end is dropped. It is also read after each
/// connect and sign-in and when the service says that it changed.
class RoamingSource final : public QObject
{
    Q_OBJECT
public:
    static constexpr int PauseMs = 200;     ///< wishes and news that come within it are one
    static constexpr int MostItems = 10000; ///< of a longer list the newest
    static constexpr int PageSize = 1000;

    explicit RoamingSource(QObject *parent = nullptr);

    void setCloud(KCloudSvrProxy *cloud); ///< not owned; null for none
    /// Reads the records whose name contains `filter`. A wish during another is served after it, together
    /// with those that came meanwhile. `refresh`: the service fetches the list from its server first.
    void request(const QString &filter, bool refresh);
    void tellRead(const QVector<ReadMark> &marks); ///< told() follows if the service takes them
    void tellUses(const QVector<FileUse> &uses);

Q_SIGNALS:
    void userChanged(const QString &user); ///< empty: signed out. Told once it is known, before any list
    void arrived(const zel::recent::RoamingList &list);
    void ready(); ///< the service listens: what is still untold may be told now
    void told(const QVector<zel::recent::ReadMark> &marks);

private:
    struct Wish
    {
        QString filter;
        bool refresh = false;
    };
    struct Reading
    {
        Wish wish;
        RoamingList list;
        std::optional<QString> version; ///< of the list; none before the first page
        int offset = 0;                 ///< of the next page, in the service's list
        QStringList cloudIds;           ///< whose files' places are still to be asked for
        CloudCall call;                 ///< under way
        int beginnings = 0;             ///< because the list changed while it was read
    };

    void onLink();
    bool isSignedIn() const;
    void read(const Wish &wish);
    void begin();
    void askPage();
    void onPage(const CloudReply<vela::GetRecentFilesResult> &reply);
    void askPlaces();
    void onPlaces(const CloudReply<vela::GetRecentFileInfoListResult> &reply);
    bool isSameVersion(const std::string &version);
    void finish();
    void giveUp(const char *why, int state);
    void rest();
    void forgetUser();
    void sendUses();

    QPointer<KCloudSvrProxy> m_cloud;
    std::optional<QString> m_user; ///< none: not known yet
    std::optional<Reading> m_reading;
    std::optional<Wish> m_wish;         ///< for later
    QString m_version;                  ///< of the complete list that was handed out last; empty: none
    QList<QVector<ReadMark>> m_telling; ///< by request
    QHash<QString, FileUse> m_uses;     ///< by path, not told yet
    QTimer m_readTimer;
    QTimer m_useTimer;
};

} // namespace zel::recent

Q_DECLARE_METATYPE(zel::recent::RoamingList)
