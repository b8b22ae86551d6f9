#include "cloudrequest.h"

namespace zel::cloudipc {

CloudRequest::CloudRequest(KCloudSvrProxy *proxy, QObject *parent, Then then, const Send &send)
    : QObject(parent), m_proxy(proxy), m_then(std::move(then))
{
    if (!send) {
        endLater(CloudEnd::Rejected, QStringLiteral("This is not what the method takes."));
        return;
    }
    if (proxy) {
        connect(proxy, &QObject::destroyed, this,
            [this] { endLater(CloudEnd::Gone, QStringLiteral("The link is gone.")); });
        m_requestId = send(proxy, this, QStringLiteral("onEnded"));
    }
    if (m_requestId.isEmpty())
        endLater(CloudEnd::Gone, QStringLiteral("There is no link."));
}

void CloudRequest::cancel()
{
    if (!isWaiting())
        return;
    endLater(CloudEnd::Cancelled, QStringLiteral("It was cancelled."));
    if (m_proxy)
        m_proxy->cancelCall(m_requestId);
}

void CloudRequest::endLater(CloudEnd end, const QString &detail)
{
    if (!m_ending)
        QMetaObject::invokeMethod(
            this, [this] { this->end(CloudEnding(*m_ending)); }, Qt::QueuedConnection);
    if (!m_ending || end == CloudEnd::Cancelled)
        m_ending = {end, detail, nullptr};
}

void CloudRequest::onEnded(bool, const QString &, const CloudEnding &ending)
{
    if (!m_ending)
        end(ending);
}

// The continuation may destroy this with who asked.
void CloudRequest::end(const CloudEnding &ending)
{
    const Then then = std::exchange(m_then, {});
    if (!then)
        return;
    deleteLater();
    then(ending);
}

} // namespace zel::cloudipc
