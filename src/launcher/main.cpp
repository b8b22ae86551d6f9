#include "launcher/commandline.h"
#include "launcher/options.h"
#include "launcher/runningbox.h"
#include "launcher/selftest.h"

#include <cstdio>

using namespace zel::launcher;

namespace {

constexpr char usage[] = "Usage: zelbox [options] [--] [command line of the box]\n"
                         "\n"
                         "Opens the document box, or hands the command line to the one that is open.\n"
                         "\n"
                         "Options:\n"
                         "  --help       shows this text\n"
                         "  --version    shows the version\n"
                         "  --self-test  opens a box of its own, checks that it works, and ends\n"
                         "  --           what follows belongs to the box\n"
                         "\n"
                         "The box's own options have the form /name=value, for example /action=exit.\n";

int run(const std::vector<char *> &arguments)
{
    const CommandLine commandLine = joinArguments({arguments.begin() + 1, arguments.end()});
    if (commandLine.quotesDropped)
        std::fputs("zelbox: double quotes inside an argument are left out\n", stderr);
    std::vector<char *> argv = arguments;
    argv.push_back(nullptr);
    return runBox(static_cast<int>(arguments.size()), argv.data(), commandLine);
}

int selfTest(std::vector<char *> arguments)
{
    arguments.push_back(nullptr);
    return runSelfTest(arguments.data());
}

} // namespace

int main(int argc, char **argv)
{
    const Options options = parseOptions(argc, argv);
    switch (options.mode) {
    case Options::Mode::Run:
        return run(options.arguments);
    case Options::Mode::Help:
        std::fputs(usage, stdout);
        return 0;
    case Options::Mode::Version:
        std::puts("zelbox " ZEL_VERSION);
        return 0;
    case Options::Mode::SelfTest:
        return selfTest(options.arguments);
    case Options::Mode::Unknown:
        std::fprintf(stderr, "zelbox: unknown option %s\n\n%s", options.unknown.c_str(), usage);
        return 2;
    }
}
