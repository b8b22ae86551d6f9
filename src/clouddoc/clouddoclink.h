#pragma once

#include "clouddoc/clouddocrecords.h"

#include <QObject>
#include <QPointer>
#include <functional>

class KCloudSvrProxy;
namespace zel {
class CloudRequestData;
}

/// What came of a request: a value, or why there is none.
template <class Value> struct CloudAnswer
{
    CloudProblem problem = CloudProblem::None;
    QString detail; ///< one English sentence for the log
    Value value = {};

    explicit operator bool() const { return problem == CloudProblem::None; }
};

/// What the page asks of the cloud service, in the page's terms. GUI thread; nothing blocks. Each request
/// calls its continuation exactly once on a later turn of the loop, also when there is no service or the
/// proxy goes; never after this object is gone. A continuation may do anything but destroy this object.
class CloudDocLink final : public QObject
{
    Q_OBJECT
public:
    template <class Value> using Then = std::function<void(const CloudAnswer<Value> &)>;

    /// `proxy` is not owned, may be null and may be destroyed first.
    explicit CloudDocLink(KCloudSvrProxy *proxy, QObject *parent = nullptr);

    bool isReached() const { return m_reached; } ///< the service is there
    void reach(); ///< tries at once, whatever came of it before; starts a service that is not there

    /// `version` of the page before, so that the pages fit together; 0 with the first.
    void listFolder(
        const QString &id, int offset, int count, zel::ListSort sort, qint64 version, Then<CloudPage> then);
    void findPath(const QString &id, Then<CloudCrumbs> then); ///< NotFound when it is gone
    void createFolder(const QString &parentId, const QString &name, Then<CloudDocument> then);
    void rename(const QString &id, const QString &name, Then<CloudDocument> then);
    void move(
        const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then);
    void copy(
        const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then);
    void remove(const QStringList &ids, Then<CloudOutcome> then); ///< into the recycle bin
    void recover(const QStringList &recycleIds, Then<CloudOutcome> then);
    void upload(
        const QStringList &paths, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then);
    void download(
        const QStringList &ids, const QString &folder, CloudNameChoice choice, Then<CloudOutcome> then);
    void listTransfers(int count, Then<CloudTransfers> then); ///< the newest ones
    void changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep step, Then<CloudOutcome> then);
    void subscribeTransfers(); ///< newsArrived() tells from now on how far each is; ends with the connection

Q_SIGNALS:
    void reachedChanged(bool reached); ///< after a loss, before the requests that it ended tell so
    void newsArrived(const CloudNews &news);

private Q_SLOTS:
    void onSubscribeTransNotify(bool bOk, const QString &requestId, const zel::vela::VelaIpcResult &result);

private:
    template <class Answer, class Value, class Read>
    void ask(const char *method, const zel::CloudRequestData &request, Then<Value> then, Read valueOf);
    void setReached(bool reached);
    void onPush(const QString &method, const QVariant &record);

    QPointer<KCloudSvrProxy> m_proxy;
    bool m_reached = false;
};
