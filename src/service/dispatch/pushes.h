#pragma once

#include "service/dispatch/reply.h"

#include <string_view>

namespace apache::thrift {
class TBase;
}

namespace zel::service {

/// Tells connected clients something. Main thread. What is pushed after an answer arrives after it.
class Pushes
{
public:
    virtual ~Pushes() = default;
    /// To all of them. `method` is one of the pushes of the interface description, `record` its argument.
    virtual void push(std::string_view method, const apache::thrift::TBase &record) = 0;
    /// To one; nothing happens when it has gone.
    virtual void pushTo(ClientId client, std::string_view method, const apache::thrift::TBase &record) = 0;
};

} // namespace zel::service
