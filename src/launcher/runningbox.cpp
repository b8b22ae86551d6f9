#include "launcher/runningbox.h"

#include "base/posix/exitsignals.h"
#include "base/posix/runtimedir.h"
#include "base/posix/singleinstance.h"
#include "base/posix/unicode.h"
#include "launcher/boxlibrary.h"
#include "launcher/forward.h"
#include "launcher/hostmessages.h"
#include "launcher/instanceserver.h"
#include "launcher/protocol.h"
#include "launcher/startuptoken.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sched.h>

using zel::posix::SingleInstance;

namespace zel::launcher {
namespace {

constexpr std::chrono::seconds startTime{10};
// An owner that ends closes a connection once. One that keeps doing it does not understand us.
constexpr int closedByOneOwner = 20;

// Lives until the process ends: static objects of the library may still speak to it after its entry has
// returned.
HostMessages &messages()
{
    static HostMessages *const instance = new HostMessages;
    return *instance;
}

int fail(const std::string &why)
{
    std::fprintf(stderr, "zelbox: %s\n", why.c_str());
    return 1;
}

int judge(const Forwarding &forwarding)
{
    if (forwarding.result == Forwarding::Result::Failed)
        return fail(forwarding.error);
    if (forwarding.reply == handledReply)
        return 0;
    if (forwarding.reply == errorReply)
        return fail("the running box refused the command line");
    return fail("the running box gave an answer that makes no sense");
}

// Qt would end the process with an abort and advice on reinstalling it.
bool hasDisplay()
{
    const auto isSet = [](const char *name) {
        const char *value = std::getenv(name);
        return value != nullptr && value[0] != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

int serve(SingleInstance &instance, int argc, char **argv, const std::wstring &commandLine)
{
    if (!hasDisplay())
        return fail("there is no display (neither DISPLAY nor WAYLAND_DISPLAY is set)");
    const BoxLibrary box = loadBox();
    if (box.entry == nullptr)
        return fail(box.error);
    InstanceServer server(instance.listener(), messages(), posix::catchExitSignals(), {});
    if (!server.start())
        return fail(std::string("cannot take messages of later starts: ") + std::strerror(errno));
    const int result = box.entry(argc, argv, commandLine.c_str());
    // Starts that come now wait until the next owner can be found; those whose message is unheard start over.
    const posix::UniqueFd starts = instance.holdStarts(posix::deadlineIn(startTime));
    server.stop();
    instance.release();
    return result;
}

// The token goes first, because the box needs it when it performs the command. Without it the window may stay
// behind others, nothing worse: what becomes of it does not matter here.
Forwarding handOver(const std::string &socketPath, const std::u16string &command, posix::Deadline deadline)
{
    const std::string token = startupToken();
    if (!token.empty())
        forwardMessage(socketPath,
            {transmissionChannel, startupKey + posix::toUtf16(posix::decodeUtf8(token))}, deadline);
    return forwardMessage(socketPath, {transmissionChannel, activateKey + command}, deadline);
}

} // namespace

int runBox(int argc, char **argv, const CommandLine &commandLine)
{
    const posix::RuntimeDir folder = posix::openRuntimeDir();
    if (folder.path.empty())
        return fail(folder.error);
    const std::u32string text = posix::decodeUtf8(commandLine.text);
    const posix::Deadline deadline = posix::deadlineIn(startTime);
    SingleInstance instance(folder.path, "zelbox");
    pid_t lastOwner = 0;
    int closed = 0;
    do {
        switch (instance.claim(deadline)) {
        case SingleInstance::Claim::Owner:
            return serve(instance, argc, argv, posix::toWide(text));
        case SingleInstance::Claim::Failed:
            return fail(instance.error());
        case SingleInstance::Claim::Taken:
            break;
        }
        const Forwarding forwarding = handOver(instance.socketPath(), posix::toUtf16(text), deadline);
        if (forwarding.result != Forwarding::Result::Gone)
            return judge(forwarding);
        closed = forwarding.owner != 0 && forwarding.owner == lastOwner ? closed + 1 : 0;
        lastOwner = forwarding.owner;
        ::sched_yield(); // the kernel may still be closing what a killed owner had open
    } while (closed < closedByOneOwner && std::chrono::steady_clock::now() < deadline);
    return fail("the running box does not take the command line");
}

} // namespace zel::launcher

extern "C" __attribute__((visibility("default"))) void GetHostInterface(HostMessageInterface **out)
{
    *out = &zel::launcher::messages();
}
