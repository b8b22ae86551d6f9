#pragma once

#include "account_types.h"
#include "base/posix/singleinstance.h"
#include "message_types.h"
#include "notify_types.h"
#include "service/dispatch/methodtable.h"
#include "service/server/cloudserver.h"
#include "support/wireclient.h"

/// A server with a few methods whose answers the test holds in its hand.
class SessionFixture
{
public:
    using Held = zel::service::Answer<zel::vela::GetUserIdResult>;

    SessionFixture()
    {
        using namespace zel;
        if (instance.claim(posix::deadlineIn(std::chrono::seconds(5))) != posix::SingleInstance::Claim::Owner)
            qFatal("the socket cannot be made");
        methods.serve<vela::GetVersionArg, vela::GetVersionResult>(
            "getVersion", [](const auto &, auto answer) { answer.send({}); });
        methods.serveList<vela::GetUserIdResult>(
            "getUserId", [this](const auto &, Held answer) { held.push_back(std::move(answer)); });
        methods.serve<vela::GetMsgListArg, vela::GetMsgListResult>(
            "getMsgList", [this](const auto &, auto answer) {
                ++handled;
                vela::GetMsgListResult result;
                result.extraParam["filler"] = std::string(answerSize, 'x');
                answer.send(result);
            });
        makeServer();
    }

    void makeServer(const zel::service::SessionLimits &limits = {})
    {
        server.reset();
        server = std::make_unique<zel::service::CloudServer>(instance, methods, limits);
    }
    const std::string &path() const { return instance.socketPath(); }
    /// One that has passed the handshake; null when it could not.
    std::unique_ptr<WireClient> welcomeClient() const
    {
        auto client = std::make_unique<WireClient>(path());
        return client->greet() ? std::move(client) : nullptr;
    }

    QTemporaryDir folder;
    zel::posix::SingleInstance instance{folder.path().toStdString(), "cloud"};
    zel::service::MethodTable methods;
    std::unique_ptr<zel::service::CloudServer> server;
    std::vector<Held> held; ///< requests for getUserId; end before the server, through which they answer
    int handled = 0;        ///< requests for getMsgList
    size_t answerSize = 10; ///< of getMsgList
};
