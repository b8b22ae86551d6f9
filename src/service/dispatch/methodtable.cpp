#include "service/dispatch/methodtable.h"

#include "cloud/wire/message.h"

#include <QtGlobal>
#include <thrift/TBase.h>

namespace zel::service {

using wire::ServiceError;

namespace {

bool isOfType(const wire::RecordType *record, const std::type_info *type)
{
    if (!record || !type)
        return !record && !type;
    const wire::AnyRecord sample(*record);
    const apache::thrift::TBase &base = sample.base();
    return typeid(base) == *type;
}

} // namespace

// A mistake in the table is one of ours and would show as nonsense much later, so it ends the service at
// once.
const wire::MethodType &MethodTable::checked(
    std::string_view method, const std::type_info *request, const std::type_info &result)
{
    const wire::MethodType *type = wire::findMethod(method);
    if (!type || !isOfType(type->request, request) || !isOfType(type->answer, &result))
        qFatal("method %s is served with other records than it has", std::string(method).c_str());
    return *type;
}

bool MethodTable::call(const wire::MethodType &method, wire::MessageReader &message, Reply reply) const
{
    const auto handler = m_handlers.find(&method);
    if (handler == m_handlers.end()) {
        reply.fail(ServiceError::NotServed, QStringLiteral("This service does not do that."));
        return true;
    }
    if (!method.request) {
        QStringList texts;
        if (message.readRequestList(texts)) {
            handler->second(&texts, std::move(reply));
            return true;
        }
    } else {
        const wire::AnyRecord request(*method.request);
        if (message.readRequest(request.base())) {
            handler->second(request.object(), std::move(reply));
            return true;
        }
    }
    reply.fail(ServiceError::InvalidArgument, QStringLiteral("The request does not parse."));
    return false;
}

} // namespace zel::service
