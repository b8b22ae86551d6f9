#include "launcher/options.h"

#include <string_view>

namespace zel::launcher {
namespace {

Options::Mode modeOf(std::string_view option)
{
    if (option == "--help")
        return Options::Mode::Help;
    if (option == "--version")
        return Options::Mode::Version;
    if (option == "--self-test")
        return Options::Mode::SelfTest;
    return Options::Mode::Unknown;
}

} // namespace

Options parseOptions(int argc, char **argv)
{
    Options options;
    bool ended = false;
    for (int i = 0; i < argc; ++i) {
        const std::string_view text = argv[i];
        if (i == 0 || ended || !text.starts_with("--")) {
            options.arguments.push_back(argv[i]);
        } else if (text == "--") {
            ended = true;
        } else if (options.mode != Options::Mode::Unknown) {
            options.mode = modeOf(text);
            if (options.mode == Options::Mode::Unknown)
                options.unknown = text;
        }
    }
    return options;
}

} // namespace zel::launcher
