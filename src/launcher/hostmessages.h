#pragma once

#include "base/hostinterface.h"
#include "launcher/frame.h"

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace zel::launcher {

/// The handlers that the box has registered with its host. Any thread; handlers run on the thread that calls
/// deliver().
class HostMessages final : public HostMessageInterface
{
public:
    void registerHandler(const wchar_t *channel, void *context, HostCallback callback) override;
    void reserved() override { }
    bool isReady() override { return true; }

    /// Hands the message to its channel's handler and returns the reply; empty when the channel has no
    /// handler or the handler left the output untouched, which means that it takes no messages any more.
    std::optional<std::u16string> deliver(const Message &message);
    /// `changed` is called after each registration, on the registering thread, and must not block;
    /// empty for none. Once replaced, the earlier one is not running any more.
    void onRegistration(std::function<void()> changed);

private:
    struct Handler
    {
        void *context;
        HostCallback callback;
    };

    // Held during a call, so that a handler removed on another thread is not running any more; recursive, so
    // that a handler may register another one.
    std::recursive_mutex m_mutex;
    std::map<std::wstring, Handler> m_handlers;
    std::function<void()> m_changed;
};

} // namespace zel::launcher
