#include "kcloudask.h"

#include "base/logging.h"
#include "cloud/wire/registry.h"
#include "cloudrequest.h"
#include "kcloudsvrproxy.h"

using zel::cloudipc::CloudRequest;

bool CloudCall::isWaiting() const
{
    const auto *request = qobject_cast<const CloudRequest *>(m_request);
    return request && request->isWaiting();
}

void CloudCall::cancel() const
{
    if (auto *request = qobject_cast<CloudRequest *>(m_request))
        request->cancel();
}

namespace zel {
namespace {

bool isType(const wire::RecordType *record, const std::type_info *type)
{
    return record ? type && *record->type == *type : !type;
}

// The records' addresses go through untyped, so a caller's mistake must not get any further.
const wire::MethodType *checkedMethod(
    const char *name, const std::type_info *request, const std::type_info *answer)
{
    const wire::MethodType *method = wire::findMethod(name);
    if (method && isType(method->request, request) && (!answer || isType(method->answer, answer)))
        return method;
    qCCritical(lcPlatform, "%s is no method of these records", name);
    return nullptr;
}

} // namespace

CloudCall CloudRequestData::send(KCloudSvrProxy *proxy, const char *method, const std::type_info *answer,
    QObject *context, std::function<void(const CloudEnding &)> then) const
{
    const wire::MethodType *type = checkedMethod(method, m_type, answer);
    const CloudRequest::Send send = [&](KCloudSvrProxy *to, QObject *receiver, const QString &slot) {
        const QString name = QLatin1String(method);
        return m_texts
            ? to->asyncCall(name, *m_texts, receiver, slot)
            : to->asynCallEx(name, QGenericArgument(type->request->name.data(), m_data), receiver, slot);
    };
    if (!then) {
        if (proxy && type)
            send(proxy, nullptr, QString());
        return {};
    }
    return CloudCall(new CloudRequest(proxy, context, std::move(then), type ? send : CloudRequest::Send()));
}

} // namespace zel
