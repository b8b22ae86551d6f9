// A box that only records what its host does with it. One line a record in the file named by FAKEBOX_LOG:
// "<process id> <what> <text>".
#include "base/hostinterface.h"

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <poll.h>
#include <string>
#include <unistd.h>

namespace {

constexpr wchar_t channelName[] = L"_TRANSMISSION_";

std::string environment(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

// One write a line, so that the lines of several processes do not mix.
void record(const std::string &what, const std::string &text = {})
{
    const int fd =
        ::open(environment("FAKEBOX_LOG").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    std::string line = std::to_string(::getpid()) + ' ' + what + ' ' + text;
    std::replace(line.begin(), line.end(), '\n', '|');
    line += '\n';
    if (fd < 0 || ::write(fd, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::abort();
    ::close(fd);
}

// Stands still until the test opens the pipe of that name for writing.
void hold(const char *variable)
{
    const std::string pipe = environment(variable);
    if (pipe.empty())
        return;
    const int fd = ::open(pipe.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    record(variable);
    pollfd entry = {fd, POLLIN, 0};
    while (::poll(&entry, 1, -1) < 0) { }
    ::close(fd);
}

struct Box
{
    std::mutex mutex;
    std::condition_variable changed;
    bool leaving = false;
};

void onMessage(void *context, const wchar_t *channel, void *, HostInputData *input, HostOutputData *output)
{
    const std::u16string text = input->text();
    record("message", std::filesystem::path(text).string()); // as UTF-8
    const std::u16string reply = std::wcscmp(channel, channelName) == 0 ? u"handled" : u"error";
    const std::size_t bytes = (reply.size() + 1) * sizeof(char16_t);
    output->setSize(bytes);
    std::memcpy(output->buffer(), reply.c_str(), bytes);
    if (text.find(u"/action=exit") == std::u16string::npos)
        return;
    auto *box = static_cast<Box *>(context);
    const std::lock_guard lock(box->mutex);
    box->leaving = true;
    box->changed.notify_one();
}

HostMessageInterface *host()
{
    void *program = ::dlopen(nullptr, RTLD_LAZY | RTLD_GLOBAL);
    const auto get = reinterpret_cast<GetHostInterfaceFunction>(::dlsym(program, "GetHostInterface"));
    HostMessageInterface *interface = nullptr;
    if (get != nullptr)
        get(&interface);
    return interface;
}

int selfTest()
{
    record("runtime", environment("XDG_RUNTIME_DIR"));
    if (::fork() == 0) {
        ::setsid();
        ::signal(SIGTERM, SIG_DFL); // as exec would have done
        record("child");
        for (;;)
            ::pause();
    }
    const std::string result = environment("FAKEBOX_RESULT");
    if (result == "crash")
        std::raise(SIGKILL);
    if (!result.empty())
        std::ofstream(environment("ZELBOX_SELF_TEST_RESULT")) << result << '\n';
    return 0;
}

} // namespace

extern "C" __attribute__((visibility("default"))) int EntryPoint(
    int argc, char **argv, const wchar_t *cmdline)
{
    const std::wstring line = cmdline;
    record("start", std::filesystem::path(std::u32string(line.begin(), line.end())).string());
    record("arguments", std::to_string(argc) + (argv[argc] == nullptr ? " terminated" : " open"));
    if (!environment("ZELBOX_SELF_TEST").empty())
        return selfTest();
    hold("FAKEBOX_HOLD_START");
    Box box;
    HostMessageInterface *messages = host();
    if (environment("FAKEBOX_DEAF").empty() && line.find(L"/action=exit") == std::wstring::npos) {
        if (messages == nullptr || !messages->isReady())
            return 3;
        messages->registerHandler(channelName, &box, onMessage);
        std::unique_lock lock(box.mutex);
        box.changed.wait(lock, [&box] { return box.leaving; });
        lock.unlock();
        messages->registerHandler(channelName, nullptr, nullptr);
    }
    hold("FAKEBOX_HOLD_END");
    record("end");
    return 0;
}
