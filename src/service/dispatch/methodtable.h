#pragma once

#include "service/dispatch/reply.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <string_view>
#include <typeinfo>
#include <unordered_map>

namespace zel::wire {
class MessageReader;
}

namespace zel::service {

/// Which method is served by what. Filled once at start; each area of methods adds its own. Main thread.
class MethodTable
{
public:
    /// `method` takes Request and is answered with Result; both as the interface description has them.
    template <class Request, class Result>
    void serve(std::string_view method, std::function<void(const Request &, Answer<Result>)> handler)
    {
        const wire::MethodType &type = checked(method, &typeid(Request), typeid(Result));
        m_handlers[&type] = [handler = std::move(handler)](void *request, Reply reply) {
            handler(*static_cast<const Request *>(request), Answer<Result>(std::move(reply)));
        };
    }
    /// The same for a handler that keeps the request, which may be large, until it is answered.
    template <class Request, class Result>
    void serveKeeping(
        std::string_view method, std::function<void(std::shared_ptr<const Request>, Answer<Result>)> handler)
    {
        const wire::MethodType &type = checked(method, &typeid(Request), typeid(Result));
        m_handlers[&type] = [handler = std::move(handler)](void *request, Reply reply) {
            handler(std::make_shared<const Request>(std::move(*static_cast<Request *>(request))),
                Answer<Result>(std::move(reply)));
        };
    }
    /// The same for a method that takes a list of texts.
    template <class Result>
    void serveList(std::string_view method, std::function<void(const QStringList &, Answer<Result>)> handler)
    {
        const wire::MethodType &type = checked(method, nullptr, typeid(Result));
        m_handlers[&type] = [handler = std::move(handler)](void *request, Reply reply) {
            handler(*static_cast<const QStringList *>(request), Answer<Result>(std::move(reply)));
        };
    }

    /// The same with a member function; `object` outlives the table's use.
    template <class Object, class Request, class Result>
    void serve(
        std::string_view method, Object *object, void (Object::*handler)(const Request &, Answer<Result>))
    {
        const auto call = [object, handler](const Request &request, Answer<Result> answer) {
            (object->*handler)(request, std::move(answer));
        };
        if constexpr (std::is_same_v<Request, QStringList>)
            serveList<Result>(method, call);
        else
            serve<Request, Result>(method, call);
    }

    bool isServed(const wire::MethodType &method) const { return m_handlers.contains(&method); }
    /// Reads the request and has it answered; a method that nobody serves is answered with "notServed". False
    /// when the request does not parse (then the reply was answered, and `message` says why).
    bool call(const wire::MethodType &method, wire::MessageReader &message, Reply reply) const;

private:
    using Handler = std::function<void(void *request, Reply reply)>;

    static const wire::MethodType &checked(
        std::string_view method, const std::type_info *request, const std::type_info &result);

    std::unordered_map<const wire::MethodType *, Handler> m_handlers;
};

} // namespace zel::service
